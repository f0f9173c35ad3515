#include "library/load_warnings.h"

#include <algorithm>

namespace ovalis {

myLibDefListObserver::myLibDefListObserver() : oaVersionedObserver(1, true) {}

myLibDefListObserver::~myLibDefListObserver() = default;

oa::oaBoolean myLibDefListObserver::onLoadWarnings(oa::oaLibDefList* list,
                                                   const oa::oaString& message,
                                                   oa::oaLibDefListWarningTypeEnum warningType) {
    std::string text;
    if (list == nullptr) {
        text = "Error trying to open library definition file: ";
    } else {
        oa::oaString path;
        list->getPath(path);
        text = warningType == oa::oacSyntaxErrorLibDefListWarning
                   ? "Syntax error in library definition file "
                   : "Load warning from library definition file ";
        text += fromOa(path) + ": ";
    }
    messages_.push_back(text + fromOa(message));
    lists_.push_back(list);
    return true;
}

bool myLibDefListObserver::lacksList() const {
    return std::find(lists_.begin(), lists_.end(), nullptr) != lists_.end();
}

} // namespace ovalis
