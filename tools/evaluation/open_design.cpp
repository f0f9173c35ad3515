#include "evaluation/open_design.h"

namespace evaluation {

OpenDesign::~OpenDesign() {
    try {
        if (design_ != nullptr && design_->isValid())
            design_->close();
    } catch (const oa::oaException&) {
        // The design stays open until its library closes, which is next.
    }
}

} // namespace evaluation
