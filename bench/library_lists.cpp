// Goal: library definition files of a large site. 100 files with 1,000 definitions each, included
// by one, are loaded and listed. Anchors: the same files read and split into words, without and
// with the list that is the result. None of the libraries is there, and their directory is looked
// into.

#include <ovalis/library_list.h>

#include "clock.h"
#include "platform/file.h"
#include "platform/path.h"
#include "scratch_directory.h"
#include "workloads.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

constexpr int kFiles = 100;
constexpr int kDefinitions = 1000;

void write(const std::string& path, const std::string& text) {
    platform::File file(path, platform::OpenMode::write);
    file.write(text.data(), text.size());
    file.close();
}

std::string threeDigits(int number) {
    const std::string text = std::to_string(number);
    return std::string(3 - text.size(), '0') + text;
}

/// What a benchmark found: how many definitions, with how many characters.
struct Found {
    std::size_t definitions = 0;
    std::size_t characters = 0;

    void add(std::string_view name, std::string_view path) {
        ++definitions;
        characters += name.size() + path.size();
    }
    friend bool operator==(const Found&, const Found&) = default;
};

/// Writes the files and answers what is in them.
Found writeLists(const bench::ScratchDirectory& directory) {
    Found found;
    std::string top;
    for (int i = 0; i < kFiles; ++i) {
        const std::string file = "group_" + threeDigits(i) + ".defs";
        std::string text;
        for (int j = 0; j < kDefinitions; ++j) {
            const std::string name = "lib_" + threeDigits(i) + "_" + threeDigits(j);
            const std::string path = "./libraries/" + name;
            text.append("DEFINE ").append(name).append(" ").append(path).append("\n");
            found.add(name, path);
        }
        write(directory / file, text);
        top.append("INCLUDE ./").append(file).append("\n");
    }
    write(directory / "lib.defs", top);
    platform::createDirectory(directory / "libraries");
    return found;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view nextWord(std::string_view& line) {
    std::size_t begin = 0;
    while (begin < line.size() && isBlank(line[begin]))
        ++begin;
    std::size_t end = begin;
    while (end < line.size() && !isBlank(line[end]))
        ++end;
    const std::string_view word = line.substr(begin, end - begin);
    line.remove_prefix(end);
    return word;
}

/// Hands the name and the path of each definition to `take`.
template <class Take>
void split(const std::string& file, Take& take) {
    const std::string text = platform::readFile(file);
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const std::string_view keyword = nextWord(line);
        const std::string_view first = nextWord(line);
        if (keyword == "DEFINE")
            take(first, nextWord(line));
        else if (keyword == "INCLUDE")
            split(platform::joinPath(platform::parentPath(file), first), take);
    }
}

void require(const Found& found, const Found& expected) {
    if (!(found == expected))
        throw std::runtime_error("a benchmark found something else than was written");
}

void destroyLists() {
    namespace oa = OpenAccess_4;
    std::vector<oa::oaLibDefList*> lists;
    oa::oaIter<oa::oaLibDefList> walk(oa::oaLibDefList::getLibDefLists());
    while (oa::oaLibDefList* list = walk.getNext())
        lists.push_back(list);
    for (oa::oaLibDefList* list : lists)
        list->destroy();
}

double openAndFlatten(const std::string& file, const Found& expected) {
    const double start = bench::now();
    const auto* list = ovalis::openLibraryList(file, nullptr);
    const std::list<ovalis::TStringPair> pairs = ovalis::getFlattenedLibraryList(list);
    Found found;
    for (const ovalis::TStringPair& pair : pairs)
        found.add(pair.get<0>(), pair.get<1>());
    const double seconds = bench::now() - start;
    require(found, expected);
    destroyLists();
    return seconds;
}

double readAndSplit(const std::string& file, const Found& expected) {
    const double start = bench::now();
    Found found;
    const auto take = [&](std::string_view name, std::string_view path) { found.add(name, path); };
    split(file, take);
    const double seconds = bench::now() - start;
    require(found, expected);
    return seconds;
}

double readAndList(const std::string& file, const Found& expected) {
    const double start = bench::now();
    std::list<ovalis::TStringPair> pairs;
    const auto take = [&](std::string_view name, std::string_view path) {
        pairs.emplace_back(std::string(name), std::string(path));
    };
    split(file, take);
    Found found;
    for (const ovalis::TStringPair& pair : pairs)
        found.add(pair.get<0>(), pair.get<1>());
    const double seconds = bench::now() - start;
    require(found, expected);
    return seconds;
}

} // namespace

int main(int count, char** arguments) {
    ovalis::initOa();
    const bench::ScratchDirectory directory;
    const Found expected = writeLists(directory);
    const std::string file = directory / "lib.defs";
    bench::runInTurns({{"openAndFlatten", [&] { return openAndFlatten(file, expected); }},
                       {"readAndSplit", [&] { return readAndSplit(file, expected); }},
                       {"readAndList", [&] { return readAndList(file, expected); }}},
                      count, arguments);
}
