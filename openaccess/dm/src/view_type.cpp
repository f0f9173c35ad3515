#include "oa/oaViewType.h"

#include "base/src/source.h"
#include "dm/src/dm_session.h"
#include "oa/oaDMException.h"

namespace OpenAccess_4 {

using namespace impl;

oaViewType* oaViewType::create(const oaString& name) {
    if (name.isEmpty())
        throw oaDMError(oacInvalidDMName, "", "view type");
    if (find(name))
        throw oaDMError(oacViewTypeExists, static_cast<const oaChar*>(name));
    return DMSession::instance().addViewType(static_cast<const oaChar*>(name));
}

oaViewType* oaViewType::find(const oaString& name) {
    return DMSession::instance().findViewType(static_cast<const oaChar*>(name));
}

oaViewType* oaViewType::get(oaReservedViewType type) {
    return find(type.getName());
}

oaCollection<oaViewType, oaSession> oaViewType::getViewTypes() {
    return collectionOf<oaCollection<oaViewType, oaSession>>({&DMSession::instance().viewTypes()});
}

void oaViewType::getName(oaString& name) const {
    name = recordOf<ViewTypeRecord>(this).name.c_str();
}

} // namespace OpenAccess_4
