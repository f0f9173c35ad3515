#include <utility>

#include <ovalis/library.h>

namespace ovalis {

LibPtr& LibPtr::operator=(LibPtr&& other) noexcept {
    LibPtr(std::move(other)).swap(*this);
    return *this;
}

LibPtr::~LibPtr() {
    reset();
}

oa::oaLib* LibPtr::release() noexcept {
    return std::exchange(lib_, nullptr);
}

void LibPtr::reset(oa::oaLib* lib) noexcept {
    oa::oaLib* old = std::exchange(lib_, lib);
    if (old != nullptr && old->isValid()) {
        old->close();
    }
}

void LibPtr::swap(LibPtr& other) noexcept {
    std::swap(lib_, other.lib_);
}

} // namespace ovalis
