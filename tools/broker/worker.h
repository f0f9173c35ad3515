#pragma once

#include "platform/channel.h"
#include "tools/broker/answer.h"
#include "tools/broker/request.h"

#include <functional>
#include <string>

namespace broker {

/// What a worker does for its front.
struct WorkerDuties {
    std::function<void(const Request&)> setUp;
    std::function<Answer(const std::string& typeName)> canEvaluate;
    std::function<Answer(const Request&, const std::string& resultPath)> evaluate;
};

/// Serves the front at the other ends of the pipes: reads a token and requests, answers the last of
/// them under the token. When the front is gone, `directory` is removed and the process ended,
/// whatever it is doing at that moment.
[[noreturn]] void serveFront(platform::Channel requests, platform::Channel answers,
                             const std::string& directory, const WorkerDuties& duties);

} // namespace broker
