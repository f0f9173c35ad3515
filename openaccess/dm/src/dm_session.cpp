#include "dm/src/dm_session.h"

#include "dm/src/library.h"
#include "oa/oaDMEnums.h"
#include "oa/oaLibObserver.h"
#include "oa/oaViewTypeObserver.h"

#include <algorithm>

namespace OpenAccess_4::impl {

DMSession& DMSession::instance() {
    // Never destroyed: clients may hold its objects until the process ends.
    static DMSession& session = *new DMSession;
    return session;
}

DMSession::DMSession()
    : viewTypes_(Session::instance().addTable<ViewTypeRecord>(kFirstDMSessionTable)) {
    for (int type = oacMaskLayout; type <= oacCDLText; ++type) {
        const oaReservedViewType reserved(static_cast<oaReservedViewTypeEnum>(type));
        viewTypes_.add({static_cast<const oaChar*>(reserved.getName())});
    }
}

oaViewType* DMSession::findViewType(const std::string& name) {
    for (std::uint32_t slot = 0; slot < viewTypes_.slots(); ++slot)
        if (viewTypes_[slot].name == name)
            return static_cast<oaViewType*>(viewTypes_.handle(slot));
    return nullptr;
}

oaViewType* DMSession::addViewType(const std::string& name) {
    auto* added = static_cast<oaViewType*>(viewTypes_.handle(viewTypes_.add({name})));
    oaVersionedObserver<oaViewType>::notifyPostCreateObservers(added);
    return added;
}

oaViewType* DMSession::viewType(const std::string& name) {
    oaViewType* found = findViewType(name);
    return found ? found : addViewType(name);
}

Library* DMSession::findLibrary(const std::string& name) const {
    const auto found = librariesByName_.find(name);
    return found == librariesByName_.end() ? nullptr : found->second;
}

Library& DMSession::add(std::unique_ptr<Library> library) {
    librariesByName_[library->name()] = library.get();
    return *libraries_.emplace_back(std::move(library));
}

void DMSession::close(Library& library) {
    oaVersionedObserver<oaLib>::notifyPreCloseObservers(library.handle());
    for (auto hook = closeHooks_.rbegin(); hook != closeHooks_.rend(); ++hook)
        (*hook)(library.handle());
    librariesByName_.erase(library.name());
    std::erase_if(libraries_, [&](const auto& open) { return open.get() == &library; });
}

} // namespace OpenAccess_4::impl
