#pragma once

#include "dm_tests.h"
#include "support/environment_override.h"

#include <filesystem>

namespace ovalis::test {

inline std::string withSlashes(std::string path) {
    for (char& c : path)
        if (c == '\\')
            c = '/';
    return path;
}

/// Collects what is wrong in library definition lists as "<kind> <message>".
class WarningCollector : public OpenAccess_4::oaVersionedObserver<OpenAccess_4::oaLibDefList> {
public:
    explicit WarningCollector(std::string folder)
        : oaVersionedObserver(1), folder_(std::move(folder)) {}

    OpenAccess_4::oaBoolean
    onLoadWarnings(OpenAccess_4::oaLibDefList* list, const OpenAccess_4::oaString& message,
                   OpenAccess_4::oaLibDefListWarningTypeEnum type) override {
        std::string text = withSlashes(static_cast<const char*>(message));
        for (std::size_t at; (at = text.find(folder_)) != std::string::npos;)
            text.replace(at, folder_.size(), "");
        texts.push_back(std::to_string(type) + " " + text);
        lists.push_back(list);
        return true;
    }

    std::vector<std::string> texts; // without the test's folder
    std::vector<OpenAccess_4::oaLibDefList*> lists;

private:
    std::string folder_;
};

/// Library definition files in a folder of the test's own.
class LibDefTest : public DMTest {
protected:
    using List = OpenAccess_4::oaLibDefList;

    LibDefTest() : warnings(directory.str() + "/") {}
    ~LibDefTest() override {
        std::vector<List*> lists;
        OpenAccess_4::oaIter<List> walk(List::getLibDefLists());
        while (List* list = walk.getNext())
            lists.push_back(list);
        for (List* list : lists)
            list->destroy();
    }

    /// Writes "lib.defs" and reads it alone.
    List* read(const std::string& text) {
        put("lib.defs", text);
        return List::get(path("lib.defs").c_str(), 'r');
    }
    /// Writes "lib.defs" and opens its libraries.
    List* open(const std::string& text) {
        put("lib.defs", text);
        List::openLibs(path("lib.defs").c_str());
        return List::getTopList();
    }
    using DMTest::open;

    /// Makes a library in a directory and closes it.
    void makeLibrary(const std::string& name) {
        OpenAccess_4::oaLib::create(scalarName("made"), path(name).c_str())->close();
    }

    /// The members as "name=path" and "include path".
    static std::vector<std::string> membersOf(const List* list);
    /// The open libraries as "name=path", without the test's folder.
    std::vector<std::string> openLibraries() const;

    WarningCollector warnings;
};

inline std::vector<std::string> LibDefTest::membersOf(const List* list) {
    std::vector<std::string> members;
    OpenAccess_4::oaIter<OpenAccess_4::oaLibDefListMem> walk(list->getMembers());
    while (OpenAccess_4::oaLibDefListMem* member = walk.getNext()) {
        OpenAccess_4::oaString path;
        if (member->getType() == OpenAccess_4::oacLibDefListRefType) {
            static_cast<OpenAccess_4::oaLibDefListRef*>(member)->getRefListPath(path);
            members.push_back(std::string("include ") +
                              platform::fileName(static_cast<const char*>(path)));
            continue;
        }
        auto* definition = static_cast<OpenAccess_4::oaLibDef*>(member);
        OpenAccess_4::oaScalarName name;
        OpenAccess_4::oaString text;
        definition->getLibName(name);
        name.get(text);
        definition->getLibPath(path);
        members.push_back(std::string(text) + "=" + static_cast<const char*>(path));
    }
    return members;
}

inline std::vector<std::string> LibDefTest::openLibraries() const {
    std::vector<std::string> libraries;
    const std::string folder = directory.str() + "/";
    OpenAccess_4::oaIter<OpenAccess_4::oaLib> walk(OpenAccess_4::oaLib::getOpenLibs());
    while (const OpenAccess_4::oaLib* lib = walk.getNext()) {
        OpenAccess_4::oaString path;
        lib->getFullPath(path);
        std::string text = withSlashes(static_cast<const char*>(path));
        if (text.starts_with(folder))
            text.erase(0, folder.size());
        libraries.push_back(nameOf(lib) + "=" + text);
    }
    return libraries;
}

} // namespace ovalis::test
