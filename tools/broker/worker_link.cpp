#include "tools/broker/worker_link.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <optional>
#include <thread>

namespace broker {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto momentToEnd = std::chrono::seconds(2);
constexpr auto memoryPeriod = std::chrono::milliseconds(50);

std::string durationText(std::chrono::milliseconds time) {
    if (time.count() % 1000 == 0)
        return std::to_string(time.count() / 1000) + " s";
    return std::to_string(time.count()) + " ms";
}

/// Reads what a worker answers, one byte after the other from a buffer.
class AnswerReader {
public:
    explicit AnswerReader(platform::Channel& answers) : channel(answers) {}

    std::optional<char> byte() {
        if (next == filled) {
            next = 0;
            filled = channel.read(buffer, sizeof buffer);
        }
        if (next == filled)
            return std::nullopt;
        return buffer[next++];
    }

    /// A terminated text; nothing when the worker is gone or the text is too long.
    std::optional<std::string> text(std::size_t longest) {
        std::string result;
        for (;;) {
            const std::optional<char> c = byte();
            if (!c || result.size() > longest)
                return std::nullopt;
            if (*c == '\0')
                return result;
            result += *c;
        }
    }

    /// True when more has arrived than was asked for.
    bool hasMore() const { return next != filled; }

private:
    platform::Channel& channel;
    char buffer[4096];
    std::size_t next = 0;
    std::size_t filled = 0;
};

} // namespace

/// What the threads of one worker share. The thread that writes and reads owns the two ends, as it
/// may be held up in them for as long as the worker lives.
struct WorkerLink::Conversation {
    enum class State { idle, asked, answered, lost, nonsense };

    std::mutex mutex;
    std::condition_variable changed;
    State state = State::idle;
    bool closing = false;
    std::string token;
    std::string requests;
    Answer answer;

    platform::Channel toWorker;
    platform::Channel fromWorker;

    void run();
    State exchange(AnswerReader& reader, const std::string& bytes, const std::string& expected,
                   Answer& result);
};

WorkerLink::Conversation::State WorkerLink::Conversation::exchange(AnswerReader& reader,
                                                                   const std::string& bytes,
                                                                   const std::string& expected,
                                                                   Answer& result) {
    if (!toWorker.write(bytes.data(), bytes.size()))
        return State::lost;
    for (const char c : expected + '\0') {
        const std::optional<char> read = reader.byte();
        if (!read)
            return State::lost;
        if (*read != c)
            return State::nonsense;
    }
    const std::optional<char> status = reader.byte();
    if (!status)
        return State::lost;
    const std::optional<std::string> text = reader.text(longestAnswer);
    if (!text || (*status != 0 && *status != 1) || reader.hasMore())
        return State::nonsense;
    result = {*status == 1, *text};
    return State::answered;
}

void WorkerLink::Conversation::run() {
    AnswerReader reader(fromWorker);
    std::unique_lock lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return closing || state == State::asked; });
        if (closing)
            return;
        const std::string bytes = token + '\0' + requests;
        const std::string expected = token;
        lock.unlock();
        Answer result;
        const State outcome = exchange(reader, bytes, expected, result);
        lock.lock();
        answer = std::move(result);
        state = outcome;
        changed.notify_all();
        if (outcome != State::answered)
            return;
    }
}

WorkerLink::WorkerLink(const std::string& program, const std::string& directory,
                       const Settings& workerSettings)
    : settings(workerSettings),
      talk(std::make_shared<Talk>()),
      conversation(std::make_shared<Conversation>()),
      process(program, {directory}, workerSettings.memory) {
    conversation->toWorker = std::move(process.requests);
    conversation->fromWorker = std::move(process.answers);
    auto said = std::make_shared<platform::Channel>(std::move(process.talk));
    // Not joined: what the worker has started may hold the other ends open after its end.
    std::thread([shared = talk, said] { shared->listen(*said); }).detach();
    std::thread([shared = conversation] { shared->run(); }).detach();
}

WorkerLink::~WorkerLink() {
    end();
    const std::lock_guard lock(conversation->mutex);
    conversation->closing = true;
    conversation->changed.notify_all();
}

Answer WorkerLink::ask(const std::string& token, const std::string& requests) {
    {
        const std::lock_guard lock(conversation->mutex);
        conversation->token = token;
        conversation->requests = requests;
        conversation->state = Conversation::State::asked;
        conversation->changed.notify_all();
    }
    Answer answer;
    const std::string what = watch(token, answer);
    return what.empty() ? answer : failure(what);
}

// Empty for an answer, otherwise what went wrong.
std::string WorkerLink::watch(const std::string& token, Answer& answer) {
    using State = Conversation::State;
    const auto last = Clock::now() + settings.deadline;
    bool gone = false;
    std::unique_lock lock(conversation->mutex);
    while (
        !conversation->changed.wait_until(lock, std::min(last, Clock::now() + memoryPeriod),
                                          [this] { return conversation->state != State::asked; })) {
        lock.unlock();
        if (Clock::now() >= last)
            return "no answer within " + durationText(settings.deadline);
        const std::string greed = tooMuchMemory();
        if (!greed.empty())
            return greed;
        if (gone)
            return lostText();
        // Looked at beside the pipes, which what the worker started may hold open. An answer that
        // is still in them has until the next look.
        gone = process.waitFor(std::chrono::milliseconds(0)).has_value();
        lock.lock();
    }
    const State state = conversation->state;
    if (state == State::answered) {
        conversation->state = State::idle;
        answer = std::move(conversation->answer);
        return {};
    }
    lock.unlock();
    return state == State::lost ? lostText() : "the answer to " + token + " was none";
}

std::string WorkerLink::tooMuchMemory() const {
    if (settings.memory == 0 || process.memoryInUse() <= settings.memory)
        return {};
    return "more than " + std::to_string(settings.memory >> 20) + " MB of memory";
}

std::string WorkerLink::lostText() {
    const std::optional<platform::ProcessEnd> ended = process.waitFor(momentToEnd);
    return ended ? "ended with " + ended->text() : "closed its pipes";
}

Answer WorkerLink::failure(const std::string& what) {
    end();
    const std::string said = talk->lastLines();
    return {false, "the evaluating process failed: " + what +
                       (said.empty() ? "" : "; it said last:\n" + said)};
}

bool WorkerLink::isUsable() noexcept {
    return usable && !process.waitFor(std::chrono::milliseconds(0));
}

void WorkerLink::end() noexcept {
    usable = false;
    process.kill();
    process.waitFor(momentToEnd);
}

} // namespace broker
