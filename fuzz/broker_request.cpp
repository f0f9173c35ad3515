#include "broker_request.h"

#include "tools/broker/request.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace fuzz {

namespace {

/// What came of an input.
struct Outcome {
    std::vector<broker::Request> requests;
    std::string complaint;

    bool operator==(const Outcome& other) const {
        if (complaint != other.complaint || requests.size() != other.requests.size())
            return false;
        // Numbers that are none differ from themselves; the bytes do not.
        for (std::size_t place = 0; place < requests.size(); ++place) {
            if (requests[place].bytes != other.requests[place].bytes)
                return false;
        }
        return true;
    }
};

void require(bool holds) {
    if (!holds)
        std::abort();
}

Outcome readInPieces(std::span<const std::byte> input, std::size_t piece) {
    const broker::RequestLimits limits = {std::size_t{1} << 12, 64, std::size_t{1} << 16};
    broker::RequestReader reader(
        [=, position = std::size_t{0}](char* data, std::size_t most) mutable {
            const std::size_t taken = std::min({most, piece, input.size() - position});
            if (taken != 0)
                std::memcpy(data, input.data() + position, taken);
            position += taken;
            return taken;
        },
        limits);
    Outcome outcome;
    try {
        while (std::optional<broker::Request> request = reader.next()) {
            require(request->bytes.size() <= limits.request);
            require(request->parameters.size() <= limits.parameters);
            outcome.requests.push_back(std::move(*request));
        }
    } catch (const broker::MalformedRequest& error) {
        outcome.complaint = error.what();
    }
    return outcome;
}

} // namespace

bool tryBrokerRequests(std::span<const std::byte> input) {
    const Outcome whole = readInPieces(input, input.size() + 1);
    require(whole == readInPieces(input, 1));
    require(whole == readInPieces(input, 7));
    std::string taken;
    for (const broker::Request& request : whole.requests)
        taken += request.bytes;
    require(taken.size() <= input.size() &&
            (taken.empty() || std::memcmp(taken.data(), input.data(), taken.size()) == 0));
    require(whole.complaint.empty() == (taken.size() == input.size()));
    return whole.complaint.empty();
}

} // namespace fuzz
