// Libraries that the other system's build has written, and damaged ones.
//
// data/linux and data/windows were made by `ovalis export` of examples/components/spiral_39n and
// wilkinson_100g, data/vias/linux and data/vias/windows by make_via_library, each by one build.

#include "description.h"
#include "via_library.h"

#include <ovalis/core.h>
#include <ovalis/library.h>

#include "support/files.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace {

using namespace ovalis::test;

/// A copy of a library of the source tree, for its locks need a place where one may write.
class Libraries : public testing::Test {
protected:
    std::string copyOf(const std::string& library) const {
        std::filesystem::create_directories((directory.path() / library).parent_path());
        std::filesystem::copy(sourceTree() / "tests/exchange/data" / library,
                              directory.path() / library, std::filesystem::copy_options::recursive);
        return directory.str() + "/" + library;
    }

    TemporaryDirectory directory;
};

TEST_F(Libraries, HoldTheSameWhicheverSystemWroteThem) {
    const std::string made = directory.str() + "/made";
    for (const char* sample : {"spiral_39n", "wilkinson_100g"}) {
        const auto component = sourceTree() / "examples/components" / sample / "component.json";
        const ProgramResult exported =
            runProgram(builtProgram("ovalis"), {"export", utf8(component), "--lib", made});
        ASSERT_EQ(exported.exitCode, 0) << exported.errors;
    }
    const std::string expected = describeLibrary(made);
    EXPECT_NE(expected.find(" pcell SKRPcell\n  macro spiral_39nArtwork\n"), std::string::npos);
    EXPECT_NE(expected.find(" pcell PSNPcell\n"), std::string::npos);
    EXPECT_EQ(describeLibrary(copyOf("linux")), expected);
    EXPECT_EQ(describeLibrary(copyOf("windows")), expected);
}

TEST_F(Libraries, HoldTheSameViasWhicheverSystemWroteThem) {
    const std::string made = directory.str() + "/made";
    makeViaLibrary(made);
    const std::string expected = describeViaLibrary(made);
    EXPECT_NE(expected.find("\nStdVia array at 1100,2000 R0 box 1076 1976 1126 2024 pin pin\n"),
              std::string::npos)
        << expected;
    for (const char* system : {"linux", "windows"}) {
        const std::string copy = copyOf("vias/" + std::string(system));
        EXPECT_EQ(describeViaLibrary(copy), expected) << system;
        EXPECT_EQ(readText(copy + "/tech.db"), readText(made + "/tech.db")) << system;
    }
}

TEST_F(Libraries, SayWhichSystemMadeThem) {
    for (const auto& [library, word] :
         {std::pair("linux", "Unix"), std::pair("windows", "Windows"),
          std::pair("vias/linux", "Unix"), std::pair("vias/windows", "Windows")})
        EXPECT_NE(readText(copyOf(library) + "/.oalib")
                      .find("origFileSystem=\"" + std::string(word) + "\""),
                  std::string::npos);
}

class DamagedDesign : public Libraries {
protected:
    /// The error on opening the design with these bytes.
    std::string errorFor(const std::string& bytes) const {
        writeText(file, bytes);
        try {
            ovalis::openDesign(*lib, "spiral_39n", "layout", false)->close();
        } catch (const ovalis::Exception& error) {
            return error.what();
        }
        return "no error";
    }

    /// True for an error that names the file, whichever way the system writes its path.
    bool namesTheFile(std::string error) const {
        std::replace(error.begin(), error.end(), '\\', '/');
        return error.find("linux/spiral_39n/layout/layout.oa' ") != std::string::npos;
    }

    const std::string path = copyOf("linux");
    const std::string file = path + "/spiral_39n/layout/layout.oa";
    const std::string sound = readText(file);
    const ovalis::LibPtr lib = ovalis::openLib(path, false, "damaged");
};

TEST_F(DamagedDesign, IsRefusedWithAnErrorThatNamesTheFile) {
    for (std::size_t i = 0; i < sound.size(); i += 61) {
        std::string bytes = sound;
        bytes[i] = static_cast<char>(bytes[i] ^ 0x10);
        const std::string error = errorFor(bytes);
        ASSERT_TRUE(namesTheFile(error)) << i << ": " << error;
    }
}

TEST_F(DamagedDesign, IsRefusedWhereverItIsCut) {
    for (std::size_t length = 1; length < sound.size(); length += 97) {
        const std::string error = errorFor(sound.substr(0, length));
        ASSERT_TRUE(namesTheFile(error)) << length << ": " << error;
    }
}

TEST_F(DamagedDesign, OpensAgainOnceItIsWhole) {
    errorFor(sound.substr(0, 100));
    EXPECT_EQ(errorFor(sound), "no error");
}

} // namespace
