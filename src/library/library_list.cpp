#include <ovalis/library_list.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <vector>

#include "core/boundary.h"
#include "core/names.h"
#include "library/files.h"
#include "library/load_warnings.h"
#include "library/working_directory.h"

namespace ovalis {

namespace {

using Observer = std::optional<myLibDefListObserver>;

/// The list of that file after it was loaded.
oa::oaLibDefList* loadedList(const oa::oaString& path) {
    oa::oaLibDefList* top = oa::oaLibDefList::getTopList();
    // When an observer of the application refused the opening, the top list is an older one.
    if (top != nullptr && top == oa::oaLibDefList::find(path)) {
        return top;
    }
    oa::oaLibDefList* list = oa::oaLibDefList::get(path, 'r');
    if (list != nullptr) {
        list->open();
    }
    return list;
}

oa::oaLibDefList* loadDefault(const oa::oaString& path, const myLibDefListObserver& observer) {
    oa::oaLibDefList::openLibs();
    return observer.lacksList() ? nullptr : loadedList(path);
}

oa::oaLibDefList* loadFile(const std::string& path) {
    const std::filesystem::path file = pathOf(path);
    const std::filesystem::path directory = file.parent_path();
    std::error_code unknown;
    if (!std::filesystem::is_directory(directory, unknown)) {
        oa::oaLibDefList::openLibs(toOa(path));
        return loadedList(toOa(path));
    }
    WorkingDirectory here(directory);
    // From there a relative path would lead somewhere else.
    const oa::oaString same = toOa(file.has_root_directory() ? path : textOf(here.before() / file));
    oa::oaLibDefList::openLibs(same);
    oa::oaLibDefList* list = loadedList(same);
    here.restore();
    return list;
}

std::string defaultPath() {
    oa::oaString path;
    oa::oaLibDefList::getDefaultPath(path);
    return fromOa(path);
}

/// Leaves `text` alone when there is nothing to tell.
void tell(std::string& text, std::vector<std::string> messages, const std::string& failure) {
    if (!failure.empty()) {
        messages.push_back(failure);
    }
    if (messages.empty()) {
        return;
    }
    text = messages.front();
    for (std::size_t i = 1; i < messages.size(); ++i) {
        text += "\n\n" + messages[i];
    }
}

/// Destroys a list at the end of a scope.
class ListOwner {
public:
    explicit ListOwner(oa::oaLibDefList& list) : list_(list) {}
    ListOwner(const ListOwner&) = delete;
    ListOwner& operator=(const ListOwner&) = delete;
    ~ListOwner() {
        if (list_.isValid()) {
            list_.destroy();
        }
    }

private:
    oa::oaLibDefList& list_;
};

/// A list that is being walked, and what is left of it.
struct Walk {
    explicit Walk(const oa::oaLibDefList& walked) : list(&walked), members(walked.getMembers()) {}

    const oa::oaLibDefList* list;
    oa::oaIter<oa::oaLibDefListMem> members;
};

/// Walks a list and those that it refers to. Not by recursion: their depth is in the hands of the
/// files.
class Flattening {
public:
    explicit Flattening(const oa::oaLibDefList& list) {
        walks_.emplace_back(list);
        while (!walks_.empty()) {
            oa::oaLibDefListMem* member = walks_.back().members.getNext();
            if (member == nullptr) {
                walks_.pop_back();
            } else if (member->getType() == oa::oacLibDefType) {
                append(static_cast<const oa::oaLibDef&>(*member));
            } else if (member->getType() == oa::oacLibDefListRefType) {
                enter(static_cast<const oa::oaLibDefListRef&>(*member));
            }
        }
    }

    std::list<TStringPair> take() { return std::move(pairs_); }

private:
    void append(const oa::oaLibDef& definition) {
        definition.getLibName(name_);
        name_.get(nativeNameSpace, text_);
        definition.getLibPath(path_);
        pairs_.emplace_back(fromOa(text_), fromOa(path_));
    }

    void enter(const oa::oaLibDefListRef& reference) {
        reference.getRefListPath(path_);
        const oa::oaLibDefList* list = nullptr;
        try {
            list = oa::oaLibDefList::get(path_, 'r');
        } catch (const oa::oaException&) {
            return; // what cannot be read is told when the list is loaded
        }
        const bool walking = std::any_of(walks_.begin(), walks_.end(),
                                         [&](const Walk& walk) { return walk.list == list; });
        if (list != nullptr && !walking) {
            walks_.emplace_back(*list);
        }
    }

    std::list<Walk> walks_;
    std::list<TStringPair> pairs_;
    oa::oaScalarName name_;
    oa::oaString text_;
    oa::oaString path_;
};

} // namespace

oa::oaLibDefList* openLibraryList(const std::string& path, std::string* messages) {
    return atBoundary([&] {
        initOa();
        Observer observer;
        // That there is no default file is told to observers alone.
        if (messages != nullptr || path.empty()) {
            observer.emplace();
        }
        const std::string file = path.empty() ? defaultPath() : path;
        oa::oaLibDefList* list = nullptr;
        std::string failure;
        try {
            list = atBoundary(
                [&] { return path.empty() ? loadDefault(toOa(file), *observer) : loadFile(file); });
        } catch (const Exception&) {
            failure = "Error trying to open library definition file: " + file;
        }
        if (messages != nullptr) {
            tell(*messages, observer->messages(), failure);
        }
        return list;
    });
}

std::list<TStringPair> getFlattenedLibraryList(const std::string& path, std::string* messages) {
    return atBoundary([&] {
        oa::oaLibDefList* list = openLibraryList(path, messages);
        if (list == nullptr) {
            return std::list<TStringPair>();
        }
        const ListOwner owner(*list);
        return getFlattenedLibraryList(list);
    });
}

std::list<TStringPair> getFlattenedLibraryList(const oa::oaLibDefList* list) {
    return atBoundary([&] {
        initOa();
        return list == nullptr ? std::list<TStringPair>() : Flattening(*list).take();
    });
}

} // namespace ovalis
