#include <utility>

#include <ovalis/core.h>

namespace ovalis {

struct SharedOaLib::Block {
    oa::oaUInt4 owners;
    oa::oaLib* lib;
};

SharedOaLib::SharedOaLib(oa::oaLib* lib) : block_(lib != nullptr ? new Block{1, lib} : nullptr) {}

SharedOaLib::SharedOaLib(const SharedOaLib& other) noexcept : block_(other.block_) {
    if (block_ != nullptr) {
        ++block_->owners;
    }
}

SharedOaLib& SharedOaLib::operator=(const SharedOaLib& other) noexcept {
    SharedOaLib(other).swap(*this);
    return *this;
}

SharedOaLib::~SharedOaLib() {
    release();
}

oa::oaLib* SharedOaLib::operator->() const {
    return &**this;
}

oa::oaLib& SharedOaLib::operator*() const {
    oa::oaLib* lib = get();
    if (lib == nullptr) {
        throw std::runtime_error("Invalid reference in shared oa lib");
    }
    return *lib;
}

oa::oaLib* SharedOaLib::get() const noexcept {
    return block_ != nullptr ? block_->lib : nullptr;
}

void SharedOaLib::swap(SharedOaLib& other) noexcept {
    std::swap(block_, other.block_);
}

// Not allowed to throw: a library that cannot be closed ends the process here.
void SharedOaLib::release() noexcept {
    if (block_ == nullptr || --block_->owners != 0) {
        return;
    }
    block_->lib->close();
    delete block_;
}

bool operator==(const SharedOaLib& a, const SharedOaLib& b) noexcept {
    return a.get() == b.get();
}

bool operator!=(const SharedOaLib& a, const SharedOaLib& b) noexcept {
    return !(a == b);
}

} // namespace ovalis
