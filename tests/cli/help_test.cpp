#include <gtest/gtest.h>

#include "workplace.h"

namespace cli::test {
namespace {

using ovalis::test::readText;
using ovalis::test::sourceTree;

/// "cache-list.md" as the words of a command.
std::vector<std::string> wordsOf(const std::string& page) {
    std::istringstream names(page.substr(0, page.size() - 3));
    std::vector<std::string> words;
    for (std::string word; std::getline(names, word, '-');)
        words.push_back(word);
    return words;
}

/// What is indented below a heading of a help, with what is there again behind it.
std::string sectionOf(const std::string& help, const std::string& heading) {
    const std::size_t begin = help.find("\n" + heading + ":\n");
    return begin == std::string::npos ? "" : help.substr(begin + heading.size() + 3);
}

TEST(Help, OfTheProgramNamesEveryCommand) {
    const Outcome help = ovalisProgram({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.talk, "");
    const std::string commands = sectionOf(help.out, "Commands");
    for (const auto& [page, text] : helpPages())
        if (wordsOf(page).size() == 1) {
            EXPECT_NE(("\n" + commands).find("\n  " + wordsOf(page)[0] + " "), std::string::npos)
                << page;
        }
}

TEST(Help, OfEachCommandHasItsUsageStatusesAndAnExample) {
    for (const auto& [page, text] : helpPages()) {
        std::vector<std::string> arguments = wordsOf(page);
        std::string command = "ovalis";
        for (const std::string& word : arguments)
            command += " " + word;
        arguments.push_back("--help");
        const Outcome help = ovalisHere(arguments);
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.talk, "");
        EXPECT_TRUE(sectionOf(help.out, "Usage").starts_with("  " + command)) << help.out;
        EXPECT_NE(sectionOf(help.out, "Exit status"), "") << help.out;
        EXPECT_NE(sectionOf(help.out, "Examples").find("  $ " + command), std::string::npos)
            << help.out;
    }
}

TEST(Help, IsReadOnATerminalWithoutItsMarks) {
    const Outcome help = ovalisHere({"hash", "--help"});
    EXPECT_TRUE(help.out.starts_with(
        "Tell the identity of an evaluated pcell.\n"
        "\n"
        "Usage:\n"
        "  ovalis hash DIR CELL VIEW [--param NAME=VALUE]... [--libs FILE] [--explain]\n"
        "\n"
        "Arguments:\n"
        "  DIR   Directory of the library\n"
        "  CELL  Cell of the library\n"
        "  VIEW  View of the cell\n"
        "\n"
        "Options:\n"
        "  -h, --help          Tell this and exit\n"
        "  --param NAME=VALUE  A parameter; may be given several times\n"
        "  --libs FILE         Top library list; lib.defs in the library's directory without\n"
        "  --explain           Show the bytes that it is made from\n"
        "\n"
        "The identity names the entry of the cache; nothing is evaluated. It is the\n"))
        << help.out;
    EXPECT_EQ(help.out.find("```"), std::string::npos);
    EXPECT_EQ(help.out.find("]("), std::string::npos);
}

TEST(Help, IsWhatThePagesOfTheDocumentationSay) {
    std::map<std::string, std::string> pages;
    for (const auto& entry :
         std::filesystem::directory_iterator(sourceTree() / "docs" / "commands"))
        pages[ovalis::test::utf8(entry.path().filename())] = readText(entry.path());
    const std::map<std::string, std::string> helps = helpPages();
    for (const auto& [page, text] : helps)
        EXPECT_EQ(pages[page], text) << page << ": scripts/docs writes the pages anew";
    for (const auto& [page, text] : pages)
        EXPECT_TRUE(helps.contains(page)) << page << " is the page of no command";
}

TEST(Help, HasPagesThatTheIndexNames) {
    const std::string index = readText(sourceTree() / "docs" / "command.md");
    for (const auto& [page, text] : helpPages())
        EXPECT_NE(index.find("(commands/" + page + ")"), std::string::npos) << page;
}

} // namespace
} // namespace cli::test
