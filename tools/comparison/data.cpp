#include "comparison/data.h"

#include "comparison/attachments.h"
#include "comparison/opened.h"

namespace comparison {
namespace {

/// An object without data has none of them.
Fields fieldsOf(const oa::oaDMContainer* container) {
    Fields fields;
    if (container != nullptr && oa::oaDMData::exists(container)) {
        const Opened<oa::oaDMData> data(oa::oaDMData::open(container, 'r'));
        addAttachments(fields, *data);
    }
    return fields;
}

} // namespace

void compareData(const Place& place, const std::string& object, const oa::oaDMContainer* was,
                 const oa::oaDMContainer* is) {
    guarded(place, [&] { compareFields(place, object, fieldsOf(was), fieldsOf(is)); });
}

} // namespace comparison
