#include <utility>

#include <ovalis/diagnostics.h>

#include "core/boundary.h"
#include "diagnostics/property_line.h"

namespace ovalis {

namespace {

void endUse(oa::oaDesign& design) {
    const oa::oaChar mode = design.getMode();
    if (design.isModified() && (mode == 'w' || mode == 'a')) {
        design.save();
    }
    design.close();
}

oa::oaDesign* required(oa::oaDesign* design) {
    if (design == nullptr) {
        throw std::runtime_error("Invalid indirection to design");
    }
    return design;
}

} // namespace

OaDesignSAC::OaDesignSAC(oa::oaDesign* design)
    : design_(design), messages_(std::make_shared<msgCollector>()) {}

OaDesignSAC::OaDesignSAC(OaDesignSAC&& other) noexcept
    : design_(std::exchange(other.design_, nullptr)), messages_(std::move(other.messages_)) {}

OaDesignSAC& OaDesignSAC::operator=(OaDesignSAC&& other) noexcept {
    OaDesignSAC taken(std::move(other));
    std::swap(design_, taken.design_);
    messages_.swap(taken.messages_);
    return *this;
}

// A design that cannot be saved must not be lost in silence, so its failure leaves a destructor,
// which ends the process.
OaDesignSAC::~OaDesignSAC() {
    if (design_ != nullptr && design_->isValid()) {
        endUse(*design_);
    }
}

oa::oaDesign& OaDesignSAC::operator*() const {
    return *required(design_);
}

oa::oaDesign* OaDesignSAC::operator->() const {
    return required(design_);
}

void OaDesignSAC::recordProperties(msgCollector::OriginType origin, const oa::oaString& key,
                                   oa::oaIter<oa::oaProp> properties) {
    if (!messages_) {
        return;
    }
    atBoundary([&] {
        while (const oa::oaProp* property = properties.getNext()) {
            messages_->addMessage(origin, fromOa(key), lineOf(*property));
        }
    });
}

} // namespace ovalis
