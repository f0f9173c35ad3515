#include "dm/src/definition_opening.h"

#include "dm/src/dm_session.h"
#include "dm/src/library.h"
#include "oa/oaLibDefListObserver.h"
#include "platform/file.h"

#include <algorithm>

namespace OpenAccess_4::impl {

using Observer = oaVersionedObserver<oaLibDefList>;

namespace {

std::string placeOf(const DefinitionList& list, std::uint32_t line) {
    // What was added since the file was read has no line yet.
    return list.fullPath() + (line ? ":" + std::to_string(line) : "");
}

std::string quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

} // namespace

void warn(const DefinitionList& list, std::uint32_t line, const std::string& text,
          oaLibDefListWarningTypeEnum type) {
    if (!Observer::hasObservers())
        return;
    oaLibDefList* handle = list.handle();
    const std::string message = placeOf(list, line) + ": " + text + ".";
    Observer::notifyLoadWarningsObservers(handle->isValid() ? handle : nullptr, message.c_str(),
                                          type);
}

void warnOfContent(const DefinitionList& list) {
    const auto content = list.shareContent();
    for (const DefinitionWarning& warning : content->warnings())
        warn(list, warning.line, warning.text, warning.type);
}

DefinitionOpening::DefinitionOpening(std::shared_ptr<DefinitionList> list) {
    enter(std::move(list));
    // Without recursion: the depth of inclusion is in the hands of the files.
    while (!walking_.empty()) {
        Frame& frame = *walking_.back();
        const auto& statements = frame.content->statements();
        if (frame.next >= statements.size())
            walking_.pop_back();
        else
            follow(frame, DefinitionStatement(statements[frame.next++]));
    }
}

void DefinitionOpening::enter(std::shared_ptr<DefinitionList> list) {
    entered_.insert(list.get());
    auto frame = std::make_unique<Frame>(Frame{list, list->shareContent()});
    syntaxErrors_ = syntaxErrors_ || frame->content->hasSyntaxErrors();
    walking_.push_back(frame.get());
    frames_.push_back(std::move(frame));
}

void DefinitionOpening::follow(Frame& frame, const DefinitionStatement& statement) {
    switch (statement.kind) {
    case DefinitionKind::Define:
        if (frame.content->members().isLive(statement.index))
            define(frame, statement.index);
        break;
    case DefinitionKind::Include:
        if (frame.content->members().isLive(statement.index))
            include(frame, statement.index);
        break;
    case DefinitionKind::Assign:
    case DefinitionKind::Undefine:
    case DefinitionKind::Unassign:
        assign(frame, statement);
        break;
    default:
        break;
    }
}

DefinitionOpening::Library& DefinitionOpening::library(std::string_view name) {
    const StringId id = names_.intern(name);
    if (id >= libraries_.size())
        libraries_.resize(std::max<std::size_t>(id + 1, libraries_.size() * 2));
    return libraries_[id];
}

void DefinitionOpening::define(Frame& frame, std::uint32_t member) {
    const DefinitionRecord& record = frame.content->members()[member];
    Library& defined = library(record.name);
    if (defined.from) {
        const DefinitionRecord& before = defined.from->content->members()[defined.member];
        warn(*frame.list, record.line,
             "library " + quoted(record.name) + " is defined again; the definition in " +
                 quoted(placeOf(*defined.from->list, before.line)) + " no longer counts",
             oacMultiDefinitionsLibDefListWarning);
    } else {
        order_.push_back(names_.intern(record.name));
    }
    defined = {&frame, member, kNone};
}

void DefinitionOpening::include(Frame& frame, std::uint32_t member) {
    const DefinitionRecord& record = frame.content->members()[member];
    if (record.unresolved)
        return; // its variable has been reported
    const std::uint32_t line = record.line;
    const bool soft = record.soft;
    const std::string path = frame.list->resolve(record.path);
    std::shared_ptr<DefinitionList> list = DefinitionLists::instance().find(path);
    if (list && entered_.contains(list.get())) {
        const bool walking =
            std::ranges::any_of(walking_, [&](const Frame* each) { return each->list == list; });
        if (walking)
            warn(*frame.list, line, quoted(path) + " leads back here; it is not included again",
                 oacRecursiveIncludeLibDefListWarning);
        return;
    }
    try {
        list = DefinitionLists::instance().read(path);
    } catch (const platform::SystemFailure& failure) {
        if (!soft)
            warn(*frame.list, line,
                 "the included file " + quoted(path) + " cannot be read: " + fileReason(failure),
                 oacCannotOpenIncludeLibDefListWarning);
        return;
    }
    warnOfContent(*list);
    enter(std::move(list));
}

void DefinitionOpening::assign(Frame& frame, const DefinitionStatement& statement) {
    const Assignment& assignment = frame.content->assignment(statement.index);
    if (assignment.library == kAllLibraries &&
        sameIgnoringCase(assignment.attribute, kTemporaryRoot)) {
        const bool isSet = statement.kind == DefinitionKind::Assign;
        temporaryRoot_ = isSet ? frame.list->resolve(assignment.value) : "";
        return;
    }
    Library& defined = library(assignment.library);
    if (!defined.from) {
        // What the list itself has undone since was there.
        if (assignment.member == kNone)
            warn(*frame.list, statement.line,
                 "library " + quoted(assignment.library) + " is not defined",
                 oacLibNameUndefinedLibDefListWarning);
        return;
    }
    if (statement.kind == DefinitionKind::Undefine) {
        std::erase(order_, names_.intern(assignment.library));
        defined = {};
        return;
    }
    if (defined.settings == kNone) {
        defined.settings = std::uint32_t(settings_.size());
        settings_.emplace_back();
    }
    Settings& settings = settings_[defined.settings];
    const bool isSet = statement.kind == DefinitionKind::Assign;
    bool known = false;
    if (isWritePathAttribute(assignment.attribute))
        settings.writePath = isSet ? frame.list->resolve(assignment.value) : "";
    else if (isModeAttribute(assignment.attribute))
        settings.mode = isSet ? modeNamed(assignment.value, known) : oacSharedLibMode;
}

void DefinitionOpening::openLibraries() {
    if (syntaxErrors_)
        return;
    for (const StringId name : order_)
        open(libraries_[name]);
}

void DefinitionOpening::open(const Library& library) {
    const DefinitionRecord& record = library.from->content->members()[library.member];
    if (record.unresolved || !library.from->content->members().isLive(library.member))
        return;
    const DefinitionList& list = *library.from->list;
    const char* missing = nullptr;
    if (!finder_.mayExist(list, record.path)) {
        missing = "there is no such directory";
    } else {
        const std::string path = list.resolve(record.path);
        if (oaLib::exists(path.c_str()))
            openAt(library, path);
        else
            missing = platform::isDirectory(path) ? "the directory holds no library"
                                                  : "there is no such directory";
    }
    // Without observers, no time is spent on what nobody reads.
    if (missing && !record.soft && Observer::hasObservers())
        warn(list, record.line,
             "library " + quoted(record.name) + " cannot be opened from " +
                 quoted(list.resolve(record.path)) + ": " + missing,
             oacCannotOpenLibLibDefListWarning);
}

void DefinitionOpening::openAt(const Library& library, const std::string& path) {
    const DefinitionRecord record = library.from->content->members()[library.member];
    const std::string name(record.name);
    try {
        DMSession& session = DMSession::instance();
        if (impl::Library* open = session.findLibrary(name)) {
            if (platform::sameFile(open->fullPath(), path))
                return;
            session.close(*open);
        }
        const oaLibModeEnum mode =
            library.settings == kNone ? oacSharedLibMode : settings_[library.settings].mode;
        oaLib::open(oaScalarName(oaNativeNS(), name.c_str()), path.c_str(),
                    writePathOf(library).c_str(), mode);
    } catch (const oaException& error) {
        warn(*library.from->list, record.line, static_cast<const oaChar*>(error.getMsg()),
             oacCannotOpenLibLibDefListWarning);
    }
}

std::string DefinitionOpening::writePathOf(const Library& library) const {
    if (library.settings != kNone && !settings_[library.settings].writePath.empty())
        return settings_[library.settings].writePath;
    if (temporaryRoot_.empty())
        return "";
    return platform::joinPath(temporaryRoot_,
                              library.from->content->members()[library.member].name);
}

} // namespace OpenAccess_4::impl
