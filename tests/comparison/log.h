#pragma once

#include <string>
#include <vector>

#include "comparison/difference.h"

namespace comparison::test {

using Lines = std::vector<std::string>;

/// Keeps what is told as lines.
class Log : public Listener {
public:
    void differs(const Difference& difference) override {
        lines.push_back(comparison::textOf(difference));
    }
    void cannotRead(const std::string& place, const std::string& reason) override {
        lines.push_back(place + " cannot be read: " + reason);
    }

    Lines lines;
};

} // namespace comparison::test
