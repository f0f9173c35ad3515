#include "tools/conformance/dialogue.h"

#include "tools/conformance/request_writer.h"

namespace conformance {

using Clock = std::chrono::steady_clock;

Dialogue::Dialogue(const std::string& program, const std::vector<std::string>& arguments,
                   std::chrono::milliseconds longestAnswer)
    : process(program, arguments, 0, platform::EndsWith::itselfOnly),
      longest(longestAnswer),
      watcher([this] { watch(); }),
      listener([this] { listen(); }) {
    platform::ignoreBrokenChannels();
}

Dialogue::~Dialogue() {
    process.kill();
    {
        const std::lock_guard lock(mutex);
        closing = true;
        changed.notify_all();
    }
    watcher.join();
    listener.join();
}

void Dialogue::watch() {
    std::unique_lock lock(mutex);
    while (!closing) {
        if (!deadline)
            changed.wait(lock);
        else if (Clock::now() < *deadline)
            changed.wait_until(lock, Clock::time_point(*deadline));
        else {
            deadline.reset();
            process.kill();
        }
    }
}

void Dialogue::listen() {
    char bytes[1024];
    while (const std::size_t size = process.talk.read(bytes, sizeof bytes)) {
        const std::lock_guard lock(mutex);
        heard.append(bytes, size);
    }
    const std::lock_guard lock(mutex);
    quiet = true;
    changed.notify_all();
}

bool Dialogue::send(const std::string& bytes) {
    return process.requests.write(bytes.data(), bytes.size());
}

std::optional<char> Dialogue::readByte() {
    {
        const std::lock_guard lock(mutex);
        deadline = Clock::now() + longest;
        changed.notify_all();
    }
    char byte = 0;
    const std::size_t size = process.answers.read(&byte, 1);
    const std::lock_guard lock(mutex);
    deadline.reset();
    return size == 1 ? std::optional(byte) : std::nullopt;
}

std::optional<std::string> Dialogue::readText() {
    std::string text;
    for (;;) {
        const std::optional<char> byte = readByte();
        if (!byte)
            return std::nullopt;
        if (*byte == '\0')
            return text;
        text += *byte;
    }
}

bool Dialogue::isAlive() {
    return send(liveness()) && readByte() == ':';
}

std::optional<bool> Dialogue::canEvaluate(const std::string& pcellType) {
    if (!send(conformance::canEvaluate(pcellType)))
        return std::nullopt;
    const std::optional<char> answer = readByte();
    return answer ? std::optional(*answer != 0) : std::nullopt;
}

std::optional<Evaluated> Dialogue::evaluate(const std::string& request) {
    if (!send(request))
        return std::nullopt;
    const std::optional<char> status = readByte();
    const std::optional<std::string> text = status ? readText() : std::nullopt;
    if (!text)
        return std::nullopt;
    return Evaluated{static_cast<unsigned char>(*status), *text};
}

void Dialogue::leave() {
    process.requests.close();
    process.answers.close();
}

std::optional<platform::ProcessEnd> Dialogue::end(std::chrono::milliseconds time) {
    return process.waitFor(time);
}

std::string Dialogue::said() {
    std::unique_lock lock(mutex);
    if (process.waitFor(std::chrono::milliseconds(0)))
        changed.wait_for(lock, std::chrono::seconds(5), [this] { return quiet; });
    return heard;
}

} // namespace conformance
