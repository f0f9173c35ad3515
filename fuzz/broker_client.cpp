#include "broker_client.h"

#include "broker/config.h"
#include "broker/error_report.h"
#include "broker/requests.h"

#include "support/temporary_directory.h"

#include <cstdlib>
#include <stdexcept>

namespace fuzz {

namespace {

using namespace pcellBrokerClient;

std::string_view textOf(std::span<const std::byte> input) {
    return {reinterpret_cast<const char*>(input.data()), input.size()};
}

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// The answers of a broker. Each byte comes when it is asked for and not before.
class Answers : public pcellBrokerClient::AnswerStream {
public:
    explicit Answers(std::string_view bytes) : rest_(bytes) {}

protected:
    int_type underflow() override {
        return rest_.empty() ? traits_type::eof() : traits_type::to_int_type(rest_.front());
    }
    int_type uflow() override {
        const int_type next = underflow();
        if (!rest_.empty())
            rest_.remove_prefix(1);
        return next;
    }

private:
    std::string_view rest_;
};

/// Takes everything and keeps nothing.
class Requests : public std::streambuf {
protected:
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

/// A design to be evaluated, which no evaluation changes here.
oa::oaDesign& subject() {
    static const ovalis::test::TemporaryDirectory directory;
    static oa::oaDesign& design = []() -> oa::oaDesign& {
        const oa::oaNativeNS native;
        oa::oaDesignInit();
        oa::oaLib::create(oa::oaScalarName(native, "lib"), (directory.str() + "/lib").c_str());
        return *oa::oaDesign::open(
            oa::oaScalarName(native, "lib"), oa::oaScalarName(native, "cell"),
            oa::oaScalarName(native, "layout"), oa::oaViewType::get(oa::oacMaskLayout), 'w');
    }();
    return design;
}

/// What must come of the next evaluation: the path or the message, or one of the two failures.
struct Expected {
    explicit Expected(std::string_view& rest) {
        if (!take(rest, ':')) {
            rest = {};
            text = "broken connection to pcellBroker6 using internal OA libs";
            return;
        }
        const std::size_t end = rest.find('\0', 1);
        if (rest.empty() || end == std::string_view::npos) {
            rest = {};
            text = "std::streambuf::sbumpc failed";
            return;
        }
        isWhole = true;
        isPath = rest.front() != '\0';
        text = rest.substr(1, end - 1);
        rest.remove_prefix(end + 1);
    }

    static bool take(std::string_view& rest, char wanted) {
        if (!rest.starts_with(wanted))
            return false;
        rest.remove_prefix(1);
        return true;
    }

    bool isWhole = false;
    bool isPath = false;
    std::string text;
};

void tryReport(const std::string& text) {
    try {
        require(parseReport(text).message.size() <= text.size());
    } catch (const std::out_of_range&) {
        require(text.find("Error[") != std::string::npos);
    }
}

} // namespace

bool tryBrokerConfig(std::span<const std::byte> input) {
    BrokerConnections connections = makeConnections();
    try {
        const BrokerFile file = parseBrokerFile("home", "path", textOf(input), connections);
        for (const auto& [key, connection] : connections)
            require(connection.exePath.starts_with("home"));
        require(file.probeExe.starts_with("home"));
        for (const std::string& item : splitItems(file.configString))
            require(parseItem(item).typeName == itemTypeName(item));
        return true;
    } catch (const std::runtime_error& error) {
        const std::string text = error.what();
        require(text.starts_with("path: ") ||
                text.starts_with("invalid pcellBroker config string"));
        return false;
    }
}

bool tryBrokerAnswers(std::span<const std::byte> input) {
    ProcessSystem system;
    BrokerConnection connection;
    connection.key = {6, false};
    connection.fromBroker = std::make_unique<Answers>(textOf(input));
    connection.toBroker = std::make_unique<Requests>();
    connection.alive = true;
    for (std::string_view rest = textOf(input); !rest.empty();) {
        const Expected expected(rest);
        std::string text;
        bool isPath = true;
        try {
            const EvaluationAnswer answer = requestEvaluation(connection, subject(), system);
            text = answer.text;
            isPath = answer.isEvaluated;
        } catch (const std::runtime_error& error) {
            text = error.what();
            isPath = false;
        }
        require(text == expected.text && isPath == expected.isPath);
        require(connection.alive == expected.isWhole);
        tryReport(text);
    }
    return connection.alive;
}

} // namespace fuzz
