#include "support/run_program.h"

#include "platform/child_process.h"
#include "support/files.h"
#include "support/temporary_directory.h"

namespace ovalis::test {

ProgramResult runProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments) {
    const TemporaryDirectory directory;
    const platform::ChildStreams streams{directory.str() + "/output", directory.str() + "/errors"};
    platform::ChildProcess child(utf8(program), arguments, streams);
    const int exitCode = child.wait();
    return {exitCode, readText(streams.output), readText(streams.errors)};
}

} // namespace ovalis::test
