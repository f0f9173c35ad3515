#include "library_list.h"

#include <ovalis/library_list.h>

#include "platform/file.h"
#include "platform/path.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <set>
#include <vector>

namespace fuzz {

namespace oa = OpenAccess_4;

namespace {

constexpr char separator = 0x1e;

using Pairs = std::list<ovalis::TStringPair>;

void require(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << "fuzz: " << what << std::endl;
    std::abort();
}

void write(const std::string& path, const std::string& text) {
    platform::File file(path, platform::OpenMode::write);
    file.write(text.data(), text.size());
    file.close();
}

std::vector<oa::oaLibDefList*> lists() {
    std::vector<oa::oaLibDefList*> found;
    oa::oaIter<oa::oaLibDefList> walk(oa::oaLibDefList::getLibDefLists());
    while (oa::oaLibDefList* list = walk.getNext())
        found.push_back(list);
    return found;
}

/// "name\npath" of every definition in memory.
std::set<std::string> definitions() {
    std::set<std::string> found;
    for (const oa::oaLibDefList* list : lists()) {
        oa::oaIter<oa::oaLibDefListMem> walk(list->getMembers());
        while (oa::oaLibDefListMem* member = walk.getNext()) {
            if (member->getType() != oa::oacLibDefType)
                continue;
            const auto* definition = static_cast<const oa::oaLibDef*>(member);
            oa::oaScalarName name;
            oa::oaString text;
            oa::oaString path;
            definition->getLibName(name);
            name.get(oa::oaNativeNS(), text);
            definition->getLibPath(path);
            found.insert(ovalis::fromOa(text) + "\n" + ovalis::fromOa(path));
        }
    }
    return found;
}

} // namespace

bool tryLibraryList(std::span<const std::byte> input) {
    static const ovalis::test::TemporaryDirectory directory;
    const std::string before = platform::currentDirectory();
    std::string text(reinterpret_cast<const char*>(input.data()), input.size());
    std::ranges::replace_if(
        text, [](char c) { return c == '/' || c == '\\'; }, '_');
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string file = directory.str() + "/lib.defs";
    write(file, text.substr(0, end));
    write(directory.str() + "/more.defs", text.substr(std::min(end + 1, text.size())));

    std::string messages;
    const oa::oaLibDefList* list = ovalis::openLibraryList(file, &messages);
    require(list != nullptr, "a file that is there has no list");
    require(platform::currentDirectory() == before, "the working directory is another one");
    const Pairs pairs = ovalis::getFlattenedLibraryList(list);
    const std::set<std::string> defined = definitions();
    for (const ovalis::TStringPair& pair : pairs)
        require(defined.contains(pair.get<0>() + "\n" + pair.get<1>()),
                "a pair is no definition of the files");
    std::string again;
    require(ovalis::getFlattenedLibraryList(file, &again) == pairs,
            "a file is flattened to something else when it is loaded again");
    require(again == messages, "a file has something else to tell when it is loaded again");
    for (oa::oaLibDefList* each : lists())
        each->destroy();
    return messages.empty();
}

} // namespace fuzz
