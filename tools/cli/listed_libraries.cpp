#include "cli/listed_libraries.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <list>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "cli/library_access.h"
#include "platform/file.h"
#include "platform/path.h"

namespace cli {
namespace {

template <class Object, class Owner>
std::vector<Object*> all(const oa::oaCollection<Object, Owner>& collection) {
    std::vector<Object*> found;
    oa::oaIter<Object> walk(collection);
    while (Object* each = walk.getNext())
        found.push_back(each);
    return found;
}

template <class Object, class Owner>
std::set<const Object*> present(const oa::oaCollection<Object, Owner>& collection) {
    const std::vector<Object*> found = all(collection);
    return {found.begin(), found.end()};
}

std::string fullPathOf(const oa::oaLibDefList& list) {
    oa::oaString path;
    list.getFullPath(path);
    return ovalis::fromOa(path);
}

/// The line of a text, counted from 1; empty when there is none.
std::string lineOf(const std::string& text, std::size_t number) {
    std::istringstream lines(text);
    std::string line;
    while (number > 0 && std::getline(lines, line))
        --number;
    return number == 0 ? line : "";
}

/// The library that the line of a warning defines, empty when it says something else. Without a
/// value when the warning does not begin with file and line, or the file cannot be read any more.
std::optional<std::string> definedAt(const std::string& file, const std::string& warning) {
    std::size_t number = 0;
    if (!warning.starts_with(file + ":") ||
        !(std::istringstream(warning.substr(file.size() + 1)) >> number))
        return std::nullopt;
    try {
        std::istringstream fields(lineOf(platform::readFile(file), number));
        std::string statement;
        std::string name;
        fields >> statement >> name;
        std::erase(name, '"');
        std::ranges::transform(statement, statement.begin(),
                               [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        return statement.ends_with("DEFINE") ? name : std::string();
    } catch (const platform::SystemFailure&) {
        return std::nullopt;
    }
}

/// Keeps what the database finds wrong while it lives.
class WarningLog : public oa::oaObserver<oa::oaLibDefList> {
public:
    explicit WarningLog(std::vector<std::string>& texts)
        : oa::oaObserver<oa::oaLibDefList>(1), texts_(texts) {}

    oa::oaBoolean onLoadWarnings(oa::oaLibDefList* list, const oa::oaString& message,
                                 oa::oaLibDefListWarningTypeEnum type) override {
        texts_.push_back(ovalis::fromOa(message));
        noneOpened = noneOpened || type == oa::oacSyntaxErrorLibDefListWarning;
        oneRefused = oneRefused || type == oa::oacCannotOpenLibLibDefListWarning;
        if (list != nullptr && type == oa::oacUndefinedVarLibDefListWarning)
            withoutVariable_.emplace(fullPathOf(*list),
                                     definedAt(fullPathOf(*list), texts_.back()));
        return true;
    }

    /// A variable of the definition is not set, and it does not say that this is no fault.
    bool lacksVariable(const ListedLibrary& library) const {
        return library.unresolved && (withoutVariable_.contains({library.list, library.name}) ||
                                      withoutVariable_.contains({library.list, std::nullopt}));
    }

    bool noneOpened = false;
    bool oneRefused = false;

private:
    /// Lists, with the libraries whose definition was warned of; any library where that is unknown.
    std::set<std::pair<std::string, std::optional<std::string>>> withoutVariable_;
    std::vector<std::string>& texts_;
};

/// True for a path that means the same in every directory.
bool standsAlone(const std::string& path) {
    return !path.empty() &&
           (platform::isPathSeparator(path.front()) || std::filesystem::path(path).has_root_name());
}

std::string directoryOf(const oa::oaLibDef& definition, const std::string& path) {
    if (standsAlone(path))
        return platform::absolutePath(path);
    const std::string file = fullPathOf(*definition.getList());
    return platform::absolutePath(platform::joinPath(platform::parentPath(file), path));
}

bool isOpenFrom(const oa::oaScalarName& name, const std::string& directory) {
    const oa::oaLib* lib = oa::oaLib::find(name);
    if (lib == nullptr)
        return false;
    oa::oaString path;
    lib->getFullPath(path);
    return platform::sameFile(ovalis::fromOa(path), directory);
}

ListedLibrary described(const oa::oaLibDef& definition) {
    oa::oaScalarName name;
    oa::oaString text;
    definition.getLibName(name);
    name.get(oa::oaNativeNS(), text);
    ListedLibrary library;
    library.name = ovalis::fromOa(text);
    definition.getLibPath(text);
    library.path = ovalis::fromOa(text);
    library.directory = directoryOf(definition, library.path);
    library.list = fullPathOf(*definition.getList());
    library.exists = platform::isDirectory(library.directory);
    library.unresolved = !library.exists && library.path.find('$') != std::string::npos;
    library.open = isOpenFrom(name, library.directory);
    return library;
}

/// The definitions in the order in which the library flattens them, and those that count: the
/// database takes each file once, where it is met first, and the last definition of a name.
class Definitions {
public:
    explicit Definitions(const oa::oaLibDefList& list) {
        enter(list);
        while (!walks_.empty()) {
            Walk& walk = walks_.back();
            oa::oaLibDefListMem* member = walk.members.getNext();
            if (member == nullptr)
                walks_.pop_back();
            else if (member->getType() == oa::oacLibDefType)
                add(static_cast<oa::oaLibDef&>(*member), walk.isFirst);
            else if (member->getType() == oa::oacLibDefListRefType)
                follow(static_cast<oa::oaLibDefListRef&>(*member));
        }
    }

    const std::vector<const oa::oaLibDef*>& inOrder() const { return inOrder_; }
    bool counts(const std::string& name, const oa::oaLibDef* definition) const {
        return last_.at(name) == definition;
    }

private:
    struct Walk {
        const oa::oaLibDefList* list;
        oa::oaIter<oa::oaLibDefListMem> members;
        bool isFirst;
    };

    void enter(const oa::oaLibDefList& list) {
        const bool isFirst = entered_.insert(&list).second;
        walks_.push_back({&list, oa::oaIter<oa::oaLibDefListMem>(list.getMembers()), isFirst});
    }

    void add(const oa::oaLibDef& definition, bool isFirst) {
        inOrder_.push_back(&definition);
        oa::oaScalarName name;
        oa::oaString text;
        definition.getLibName(name);
        name.get(oa::oaNativeNS(), text);
        if (isFirst)
            last_[ovalis::fromOa(text)] = &definition;
    }

    void follow(const oa::oaLibDefListRef& reference) {
        oa::oaString path;
        reference.getRefListPath(path);
        // What could not be read when the lists were loaded is not there.
        const oa::oaLibDefList* list = oa::oaLibDefList::find(path);
        const bool isWalked = std::any_of(walks_.begin(), walks_.end(),
                                          [&](const Walk& walk) { return walk.list == list; });
        if (list != nullptr && !isWalked)
            enter(*list);
    }

    std::list<Walk> walks_;
    std::set<const oa::oaLibDefList*> entered_;
    std::vector<const oa::oaLibDef*> inOrder_;
    std::map<std::string, const oa::oaLibDef*> last_;
};

} // namespace

ListedLibraries::ListedLibraries(const std::string& file) {
    ovalis::initOa();
    librariesBefore_ = present(oa::oaLib::getOpenLibs());
    listsBefore_ = present(oa::oaLibDefList::getLibDefLists());
    try {
        calling([&] { load(file); });
    } catch (...) {
        close();
        throw;
    }
}

ListedLibraries::~ListedLibraries() {
    close();
}

void ListedLibraries::load(const std::string& file) {
    std::string messages;
    WarningLog log(warnings_);
    const oa::oaLibDefList* list = ovalis::openLibraryList(file, &messages);
    if (list == nullptr)
        throw std::runtime_error(messages);
    file_ = fullPathOf(*list);
    const Definitions definitions(*list);
    bool lacksVariable = false;
    for (const oa::oaLibDef* definition : definitions.inOrder()) {
        ListedLibrary library = described(*definition);
        library.effective = definitions.counts(library.name, definition);
        library.open = library.open && library.effective;
        lacksVariable = lacksVariable || (library.effective && log.lacksVariable(library));
        libraries_.push_back(std::move(library));
    }
    allOpen_ = !log.noneOpened && !log.oneRefused && !lacksVariable;
}

void ListedLibraries::close() noexcept {
    try {
        for (oa::oaLib* lib : all(oa::oaLib::getOpenLibs()))
            if (!librariesBefore_.contains(lib))
                lib->close();
        for (oa::oaLibDefList* list : all(oa::oaLibDefList::getLibDefLists()))
            if (!listsBefore_.contains(list))
                list->destroy();
    } catch (const oa::oaException&) {
        // What is left open goes with the process.
    }
}

} // namespace cli
