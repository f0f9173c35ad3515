#include <oa/oaBase.h>

#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

using namespace oa;
using ovalis::test::TemporaryDirectory;

namespace {

class Dir : public testing::Test {
protected:
    Dir() {
        for (const char* name : {"b.txt", "a.oa", "c"})
            std::ofstream(directory.path() / name) << "content";
        std::filesystem::create_directory(directory.path() / "sub");
    }

    oaString path(const char* name) const { return (directory.str() + "/" + name).c_str(); }
    oaString root() const { return directory.str().c_str(); }

    static std::vector<std::string> namesOf(oaDirIter iter) {
        std::vector<std::string> names;
        oaString name;
        while (iter.getNext(name))
            names.emplace_back(name);
        return names;
    }

    template <class Body>
    static oaUInt4 refusal(Body body) {
        try {
            body();
        } catch (const oaError& error) {
            return error.getMsgId();
        }
        return 0;
    }

    TemporaryDirectory directory;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(Dir, IsCreatedInOneThatExists) {
    const oaDir dir(path("new"));
    EXPECT_FALSE(dir.exists());
    dir.create();
    EXPECT_TRUE(dir.exists() && dir.isEmpty());
    EXPECT_EQ(refusal([&] { dir.create(); }), oaUInt4(oacDirCreateFailed));
    EXPECT_EQ(refusal([&] { oaDir(path("no/new")).create(); }), oaUInt4(oacDirCreateFailed));
    EXPECT_EQ(refusal([&] { oaDir(path("c")).create(); }), oaUInt4(oacDirCreateFailed));
}

TEST_F(Dir, KnowsWhatItIs) {
    EXPECT_TRUE(oaDir(root()).exists());
    EXPECT_FALSE(oaDir(root()).isEmpty());
    EXPECT_FALSE(oaDir(path("c")).exists());
    EXPECT_FALSE(oaDir(root()).isCWD());
    EXPECT_TRUE(oaDir(".").isCWD());
    EXPECT_EQ(refusal([&] { oaDir(path("missing")).isEmpty(); }), oaUInt4(oacUnableToOpenDir));
}

TEST_F(Dir, IsDestroyedWithItsContent) {
    std::ofstream(directory.path() / "sub" / "deep") << "content";
    oaDir(path("sub")).destroy();
    EXPECT_FALSE(oaDir(path("sub")).exists());
    EXPECT_TRUE(oaFile(path("c")).exists());
}

TEST_F(Dir, IsWalkedInTheOrderOfTheNames) {
    EXPECT_EQ(namesOf(oaDirIter(root())), (Names{"a.oa", "b.txt", "c", "sub"}));
    EXPECT_EQ(namesOf(oaDirIter(root(), oacFilesDirIterMode)), (Names{"a.oa", "b.txt", "c"}));
    EXPECT_EQ(namesOf(oaDirIter(root(), oacDirsDirIterMode)), (Names{"sub"}));
}

TEST_F(Dir, IsWalkedByWildcard) {
    const std::pair<const char*, Names> rows[] = {
        {"*", {"a.oa", "b.txt", "c", "sub"}},
        {"*.*", {"a.oa", "b.txt"}},
        {"?", {"c"}},
        {"?.*", {"a.oa", "b.txt"}},
        {"*b*", {"b.txt", "sub"}},
        {"sub", {"sub"}},
        {"*.t?t", {"b.txt"}},
        {"", {}},
        {"s*u*b*", {"sub"}},
    };
    for (const auto& [wildcard, names] : rows)
        EXPECT_EQ(namesOf(oaDirIter(root(), wildcard)), names) << wildcard;
    EXPECT_EQ(namesOf(oaDirIter(root(), "*b*", oacDirsDirIterMode)), (Names{"sub"}));
}

TEST_F(Dir, WalkSeesNewNamesAfterAReset) {
    oaDirIter iter(root(), "new*");
    std::ofstream(directory.path() / "new") << "content";
    oaString name("before");
    EXPECT_FALSE(iter.getNext(name));
    EXPECT_EQ(name, "before");
    iter.reset();
    EXPECT_TRUE(iter.getNext(name));
    EXPECT_EQ(name, "new");
    EXPECT_FALSE(iter.getNext(name));
}

TEST_F(Dir, WalkOfAMissingDirectoryNamesIt) {
    try {
        oaDirIter iter(path("missing"));
        FAIL();
    } catch (const oaError& error) {
        const std::string text(error.getMsg());
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacUnableToOpenDir));
        EXPECT_EQ(text.find("Directory '" + directory.str() + "/missing' cannot be opened: "), 0u)
            << text;
    }
}
