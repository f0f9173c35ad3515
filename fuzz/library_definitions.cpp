#include "library_definitions.h"

#include "oa/oaDM.h"
#include "platform/file.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace fuzz {

namespace oa = OpenAccess_4;

namespace {

constexpr char separator = 0x1e;

[[noreturn]] void fail(const std::string& what) {
    std::cerr << "fuzz: " << what << std::endl;
    std::abort();
}

void require(bool holds, const char* what) {
    if (!holds)
        fail(what);
}

/// Counts syntax errors, and reads every message.
class Warnings : public oa::oaVersionedObserver<oa::oaLibDefList> {
public:
    Warnings() : oaVersionedObserver(1) {}

    oa::oaBoolean onLoadWarnings(oa::oaLibDefList* list, const oa::oaString& message,
                                 oa::oaLibDefListWarningTypeEnum type) override {
        require(list != nullptr, "a warning has no list");
        require(message.getLength() > 0, "a warning has no text");
        syntaxErrors += type == oa::oacSyntaxErrorLibDefListWarning;
        return true;
    }

    std::size_t syntaxErrors = 0;
};

std::vector<oa::oaLibDefListMem*> membersOf(const oa::oaLibDefList* list) {
    std::vector<oa::oaLibDefListMem*> members;
    oa::oaIter<oa::oaLibDefListMem> walk(list->getMembers());
    while (oa::oaLibDefListMem* member = walk.getNext())
        members.push_back(member);
    return members;
}

std::string describe(const oa::oaLibDefListMem* member) {
    oa::oaString path;
    if (member->getType() == oa::oacLibDefListRefType) {
        static_cast<const oa::oaLibDefListRef*>(member)->getRefListPath(path);
        return std::string("include ") + static_cast<const char*>(path);
    }
    const auto* definition = static_cast<const oa::oaLibDef*>(member);
    oa::oaScalarName name;
    oa::oaString text;
    oa::oaDMAttrArray attributes;
    definition->getLibName(name);
    name.get(text);
    definition->getLibPath(path);
    std::string all = std::string(text) + '\n' + static_cast<const char*>(path);
    definition->getLibWritePath(path);
    all += '\n' + std::string(path) + '\n' + std::to_string(definition->getLibMode());
    definition->getLibAttributes(attributes);
    for (oa::oaUInt4 i = 0; i < attributes.getNumElements(); ++i)
        all += '\n' + std::string(attributes[i].getName()) + '\n' +
               static_cast<const char*>(attributes[i].getValue());
    return all;
}

std::vector<std::string> describe(const oa::oaLibDefList* list) {
    std::vector<std::string> all;
    for (const oa::oaLibDefListMem* member : membersOf(list))
        all.push_back(describe(member));
    return all;
}

/// True when the order of definitions means something to other statements.
bool refersBack(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) { return char(c | 0x20); });
    return text.find("undefine") != std::string::npos || text.find("assign") != std::string::npos;
}

/// Two files in a directory of their own.
class DefinitionTrial {
public:
    bool run(std::string first, std::string second) {
        write("lib.defs", first);
        write("more.defs", second);
        Warnings warnings;
        oa::oaLibDefList::openLibs(path("lib.defs").c_str());
        oa::oaLibDefList* list = oa::oaLibDefList::getTopList();
        require(list != nullptr, "a list that was opened is not the top list");
        requireSaved(list, first);
        requireSaved(oa::oaLibDefList::get(path("more.defs").c_str(), 'r'), second);
        edit(list, refersBack(first));
        list->saveAs(path("edited.defs").c_str());
        require(describe(oa::oaLibDefList::get(path("edited.defs").c_str(), 'r')) == describe(list),
                "an edited list is another one after it was saved");
        const bool accepted = warnings.syntaxErrors == 0;
        forget();
        return accepted;
    }

private:
    std::string path(const std::string& name) const { return directory_.str() + "/" + name; }

    void write(const std::string& name, const std::string& text) const {
        platform::File file(path(name), platform::OpenMode::write);
        file.write(text.data(), text.size());
        file.close();
    }

    void requireSaved(oa::oaLibDefList* list, const std::string& text) const {
        list->saveAs(path("copy.defs").c_str());
        require(platform::readFile(path("copy.defs")) == text,
                "a list is not saved as it was written");
    }

    static void edit(oa::oaLibDefList* list, bool inPlace) {
        std::vector<oa::oaLibDefListMem*> members = membersOf(list);
        for (std::size_t i = 0; i < members.size(); i += 2)
            members[i]->destroy();
        members = membersOf(list);
        for (std::size_t i = 0; i < members.size(); i += 3)
            if (members[i]->getType() == oa::oacLibDefType)
                change(*static_cast<oa::oaLibDef*>(members[i]));
        if (inPlace || members.empty())
            return;
        members.back()->moveToFirst();
        members.front()->moveAfter(members.back());
        members.front()->moveToLast();
    }

    static void change(oa::oaLibDef& definition) {
        definition.setLibPath("another place");
        definition.setLibMode(oa::oacReadOnlyLibMode);
        definition.removeLibAttribute("TMP");
        definition.addLibAttribute("colour", "light red");
    }

    void forget() const {
        std::vector<oa::oaLibDefList*> lists;
        oa::oaIter<oa::oaLibDefList> walk(oa::oaLibDefList::getLibDefLists());
        while (oa::oaLibDefList* list = walk.getNext())
            lists.push_back(list);
        for (oa::oaLibDefList* list : lists)
            list->destroy();
        platform::removeTree(path("edited.defs"));
    }

    ovalis::test::TemporaryDirectory directory_;
};

} // namespace

bool tryLibraryDefinitions(std::span<const std::byte> input) {
    static DefinitionTrial trial; // fuzzers start from the same directory for every input
    std::string text(reinterpret_cast<const char*>(input.data()), input.size());
    std::ranges::replace_if(
        text, [](char c) { return c == '/' || c == '\\'; }, '_');
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::size_t next = std::min(end + 1, text.size());
    return trial.run(text.substr(0, end), text.substr(next));
}

} // namespace fuzz
