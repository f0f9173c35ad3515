#pragma once

#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include <ovalis/library_list.h>

#include "support/environment_override.h"
#include "support/files.h"
#include "support/library_fixture.h"

namespace ovalis::test {

/// The pairs as "name=path".
inline std::vector<std::string> textsOf(const std::list<TStringPair>& pairs) {
    std::vector<std::string> texts;
    for (const TStringPair& pair : pairs)
        texts.push_back(pair.get<0>() + "=" + pair.get<1>());
    return texts;
}

/// Library definition files in a folder of the test's own. Lists are destroyed and libraries closed
/// at the end.
class LibraryListTest : public FolderTest {
protected:
    LibraryListTest() { std::filesystem::create_directory(filePath("lists")); }
    ~LibraryListTest() override {
        destroyAll(oa::oaLibDefList::getLibDefLists(), [](oa::oaLibDefList* x) { x->destroy(); });
        destroyAll(oa::oaLib::getOpenLibs(), [](oa::oaLib* lib) { lib->close(); });
        std::filesystem::current_path(before_);
    }

    std::string path(const std::string& name) const { return pathOf("lists") + "/" + name; }
    std::filesystem::path file(const std::string& name) const { return filePath("lists") / name; }

    void put(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories(file(name).parent_path());
        writeText(file(name), text);
    }
    void makeLibrary(const std::string& name) const {
        createLib(path(name), "made_" + name).reset();
    }

    /// What a load had to tell, without the test's folder and with slashes.
    std::string told() const {
        std::string text = messages;
        for (const bool here : {true, false}) {
            const std::string folder = here ? slashed(path("")) : slashed(utf8(before_)) + "/";
            text = slashed(text);
            for (std::size_t at; (at = text.find(folder)) != std::string::npos;)
                text.erase(at, folder.size());
        }
        return text;
    }
    static std::string slashed(std::string text) {
        for (char& c : text)
            c = c == '\\' ? '/' : c;
        return text;
    }

    /// Writes "lib.defs" and flattens it.
    std::vector<std::string> flattened(const std::string& text) {
        put("lib.defs", text);
        return textsOf(getFlattenedLibraryList(path("lib.defs"), &messages));
    }

    std::string messages;

private:
    template <class Collection, class Destroy>
    static void destroyAll(const Collection& collection, Destroy destroy) {
        std::vector<decltype(oa::oaIter(collection).getNext())> all;
        oa::oaIter walk(collection);
        while (auto* each = walk.getNext())
            all.push_back(each);
        for (auto* each : all)
            destroy(each);
    }

    const std::filesystem::path before_ = std::filesystem::current_path();
};

} // namespace ovalis::test
