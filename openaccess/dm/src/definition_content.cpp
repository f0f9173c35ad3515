#include "dm/src/definition_content.h"

#include "base/src/session.h"
#include "base/src/source.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

constexpr std::uint32_t memberTable = kFirstPackageTable;
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

} // namespace

oaObject* DefinitionRecord::construct(void* where) const {
    return isReference ? Handles::construct<oaLibDefListRef>(where)
                       : Handles::construct<oaLibDef>(where);
}

bool isWritePathAttribute(std::string_view attribute) {
    return sameIgnoringCase(attribute, "writePath") || sameIgnoringCase(attribute, "TMP");
}

bool isModeAttribute(std::string_view attribute) {
    return sameIgnoringCase(attribute, "libMode");
}

bool sameAttribute(std::string_view first, std::string_view second) {
    return first == second || (isWritePathAttribute(first) && isWritePathAttribute(second)) ||
           (isModeAttribute(first) && isModeAttribute(second));
}

oaLibModeEnum modeNamed(std::string_view name, bool& known) {
    known = true;
    for (const oaLibModeEnum mode : {oacSharedLibMode, oacNonSharedLibMode, oacReadOnlyLibMode})
        if (sameIgnoringCase(name, static_cast<const oaChar*>(oaLibMode(mode).getName())))
            return mode;
    known = false;
    return oacSharedLibMode;
}

void LibrarySettings::assign(std::string_view attribute, std::string_view value) {
    bool known = false;
    if (isWritePathAttribute(attribute)) {
        writePath = value;
    } else if (isModeAttribute(attribute)) {
        mode = modeNamed(value, known);
    } else {
        const auto found =
            std::ranges::find(attributes, attribute, [](auto& each) { return each.first; });
        if (found == attributes.end())
            attributes.emplace_back(attribute, value);
        else
            found->second = value;
    }
}

void LibrarySettings::unassign(std::string_view attribute) {
    if (isWritePathAttribute(attribute))
        writePath = {};
    else if (isModeAttribute(attribute))
        mode = oacSharedLibMode;
    else
        std::erase_if(attributes, [&](const auto& each) { return each.first == attribute; });
}

DefinitionContent::DefinitionContent(DefinitionList& list, std::string text)
    : list_(list), file_(std::move(text)), members_(addTable<DefinitionRecord>(memberTable)) {
    parse();
}

oaObject* DefinitionContent::object() const {
    return Session::instance().object();
}

void DefinitionContent::parse() {
    constexpr std::size_t usualLine = 48;
    statements_.reserve(file_.size() / usualLine);
    std::string_view lines = file_;
    if (lines.starts_with(byteOrderMark)) {
        // It stays the first of all when statements move.
        statements_.push_back({DefinitionKind::Nothing, 0, kNone, byteOrderMark});
        lines.remove_prefix(byteOrderMark.size());
    }
    DefinitionReader reader(lines, texts_);
    DefinitionLine line;
    while (reader.next(line)) {
        DefinitionStatement statement{line.kind, line.number, kNone, line.text};
        take(line, statement);
        statements_.push_back(statement);
    }
}

void DefinitionContent::take(const DefinitionLine& line, DefinitionStatement& statement) {
    switch (line.kind) {
    case DefinitionKind::Nothing:
        break;
    case DefinitionKind::Define:
    case DefinitionKind::Include: {
        const bool isReference = line.kind == DefinitionKind::Include;
        bool resolved = true;
        DefinitionRecord record;
        record.isReference = isReference;
        record.soft = line.soft;
        record.line = line.number;
        record.name = isReference ? std::string_view() : line.fields[0];
        record.path = expand(line.fields[isReference ? 0 : 1], line, resolved);
        record.unresolved = !resolved;
        statement.index = members_.add(record);
        break;
    }
    case DefinitionKind::Wrong:
        syntaxErrors_ = true;
        warn(oacSyntaxErrorLibDefListWarning, line.number, line.wrong);
        statement.kind = DefinitionKind::Nothing;
        break;
    default:
        takeAssignment(line, statement);
    }
}

void DefinitionContent::takeAssignment(const DefinitionLine& line, DefinitionStatement& statement) {
    const auto [library, attribute, value] = line.fields;
    Assignment assignment{library, {}, {}, findDefinition(library)};
    if (line.kind != DefinitionKind::Undefine)
        assignment.attribute = attribute;
    if (line.kind == DefinitionKind::Assign) {
        bool good = true;
        assignment.value = value;
        if (isWritePathAttribute(attribute) || sameIgnoringCase(attribute, kTemporaryRoot))
            assignment.value = expand(value, line, good);
        else if (isModeAttribute(attribute) && (modeNamed(value, good), !good)) {
            syntaxErrors_ = true;
            warn(oacSyntaxErrorLibDefListWarning, line.number,
                 "'" + std::string(value) + "' is no library mode");
        }
        if (!good) {
            statement.kind = DefinitionKind::Nothing;
            return;
        }
    }
    if (line.kind == DefinitionKind::Undefine)
        undefine(assignment);
    else if (assignment.member != kNone && line.kind == DefinitionKind::Assign)
        settingsFor(assignment.member).assign(attribute, assignment.value);
    else if (assignment.member != kNone)
        settingsFor(assignment.member).unassign(attribute);
    statement.index = std::uint32_t(assignments_.size());
    assignments_.push_back(assignment);
}

void DefinitionContent::undefine(Assignment& assignment) {
    for (std::uint32_t slot = assignment.member; slot != kNone; slot = members_[slot].sameName) {
        const std::uint32_t before = members_[slot].sameName;
        if (!members_.isLive(slot))
            break;
        members_.destroy(slot);
        members_[slot].sameName = before;
    }
    if (assignment.member != kNone)
        byName_[strings.intern(assignment.library)] = kNone;
}

std::string_view DefinitionContent::expand(std::string_view written, const DefinitionLine& line,
                                           bool& resolved) {
    if (written.find('$') == std::string_view::npos)
        return written;
    const std::string_view missing = expandVariables(written, scratch_);
    resolved = missing.empty();
    // What may be missing is missing where its variable is.
    if (!resolved && !line.soft)
        warn(oacUndefinedVarLibDefListWarning, line.number,
             "variable '" + std::string(missing) + "' is not set");
    return texts_.keep(scratch_);
}

void DefinitionContent::warn(oaLibDefListWarningTypeEnum type, std::uint32_t line,
                             std::string text) {
    warnings_.push_back({type, line, std::move(text)});
}

const LibrarySettings* DefinitionContent::settingsOf(const DefinitionRecord& record) const {
    return record.settings == kNone ? nullptr : &settings_[record.settings];
}

LibrarySettings& DefinitionContent::settingsFor(std::uint32_t member) {
    std::uint32_t& index = members_[member].settings;
    if (index == kNone) {
        index = std::uint32_t(settings_.size());
        settings_.emplace_back();
    }
    return settings_[index];
}

std::uint32_t DefinitionContent::findDefinition(std::string_view name) {
    for (; indexed_ < members_.slots(); ++indexed_) {
        DefinitionRecord& record = members_[indexed_];
        if (record.isReference || !members_.isLive(indexed_))
            continue;
        const StringId id = strings.intern(record.name);
        const std::uint32_t* before = byName_.find(id);
        record.sameName = before ? *before : kNone;
        byName_[id] = indexed_;
    }
    const StringId id = strings.find(name);
    const std::uint32_t* found = id == kNone ? nullptr : byName_.find(id);
    return found ? *found : kNone;
}

} // namespace OpenAccess_4::impl
