#pragma once

#include "tools/broker/request.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace broker {

/// Hands requests from the thread that reads them to the one that serves them. Few are held: a
/// sender that does not wait for answers is not read any further.
class RequestQueue {
public:
    void push(Request request) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return requests.size() < most; });
        requests.push_back(std::move(request));
        changed.notify_all();
    }

    Request pop() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return !requests.empty(); });
        Request first = std::move(requests.front());
        requests.pop_front();
        changed.notify_all();
        return first;
    }

private:
    static constexpr std::size_t most = 4;

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Request> requests;
};

} // namespace broker
