#pragma once

#include "tools/broker/request.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace broker {

/// Hands requests from the thread that reads them to the one that serves them. The reading one
/// never waits, so that it sees the end of the pipe while a request is being served.
class RequestQueue {
public:
    static constexpr std::size_t mostRequests = std::size_t{1} << 14;
    static constexpr std::size_t mostBytes = std::size_t{1} << 27;

    /// @throws MalformedRequest  the sender is too far ahead of the answers
    void push(Request request) {
        const std::lock_guard lock(mutex);
        if (requests.size() == mostRequests || request.bytes.size() > mostBytes - waitingBytes)
            throw MalformedRequest("too many requests wait for their answers");
        waitingBytes += request.bytes.size();
        requests.push_back(std::move(request));
        changed.notify_all();
    }

    Request pop() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return !requests.empty(); });
        Request first = std::move(requests.front());
        requests.pop_front();
        waitingBytes -= first.bytes.size();
        return first;
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Request> requests;
    std::size_t waitingBytes = 0;
};

} // namespace broker
