#pragma once

#include <ovalis/core.h>

namespace evaluation {

/// Runs a body that calls the database itself, turning its exceptions into `ovalis::Exception`.
template <class Body>
auto calling(Body&& body) -> decltype(body()) {
    try {
        return body();
    } catch (const oa::oaException& error) {
        throw ovalis::Exception(error);
    } catch (const oaCommon::IException& error) {
        throw ovalis::Exception(error);
    }
}

/// An open design that is closed at scope end, unsaved changes and all.
class OpenDesign {
public:
    /// Takes over one opening; null is allowed.
    explicit OpenDesign(oa::oaDesign* design) : design_(design) {}
    OpenDesign(OpenDesign&& other) noexcept : design_(other.design_) { other.design_ = nullptr; }
    OpenDesign(const OpenDesign&) = delete;
    OpenDesign& operator=(const OpenDesign&) = delete;
    ~OpenDesign();

    oa::oaDesign& operator*() const { return *design_; }
    oa::oaDesign* operator->() const { return design_; }
    explicit operator bool() const { return design_ != nullptr; }

private:
    oa::oaDesign* design_;
};

} // namespace evaluation
