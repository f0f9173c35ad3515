#pragma once

#include "base/src/database.h"
#include "base/src/flat_map.h"
#include "dm/src/definition_text.h"
#include "oa/oaLibDefList.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace OpenAccess_4::impl {

class DefinitionList;

/// A member of a library definition list.
struct DefinitionRecord {
    bool isReference = false;
    bool soft = false;
    bool unresolved = false; // names a variable that is not set
    std::uint32_t line = 0;  // 0 for what is not read from the file
    std::string_view name;
    std::string_view path; // with the values of variables
    std::uint32_t settings = kNone;
    std::uint32_t sameName = kNone; // the definition of the same name before it

    oaTypeEnum type() const { return isReference ? oacLibDefListRefType : oacLibDefType; }
    oaObject* construct(void* where) const;
};

/// How a library is opened, and what else is assigned to it.
struct LibrarySettings {
    std::string_view writePath;
    oaLibModeEnum mode = oacSharedLibMode;
    std::vector<std::pair<std::string_view, std::string_view>> attributes;

    void assign(std::string_view attribute, std::string_view value);
    void unassign(std::string_view attribute);
};

/// The fields of a statement about a library that may be defined elsewhere.
struct Assignment {
    std::string_view library;
    std::string_view attribute;
    std::string_view value;       // of paths with the values of variables
    std::uint32_t member = kNone; // the definition in this list, which may be undone since
};

/// A statement of the file, or lines without one.
struct DefinitionStatement {
    DefinitionKind kind = DefinitionKind::Nothing;
    std::uint32_t line = 0;
    std::uint32_t index = kNone; // of the member, or of the assignment
    std::string_view text;
};

struct DefinitionWarning {
    oaLibDefListWarningTypeEnum type;
    std::uint32_t line;
    std::string text;
};

/// The name behind ASSIGN that stands for every library, and what can be assigned to it.
inline constexpr std::string_view kAllLibraries = "AllLibs";
inline constexpr std::string_view kTemporaryRoot = "TmpRootDir";

bool isWritePathAttribute(std::string_view attribute);
bool isModeAttribute(std::string_view attribute);
/// True for two names of one attribute.
bool sameAttribute(std::string_view first, std::string_view second);
/// The mode of that name; shared when there is none, and `known` tells.
oaLibModeEnum modeNamed(std::string_view name, bool& known);

/// What one library definition file says. It is replaced as a whole when the file is read again;
/// its objects become invalid then.
class DefinitionContent final : public Database {
public:
    DefinitionContent(DefinitionList& list, std::string text);

    oaObject* object() const override;
    void requireEditable() const override {}
    bool holdsProperties() const override { return false; }

    DefinitionList& list() const { return list_; }
    const std::vector<DefinitionWarning>& warnings() const { return warnings_; }
    bool hasSyntaxErrors() const { return syntaxErrors_; }
    const std::vector<DefinitionStatement>& statements() const { return statements_; }
    const Assignment& assignment(std::uint32_t index) const { return assignments_[index]; }
    const LibrarySettings* settingsOf(const DefinitionRecord& record) const;

    Table<DefinitionRecord>& members() { return members_; }
    SourcePtr memberSource();
    /// The last definition of that name; kNone without one.
    std::uint32_t findDefinition(std::string_view name);

    /// Add a member in front of the one in slot `following`, at the end for kNone.
    oaLibDefListMem* addDefinition(const std::string& name, const std::string& path,
                                   std::uint32_t following);
    oaLibDefListMem* addReference(const std::string& path, std::uint32_t following);
    /// Adds a statement behind those of the definition.
    void addAssignment(std::uint32_t member, const std::string& attribute,
                       const std::string& value);
    void setPath(std::uint32_t member, const std::string& path);
    /// Gives an attribute another value where one is assigned, else as addAssignment().
    void setAssignment(std::uint32_t member, const std::string& attribute,
                       const std::string& value);
    void removeAssignments(std::uint32_t member, std::string_view attribute);
    void destroy(std::uint32_t member);
    /// Moves a member behind another one, in front of all others for kNone.
    void moveBehind(std::uint32_t member, std::uint32_t other);
    void moveToEnd(std::uint32_t member);

    /// The file as it is now.
    std::string text() const;

private:
    using Statements = std::vector<DefinitionStatement>;

    void parse();
    void take(const DefinitionLine& line, DefinitionStatement& statement);
    void takeAssignment(const DefinitionLine& line, DefinitionStatement& statement);
    void undefine(Assignment& assignment);
    std::string_view expand(std::string_view written, const DefinitionLine& line, bool& resolved);
    void warn(oaLibDefListWarningTypeEnum type, std::uint32_t line, std::string text);
    std::string_view expandValue(std::string_view attribute, const std::string& value);
    void refreshSettings(std::uint32_t member);
    std::uint32_t newMember(DefinitionRecord record, std::string_view path);
    LibrarySettings& settingsFor(std::uint32_t member);

    bool belongsTo(const DefinitionStatement& statement, std::uint32_t member) const;
    Statements::iterator statementOf(std::uint32_t member);
    Statements::iterator behind(std::uint32_t member);
    Statements takeStatementsOf(std::uint32_t member);
    void insert(Statements::iterator where, Statements statements);
    void endLine(DefinitionStatement& statement);
    std::string_view newLine(const std::string& text);

    DefinitionList& list_;
    const std::string file_;
    TextStore texts_;
    Table<DefinitionRecord>& members_;
    Statements statements_;
    std::vector<Assignment> assignments_;
    std::vector<LibrarySettings> settings_;
    std::vector<DefinitionWarning> warnings_;
    std::string scratch_;
    bool syntaxErrors_ = false;
    bool inSlotOrder_ = true;
    // The last definition of each name, filled as far as `indexed_` when it is asked for.
    FlatMap<std::uint32_t> byName_;
    std::uint32_t indexed_ = 0;
};

inline DefinitionContent& contentOf(const oaLibDefListMem* member) {
    return static_cast<DefinitionContent&>(tableOf(member).database());
}

} // namespace OpenAccess_4::impl
