#pragma once

#include "dm/src/definition_list.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_set>

namespace OpenAccess_4::impl {

/// Tells for many directories which are not there, and looks into each parent directory once.
class LibraryFinder {
public:
    /// False when the directory that `list` names so is not there; true when it is worth a look.
    bool mayExist(const DefinitionList& list, std::string_view path);

private:
    struct Listing {
        bool known = false; // false: the directory does not tell what it holds
        std::unordered_set<std::string> names;
    };

    const Listing& listing(const DefinitionList& list, std::string_view parent);

    std::map<std::string, Listing> listings_;
    // Neighbouring definitions mostly have one parent.
    const DefinitionList* lastList_ = nullptr;
    std::string lastParent_;
    const Listing* last_ = nullptr;
    std::string scratch_;
};

} // namespace OpenAccess_4::impl
