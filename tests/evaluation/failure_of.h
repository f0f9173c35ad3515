#pragma once

#include <stdexcept>
#include <string>

namespace evaluation {

/// The text of what `action` throws; empty when it throws nothing.
template <class Action>
std::string failureOf(Action action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

} // namespace evaluation
