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

    oaTypeEnum type() const;
    oaObject* construct(void* where) const { return make(where); }
};

struct SessionRecord {
    using Handle = oaSession;
    static constexpr oaTypeEnum kType = oacSessionType;
};

/// What the process knows beyond its open databases. Packages keep objects of their own in tables
/// of it; it lives until the process ends.
class Session final : public Database {
public:
    static Session& instance();

    oaObject* object() const override;
    void requireEditable() const override {}
    bool holdsProperties() const override { return false; }

    Table<AppDefRecord>& appDefs() { return appDefs_; }
    oaAppDef* findAppDef(AppValueKind kind, std::string_view objectClass, std::string_view name);

private:
    Session();

    Table<SessionRecord>& sessions_;
    Table<AppDefRecord>& appDefs_;
};

// Tables of the session. Numbers from kFirstSessionTable on are given to the packages above.
inline constexpr std::uint32_t kSessionTable = kFirstPackageTable;
inline constexpr std::uint32_t kSessionAppDefTable = kFirstPackageTable + 1;
inline constexpr std::uint32_t kFirstDMSessionTable = 16;
inline constexpr std::uint32_t kFirstTechSessionTable = 32;
inline constexpr std::uint32_t kFirstDesignSessionTable = 48;

} // namespace OpenAccess_4::impl
