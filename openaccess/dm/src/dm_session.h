#pragma once

#include "base/src/session.h"
#include "oa/oaViewType.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace OpenAccess_4 {
class oaLib;
}

namespace OpenAccess_4::impl {

class Library;

struct ViewTypeRecord {
    using Handle = oaViewType;
    static constexpr oaTypeEnum kType = oacViewTypeType;

    std::string name;
};

/// What the library package knows once per process: the open libraries and the view types.
class DMSession {
public:
    using CloseHook = std::function<void(oaLib*)>;

    static DMSession& instance();

    Table<ViewTypeRecord>& viewTypes() { return viewTypes_; }

    /// Null when there is none of that name.
    oaViewType* findViewType(const std::string& name);
    oaViewType* addViewType(const std::string& name);
    oaViewType* viewType(const std::string& name);

    const std::vector<std::unique_ptr<Library>>& libraries() const { return libraries_; }

    /// Null when no library of that name is open.
    Library* findLibrary(const std::string& name) const;
    Library& add(std::unique_ptr<Library> library);

    /// Tells the hooks, the latest first, and destroys the library.
    void close(Library& library);
    void addCloseHook(CloseHook hook) { closeHooks_.push_back(std::move(hook)); }

private:
    DMSession();

    Table<ViewTypeRecord>& viewTypes_;
    std::vector<std::unique_ptr<Library>> libraries_;
    std::unordered_map<std::string, Library*> librariesByName_;
    std::vector<CloseHook> closeHooks_;
};

} // namespace OpenAccess_4::impl
