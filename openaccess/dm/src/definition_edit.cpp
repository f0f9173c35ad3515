#include "base/src/source.h"
#include "dm/src/definition_content.h"
#include "dm/src/definition_list.h"

#include <algorithm>

namespace OpenAccess_4::impl {

SourcePtr DefinitionContent::memberSource() {
    if (inSlotOrder_)
        return std::make_shared<TablesSource>(std::vector<TableBase*>{&members_});
    std::vector<oaObject*> members;
    for (const DefinitionStatement& statement : statements_)
        if ((statement.kind == DefinitionKind::Define ||
             statement.kind == DefinitionKind::Include) &&
            members_.isLive(statement.index))
            members.push_back(members_.handle(statement.index));
    return std::make_shared<ListSource>(std::move(members));
}

oaLibDefListMem* DefinitionContent::addDefinition(const std::string& name, const std::string& path,
                                                  std::uint32_t following) {
    DefinitionRecord record;
    record.name = texts_.keep(name);
    const std::uint32_t slot = newMember(record, path);
    insert(following == kNone ? statements_.end() : statementOf(following),
           {{DefinitionKind::Define, 0, slot,
             newLine("DEFINE " + writtenField(name) + " " + writtenField(path))}});
    return static_cast<oaLibDefListMem*>(members_.handle(slot));
}

oaLibDefListMem* DefinitionContent::addReference(const std::string& path, std::uint32_t following) {
    DefinitionRecord record;
    record.isReference = true;
    const std::uint32_t slot = newMember(record, path);
    insert(following == kNone ? statements_.end() : statementOf(following),
           {{DefinitionKind::Include, 0, slot, newLine("INCLUDE " + writtenField(path))}});
    return static_cast<oaLibDefListMem*>(members_.handle(slot));
}

std::uint32_t DefinitionContent::newMember(DefinitionRecord record, std::string_view path) {
    record.unresolved = !expandVariables(path, scratch_).empty();
    record.path = texts_.keep(scratch_);
    return members_.add(record);
}

void DefinitionContent::addAssignment(std::uint32_t member, const std::string& attribute,
                                      const std::string& value) {
    Assignment assignment{members_[member].name, texts_.keep(attribute), {}, member};
    assignment.value = expandValue(attribute, value);
    settingsFor(member).assign(assignment.attribute, assignment.value);

    const auto index = std::uint32_t(assignments_.size());
    assignments_.push_back(assignment);
    insert(behind(member), {{DefinitionKind::Assign, 0, index,
                             newLine("ASSIGN " + writtenField(members_[member].name) + " " +
                                     writtenField(attribute) + " " + writtenField(value))}});
}

std::string_view DefinitionContent::expandValue(std::string_view attribute,
                                                const std::string& value) {
    if (!isWritePathAttribute(attribute))
        return texts_.keep(value);
    expandVariables(value, scratch_);
    return texts_.keep(scratch_);
}

void DefinitionContent::setPath(std::uint32_t member, const std::string& path) {
    DefinitionRecord& record = members_[member];
    record.unresolved = !expandVariables(path, scratch_).empty();
    record.path = texts_.keep(scratch_);
    constexpr std::size_t pathField = 2;
    DefinitionStatement& statement = *statementOf(member);
    statement.text = texts_.keep(withField(statement.text, pathField, path));
}

void DefinitionContent::setAssignment(std::uint32_t member, const std::string& attribute,
                                      const std::string& value) {
    DefinitionStatement* last = nullptr;
    for (DefinitionStatement& each : statements_)
        if ((each.kind == DefinitionKind::Assign || each.kind == DefinitionKind::Unassign) &&
            belongsTo(each, member) && sameAttribute(assignments_[each.index].attribute, attribute))
            last = &each;
    if (!last || last->kind == DefinitionKind::Unassign) {
        addAssignment(member, attribute, value);
        return;
    }
    assignments_[last->index].value = expandValue(attribute, value);
    constexpr std::size_t valueField = 3;
    last->text = texts_.keep(withField(last->text, valueField, value));
    refreshSettings(member);
}

void DefinitionContent::removeAssignments(std::uint32_t member, std::string_view attribute) {
    std::erase_if(statements_, [&](const DefinitionStatement& each) {
        return (each.kind == DefinitionKind::Assign || each.kind == DefinitionKind::Unassign) &&
               belongsTo(each, member) &&
               sameAttribute(assignments_[each.index].attribute, attribute);
    });
    refreshSettings(member);
}

void DefinitionContent::refreshSettings(std::uint32_t member) {
    LibrarySettings settings;
    for (const DefinitionStatement& each : statements_) {
        if (!belongsTo(each, member))
            continue;
        if (each.kind == DefinitionKind::Assign)
            settings.assign(assignments_[each.index].attribute, assignments_[each.index].value);
        else if (each.kind == DefinitionKind::Unassign)
            settings.unassign(assignments_[each.index].attribute);
    }
    settingsFor(member) = std::move(settings);
}

void DefinitionContent::destroy(std::uint32_t member) {
    takeStatementsOf(member);
    members_.destroy(member);
    byName_.clear();
    indexed_ = 0;
}

void DefinitionContent::moveBehind(std::uint32_t member, std::uint32_t other) {
    if (member == other)
        return;
    const Statements moved = takeStatementsOf(member);
    // What a person wrote at the head of the file stays there.
    const auto first = std::ranges::find_if(statements_, [](const DefinitionStatement& each) {
        return each.kind != DefinitionKind::Nothing;
    });
    insert(other == kNone ? first : behind(other), moved);
    inSlotOrder_ = false;
}

void DefinitionContent::moveToEnd(std::uint32_t member) {
    // Behind everything, as what stands at the end may concern another definition of the name.
    Statements moved = takeStatementsOf(member);
    insert(statements_.end(), std::move(moved));
    inSlotOrder_ = false;
}

std::string DefinitionContent::text() const {
    std::size_t size = 0;
    for (const DefinitionStatement& statement : statements_)
        size += statement.text.size();
    std::string text;
    text.reserve(size);
    for (const DefinitionStatement& statement : statements_)
        text += statement.text;
    return text;
}

bool DefinitionContent::belongsTo(const DefinitionStatement& statement,
                                  std::uint32_t member) const {
    switch (statement.kind) {
    case DefinitionKind::Define:
    case DefinitionKind::Include:
        return statement.index == member;
    case DefinitionKind::Assign:
    case DefinitionKind::Unassign:
        return assignments_[statement.index].member == member;
    default:
        return false;
    }
}

DefinitionContent::Statements::iterator DefinitionContent::statementOf(std::uint32_t member) {
    return std::ranges::find_if(statements_, [&](const DefinitionStatement& statement) {
        return belongsTo(statement, member);
    });
}

DefinitionContent::Statements::iterator DefinitionContent::behind(std::uint32_t member) {
    // From the end, where most is added.
    const auto found = std::find_if(
        statements_.rbegin(), statements_.rend(),
        [&](const DefinitionStatement& statement) { return belongsTo(statement, member); });
    return found.base();
}

DefinitionContent::Statements DefinitionContent::takeStatementsOf(std::uint32_t member) {
    Statements taken;
    std::erase_if(statements_, [&](const DefinitionStatement& statement) {
        if (!belongsTo(statement, member))
            return false;
        taken.push_back(statement);
        return true;
    });
    return taken;
}

void DefinitionContent::insert(Statements::iterator where, Statements statements) {
    if (where != statements_.end())
        inSlotOrder_ = false;
    else if (!statements_.empty())
        endLine(statements_.back());
    for (DefinitionStatement& statement : statements)
        endLine(statement);
    statements_.insert(where, statements.begin(), statements.end());
}

/// The last line of a file may lack its end.
void DefinitionContent::endLine(DefinitionStatement& statement) {
    if (!statement.text.ends_with('\n'))
        statement.text = newLine(std::string(statement.text));
}

std::string_view DefinitionContent::newLine(const std::string& text) {
    const std::size_t end = file_.find('\n');
    const bool carriageReturns = end != std::string::npos && end > 0 && file_[end - 1] == '\r';
    return texts_.keep(text + (carriageReturns ? "\r\n" : "\n"));
}

} // namespace OpenAccess_4::impl
