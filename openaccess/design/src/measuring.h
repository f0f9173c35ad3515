#pragma once

#include <utility>

namespace OpenAccess_4::impl {

/// Sets a flag for a scope.
class Measuring {
public:
    explicit Measuring(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    Measuring(const Measuring&) = delete;
    Measuring& operator=(const Measuring&) = delete;
    ~Measuring() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};

} // namespace OpenAccess_4::impl
