#include "dm/src/definition_opening.h"

#include "base/src/hash.h"
#include "dm/src/dm_session.h"
#include "dm/src/library.h"
#include "oa/oaLibDefListObserver.h"
#include "platform/file.h"

#include <algorithm>
#include <utility>

namespace OpenAccess_4::impl {

using Observer = oaVersionedObserver<oaLibDefList>;

namespace {

std::string placeOf(const DefinitionList& list, std::uint32_t line) {
    // What was added since the file was read has no line yet.
    return list.fullPath() + (line ? ":" + std::to_string(line) : "");
}

std::uint32_t hashOf(std::string_view text) {
    return std::uint32_t(hashBytes(text.data(), text.size()));
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

DefinitionOpening::Place& DefinitionOpening::place(std::string_view name, std::uint32_t hash) {
    const std::size_t mask = index_.size() - 1;
    std::size_t at = hash & mask;
    while (index_[at].library != kNone &&
           (index_[at].hash != hash || libraries_[index_[at].library].name != name))
        at = (at + 1) & mask;
    return index_[at];
}

DefinitionOpening::Library* DefinitionOpening::find(std::string_view name) {
    if (index_.empty())
        return nullptr;
    const std::uint32_t number = place(name, hashOf(name)).library;
    return number == kNone || !libraries_[number].from ? nullptr : &libraries_[number];
}

void DefinitionOpening::grow() {
    const std::size_t size = std::max<std::size_t>(1024, index_.size() * 4);
    const std::vector<Place> before = std::exchange(index_, std::vector<Place>(size));
    for (const Place& place : before) {
        std::size_t at = place.hash & (size - 1);
        while (place.library != kNone && index_[at].library != kNone)
            at = (at + 1) & (size - 1);
        if (place.library != kNone)
            index_[at] = place;
    }
}

void DefinitionOpening::define(Frame& frame, std::uint32_t member) {
    const DefinitionRecord& record = frame.content->members()[member];
    const Library defined{record.name, member, kNone, &frame};
    const std::uint32_t hash = hashOf(record.name);
    if (libraries_.size() * 2 >= index_.size())
        grow();
    Place& known = place(record.name, hash);
    if (known.library == kNone) {
        known = {hash, std::uint32_t(libraries_.size())};
        libraries_.push_back(defined);
        return;
    }
    if (const Library& other = libraries_[known.library]; other.from) {
        const DefinitionRecord& before = other.from->content->members()[other.member];
        warn(*frame.list, record.line,
             "library " + quoted(record.name) + " is defined again; the definition in " +
                 quoted(placeOf(*other.from->list, before.line)) + " no longer counts",
             oacMultiDefinitionsLibDefListWarning);
    }
    libraries_[known.library] = defined;
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
    if (sameIgnoringCase(assignment.library, kAllLibraries) &&
        sameIgnoringCase(assignment.attribute, kTemporaryRoot)) {
        const bool isSet = statement.kind == DefinitionKind::Assign;
        temporaryRoot_ = isSet ? frame.list->resolve(assignment.value) : "";
        return;
    }
    Library* const defined = find(assignment.library);
    if (!defined) {
        // What the list itself has undone since was there.
        if (assignment.member == kNone)
            warn(*frame.list, statement.line,
                 "library " + quoted(assignment.library) + " is not defined",
                 oacLibNameUndefinedLibDefListWarning);
        return;
    }
    if (statement.kind == DefinitionKind::Undefine) {
        defined->from = nullptr;
        return;
    }
    if (defined->settings == kNone) {
        defined->settings = std::uint32_t(settings_.size());
        settings_.emplace_back();
    }
    Settings& settings = settings_[defined->settings];
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
    for (const Library& library : libraries_)
        open(library);
}

void DefinitionOpening::open(const Library& library) {
    if (!library.from)
        return; // not defined any more
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
