// The other process of the platform tests: does what its first argument says to the file that its
// second names. Exit status 0: done, 1: refused, 3: ended without cleaning up.

#include "platform/atomic_file.h"
#include "platform/exclusive_file.h"
#include "platform/file_lock.h"
#include "platform/pipe.h"
#include "platform/process.h"
#include "platform/text.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

namespace {

constexpr int died = 3;

int lock(const std::string& path, platform::LockKind kind) {
    return platform::FileLock::tryAcquire(path, kind) ? 0 : 1;
}

int lockAndDie(const std::string& path) {
    const auto lock = platform::FileLock::tryAcquire(path, platform::LockKind::exclusive);
    std::_Exit(lock ? died : 1);
}

int writeAndDie(const std::string& path) {
    platform::AtomicFile file(path);
    file.write("half", 4);
    std::_Exit(died);
}

[[noreturn]] void tellProcessAndRunOn() {
    std::cout << platform::currentProcessId() << std::endl;
    for (;;)
        std::this_thread::sleep_for(std::chrono::seconds(1));
}

// Sends back what comes, until nothing comes any more.
int echoPipe(const std::string& input, const std::string& output) {
    platform::PipeEnd reading = platform::pipeEndFromText(input);
    platform::PipeEnd writing = platform::pipeEndFromText(output);
    auto readingNumber = platform::openDescriptor(reading, platform::PipeDirection::read);
    auto writingNumber = platform::openDescriptor(writing, platform::PipeDirection::write);
    platform::PipeStream in(platform::openStream(readingNumber, platform::PipeDirection::read));
    platform::PipeStream out(platform::openStream(writingNumber, platform::PipeDirection::write));
    char bytes[100];
    while (const std::size_t count = in.read(bytes, sizeof bytes)) {
        if (!out.write(bytes, count))
            return 1;
    }
    return 0;
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    const std::string action = arguments.at(1);
    const std::string path = arguments.at(2);
    if (action == "lock-shared")
        return lock(path, platform::LockKind::shared);
    if (action == "lock-exclusive")
        return lock(path, platform::LockKind::exclusive);
    if (action == "lock-and-die")
        return lockAndDie(path);
    if (action == "write-and-die")
        return writeAndDie(path);
    if (action == "create")
        return platform::createExclusively(path, "child") ? 0 : 1;
    if (action == "print") {
        std::cout << path << '\n';
        return 0;
    }
    if (action == "exit")
        return std::stoi(path);
    if (action == "crash")
        __builtin_trap();
    if (action == "echo-pipe")
        return echoPipe(path, arguments.at(3));
    if (action == "run-on")
        tellProcessAndRunOn();
    if (action == "tell-process") {
        std::cout << platform::currentProcessId() << '\n';
        return 0;
    }
    return 2;
}
