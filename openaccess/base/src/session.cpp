#include "base/src/session.h"

#include "base/src/source.h"
#include "oa/oaAppDef.h"
#include "oa/oaSession.h"

#include <array>

namespace OpenAccess_4 {

namespace impl {

oaTypeEnum typeOf(AppValueKind kind) {
    static constexpr std::array<oaTypeEnum, std::size_t(AppValueKind::Count)> types = {
        oacIntAppDefType,    oacFloatAppDefType,   oacStringAppDefType,
        oacDataAppDefType,   oacVarDataAppDefType, oacTimeAppDefType,
        oacDoubleAppDefType, oacBooleanAppDefType, oacVoidPointerAppDefType};
    return types[std::size_t(kind)];
}

oaTypeEnum AppDefRecord::type() const {
    return typeOf(kind);
}

Session::Session()
    : sessions_(addTable<SessionRecord>(kSessionTable)),
      appDefs_(addTable<AppDefRecord>(kSessionAppDefTable)),
      groupDefs_(addTable<GroupDefRecord>(kSessionGroupDefTable)) {
    sessions_.add({});
}

Session& Session::instance() {
    // Never destroyed: clients may hold its objects until the process ends.
    static Session& session = *new Session;
    return session;
}

oaObject* Session::object() const {
    return sessions_.handle(0);
}

oaAppDef* Session::findAppDef(AppValueKind kind, std::string_view objectClass,
                              std::string_view name) {
    for (std::uint32_t slot = 0; slot < appDefs_.slots(); ++slot) {
        const AppDefRecord& def = appDefs_[slot];
        if (def.kind == kind && def.objectClass == objectClass && def.name == name)
            return static_cast<oaAppDef*>(appDefs_.handle(slot));
    }
    return nullptr;
}

bool Session::disagrees(AppValueKind kind, std::string_view objectClass, std::string_view name) {
    bool found = false;
    appDefs_.forEach([&](std::uint32_t, const AppDefRecord& def) {
        found = found || (!def.ofDatabase && def.objectClass == objectClass && def.name == name &&
                          (def.kind != kind || !def.persistent));
    });
    return found;
}

} // namespace impl

using namespace impl;

oaSession* oaSession::get() {
    return static_cast<oaSession*>(Session::instance().object());
}

oaCollection<oaAppDef, oaSession> oaSession::getAppDefs() const {
    return collectionOf<oaCollection<oaAppDef, oaSession>>({&Session::instance().appDefs()});
}

oaCollection<oaGroupDef, oaSession> oaSession::getGroupDefs() const {
    return collectionOf<oaCollection<oaGroupDef, oaSession>>({&Session::instance().groupDefs()});
}

oaSession* oaSessionObject::getSession() const {
    return oaSession::get();
}

} // namespace OpenAccess_4
