#include "broker/requests.h"

#include <stdexcept>

#include <platform/system_error.h>

#include "broker/wire.h"

namespace pcellBrokerClient {

namespace {

/// Takes the connection out of use unless the request and its answer went through whole.
class Exchange {
public:
    enum class After { pause, answer };

    // What is there to be read before anything was asked answers nothing. Right behind an answer
    // only what came with it can be there.
    explicit Exchange(BrokerConnection& connection, After after = After::pause)
        : connection_(connection) {
        if (connection_.alive && hasStaleInput(after)) {
            connection_.alive = false;
        }
        if (!connection_.alive) {
            failForBroken(connection_);
        }
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;
    ~Exchange() {
        if (!complete_) {
            connection_.alive = false;
        }
    }

    std::streambuf& out() { return *connection_.toBroker; }
    std::streambuf& in() { return *connection_.fromBroker; }
    void complete() { complete_ = true; }

private:
    bool hasStaleInput(After after) {
        AnswerStream& answers = *connection_.fromBroker;
        return after == After::answer ? answers.holdsUnread() : answers.in_avail() > 0;
    }

    BrokerConnection& connection_;
    bool complete_ = false;
};

/// What a broker is told once before an evaluation.
struct SetUp {
    std::string directory;
    std::optional<oa::oaString> libraryDefinitions;
};

SetUp currentSetUp(ProcessSystem& system) {
    SetUp setUp;
    if (!system.currentDirectory(setUp.directory)) {
        throw std::runtime_error("GetCurrentDirectoryW failed: " + platform::lastSystemErrorText());
    }
    if (oa::oaLibDefList* const list = oa::oaLibDefList::getTopList()) {
        list->getFullPath(setUp.libraryDefinitions.emplace());
    }
    return setUp;
}

void writeSetUp(std::streambuf& out, const SetUp& setUp) {
    writeCommand(out, Command::setWorkingDirectory);
    writeText(out, setUp.directory.c_str());
    if (setUp.libraryDefinitions) {
        writeCommand(out, Command::setLibraryDefinitions);
        writeText(out, *setUp.libraryDefinitions);
    }
}

/// What an evaluation needs of a design, read before the first byte is written: a failure of the
/// database must not leave half a request.
struct Subject {
    explicit Subject(oa::oaDesign& design) {
        const oa::oaNativeNS nativeNames;
        design.getLibName(nativeNames, lib);
        design.getCellName(nativeNames, cell);
        design.getViewName(nativeNames, view);
        design.getParams(params);
    }

    oa::oaString lib;
    oa::oaString cell;
    oa::oaString view;
    oa::oaParamArray params;
};

void writeEvaluate(std::streambuf& out, const Subject& subject) {
    writeCommand(out, Command::evaluate);
    writeText(out, subject.lib);
    writeText(out, subject.cell);
    writeText(out, subject.view);
    writeParamArray(out, subject.params);
}

} // namespace

void checkConnection(BrokerConnection& connection) {
    try {
        Exchange exchange(connection);
        writeCommand(exchange.out(), Command::liveness);
        flush(exchange.out());
        if (readByte(exchange.in()) == livenessAnswer) {
            exchange.complete();
        }
    } catch (...) {
        connection.alive = false;
    }
    if (!connection.alive) {
        failForBroken(connection);
    }
}

bool canEvaluate(BrokerConnection& connection, const oa::oaString& typeName) {
    Exchange exchange(connection);
    writeCommand(exchange.out(), Command::canEvaluate);
    writeText(exchange.out(), typeName);
    flush(exchange.out());
    const bool answer = readByte(exchange.in()) != 0;
    exchange.complete();
    return answer;
}

EvaluationAnswer requestEvaluation(BrokerConnection& connection, oa::oaDesign& design,
                                   ProcessSystem& system) {
    checkConnection(connection);
    // Travels with the evaluation itself: a broker that is not there any more is told nothing, and
    // what could not be told is told the next time.
    std::optional<SetUp> setUp;
    if (connection.setUpNeeded) {
        setUp = currentSetUp(system);
    }
    const Subject subject(design);
    Exchange exchange(connection, Exchange::After::answer);
    if (setUp) {
        writeSetUp(exchange.out(), *setUp);
    }
    writeEvaluate(exchange.out(), subject);
    flush(exchange.out());
    connection.setUpNeeded = connection.setUpNeeded && !setUp;
    EvaluationAnswer answer;
    answer.isEvaluated = readByte(exchange.in()) != 0;
    answer.text = readText(exchange.in());
    exchange.complete();
    return answer;
}

std::optional<std::string> evaluateThroughBroker(BrokerConnection& connection, oa::oaDesign& design,
                                                 ProcessSystem& system) {
    const EvaluationAnswer answer = requestEvaluation(connection, design, system);
    if (!answer.isEvaluated) {
        return answer.text;
    }
    const oa::oaString path = answer.text.c_str();
    oa::PcellFile file(path);
    file.open("r");
    file.read(&design);
    file.close();
    oa::oaFile(path).destroy();
    return std::nullopt;
}

} // namespace pcellBrokerClient
