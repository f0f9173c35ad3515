#pragma once

#include "base/src/database.h"

#include <functional>
#include <string>
#include <string_view>

namespace OpenAccess_4 {
class oaAppDef;
class oaSession;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// An application-defined value as the session knows it.
struct AppDefRecord {
    std::string name;
    std::string objectClass;
    AppValueKind kind = AppValueKind::Int;
    bool persistent = true;
    std::uint64_t defaultBits = 0;      // as AppValueRecord::bits
    std::string defaultText;            // of the kinds that are texts
    oaObject* (*make)(void*) = nullptr; // the public class is a template of the client
    bool ofDatabase = false;            // no client has asked for it, its default is not known

    oaTypeEnum type() const;
    oaObject* construct(void* where) const { return make(where); }
};

struct SessionRecord {
    using Handle = oaSession;
    static constexpr oaTypeEnum kType = oacSessionType;
};

/// A group definition as the session knows it.
struct GroupDefRecord {
    std::string name;
    GroupDefRules rules;

    oaTypeEnum type() const;
    oaObject* construct(void* where) const;
};

/// What the process knows beyond its open databases. Packages keep objects of their own in tables
/// of it; it lives until the process ends.
class Session final : public Database {
public:
    static Session& instance();

    oaObject* object() const override;
    void requireEditable() const override {}
    bool holdsProperties() const override { return false; }

    Table<GroupDefRecord>& groupDefs() { return groupDefs_; }
    /// The group definition of that name, or null.
    oaGroupDef* findGroupDef(std::string_view name);
    /// Makes a group definition and tells the observers.
    oaGroupDef* addGroupDef(std::string_view name, GroupDefRules rules);

    Table<AppDefRecord>& appDefs() { return appDefs_; }
    /// The definition of values that a database holds, made when the session does not know it.
    oaAppDef* getStoredAppDef(AppValueKind kind, std::string_view objectClass,
                              std::string_view name);
    /// True when a client has defined the value of that name and class as one of another kind, or
    /// as one that does not persist.
    bool disagrees(AppValueKind kind, std::string_view objectClass, std::string_view name);
    oaAppDef* findAppDef(AppValueKind kind, std::string_view objectClass, std::string_view name);

private:
    Session();

    Table<SessionRecord>& sessions_;
    Table<AppDefRecord>& appDefs_;
    Table<GroupDefRecord>& groupDefs_;
};

// Tables of the session. Numbers from kFirstSessionTable on are given to the packages above.
inline constexpr std::uint32_t kSessionTable = kFirstPackageTable;
inline constexpr std::uint32_t kSessionAppDefTable = kFirstPackageTable + 1;
inline constexpr std::uint32_t kSessionGroupDefTable = kFirstPackageTable + 2;
inline constexpr std::uint32_t kFirstDMSessionTable = 16;
inline constexpr std::uint32_t kFirstTechSessionTable = 32;
inline constexpr std::uint32_t kFirstDesignSessionTable = 48;

} // namespace OpenAccess_4::impl
