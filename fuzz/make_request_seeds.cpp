// Writes the seeds of the requests to a broker: what a host sends.

#include "platform/file.h"
#include "tools/conformance/request_writer.h"

#include <iostream>

namespace {

using namespace conformance;

void write(const std::string& path, const std::string& bytes) {
    platform::File file(path, platform::OpenMode::write);
    file.write(bytes.data(), bytes.size());
    file.close();
}

std::string everyKind() {
    return evaluate("lib", "cell", "layout") + integer(7) + integerParameter("turns", 3) +
           floatParameter("ratio", 0.5F) + textParameter("layer", "M1") +
           applicationParameter("data", "app", std::string("\0\1\2", 3)) +
           doubleParameter("width", 5e-6) + booleanParameter("guard", true) +
           timeParameter("stamp", 1'700'000'000);
}

void writeSeeds(const std::string& directory) {
    const std::string none = evaluate("lib", "cell", "layout") + integer(0);
    write(directory + "/seed_liveness", liveness());
    write(directory + "/seed_question", liveness() + canEvaluate("spiral"));
    write(directory + "/seed_evaluation", everyKind());
    write(directory + "/seed_no_parameters", none);
    write(directory + "/seed_conversation",
          liveness() + canEvaluate("spiral") + liveness() + setWorkingDirectory("/home/user") +
              setLibraryDefinitions("/home/user/lib.defs") + everyKind() + liveness() + none);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: fuzz_make_request_seeds DIRECTORY\n";
        return 2;
    }
    writeSeeds(argv[1]);
}
