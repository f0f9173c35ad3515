// Goal: a brokered evaluation whose answer is a message, so that no file is read, against the same
// bytes in the same two round trips on bare pipes. Runs on one core: the other end is a process.

#include "broker_home.h"
#include "clock.h"
#include "design_library.h"
#include "last_error.h"
#include "scratch_directory.h"
#include "workloads.h"

#include "platform/pipe.h"
#include "platform/started_process.h"

#include <ovalis/core.h>

#include <optional>
#include <stdexcept>

namespace {

using platform::PipeDirection;

constexpr int kTimes = 1'000;
constexpr int kParams = 20;

std::string nameOfParam(int number) {
    return "parameter" + std::to_string(10 + number);
}

oa::oaParamArray makeParams() {
    oa::oaParamArray params;
    for (int i = 0; i < kParams; ++i)
        params.append(oa::oaParam(nameOfParam(i).c_str(), oa::oaDouble(i) + 0.5));
    return params;
}

/// An evaluation as it goes over the pipes.
std::string requestBytes() {
    std::string bytes("\4bench\0inductor\0layout\0", 23);
    bytes.append("\x14\0\0\0", 4);
    for (int i = 0; i < kParams; ++i)
        bytes += nameOfParam(i) + std::string(1, '\0') + '\4' + std::string(sizeof(double), '?');
    return bytes;
}

/// The partner without the client.
class RawPipes {
public:
    RawPipes() {
        platform::PipeEnd partnersRequests;
        platform::PipeEnd partnersAnswers;
        platform::PipeEnd requests;
        platform::PipeEnd answers;
        platform::createPipe(partnersRequests, requests);
        platform::createPipe(answers, partnersAnswers);
        const platform::PipeEnd input = platform::inheritableCopy(partnersRequests);
        const platform::PipeEnd output = platform::inheritableCopy(partnersAnswers);
        platform::StartedProcess partner;
        if (!platform::startProcess(
                {bench::programPath("bench_pipe_partner"),
                 {"partner", platform::pipeEndText(input), platform::pipeEndText(output)},
                 {&input, &output}},
                partner))
            throw std::runtime_error("the partner cannot be started");
        requests_.emplace(open(requests, PipeDirection::write));
        answers_.emplace(open(answers, PipeDirection::read));
    }

    std::size_t exchange(const std::string& request) {
        requests_->write(request.data(), request.size());
        return answers_->read(buffer_, sizeof buffer_);
    }

private:
    static std::FILE* open(platform::PipeEnd& end, PipeDirection direction) {
        platform::StreamDescriptor descriptor = platform::openDescriptor(end, direction);
        return platform::openStream(descriptor, direction);
    }

    std::optional<platform::PipeStream> requests_;
    std::optional<platform::PipeStream> answers_;
    char buffer_[4096];
};

std::optional<bench::DesignLibrary> library;
std::optional<bench::LastError> lastError;
std::optional<RawPipes> pipes;
oa::oaDesign* submaster = nullptr;
oa::IPcell* evaluator = nullptr;

/// A figure is worth nothing when the work behind it was not done.
void require(bool isDone) {
    if (!isDone)
        throw std::runtime_error("the partner has not answered as it should");
}

double brokeredEvaluation() {
    evaluator->onEval(submaster, nullptr);
    const double start = bench::now();
    for (int i = 0; i < kTimes; ++i)
        evaluator->onEval(submaster, nullptr);
    const double seconds = bench::now() - start;
    require(lastError->message == std::to_string(1'000'000 + requestBytes().size()));
    return seconds;
}

double rawPipe() {
    const std::string liveness(1, '\0');
    const std::string request = requestBytes();
    std::size_t received = pipes->exchange(liveness);
    const double start = bench::now();
    for (int i = 0; i < kTimes; ++i)
        received = pipes->exchange(liveness) + pipes->exchange(request);
    const double seconds = bench::now() - start;
    require(received == 27);
    return seconds;
}

/// A submaster with the parameters. Its own evaluator fails, which leaves it empty.
oa::oaDesign* makeSubmaster() {
    oa::oaDesign* master = library->create("inductor");
    oa::oaParamArray defaults = makeParams();
    oa::oaParamArray given;
    given.append(defaults[0]);
    defaults[0].setDoubleVal(1);
    master->defineSuperMaster(oa::oaPcellLink::getPcellDef("PSNPcell"), defaults);
    const oa::oaNativeNS ns;
    oa::oaDesign::open(oa::oaScalarName(ns, "bench"), oa::oaScalarName(ns, "inductor"),
                       oa::oaScalarName(ns, "layout"), given);
    oa::oaIter<oa::oaDesign> made(master->getSubMasters());
    return made.getNext();
}

} // namespace

int main(int argc, char** argv) {
    const bench::ScratchDirectory directory;
    bench::configureBroker(directory / ".", "bench_pipe_partner", "failing:X");
    ovalis::initOa();
    library.emplace(directory / "library");
    submaster = makeSubmaster();
    evaluator = oa::oaPcellLink::find("failing")->getIPcell();
    lastError.emplace();
    pipes.emplace();
    bench::runInTurns({{"brokeredEvaluation", brokeredEvaluation}, {"rawPipe", rawPipe}}, argc,
                      argv);
    submaster->getSuperMaster()->purge();
    lastError.reset();
    library.reset();
}
