#include "dm/src/library_marker.h"

#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::HasSubstr;

namespace {

class MarkerTest : public DMTest {
protected:
    std::string markerOf(const std::string& library) { return get(library + "/.oalib"); }

    /// What opening a library whose marker holds `text` throws.
    Thrown openingWith(const std::string& text) {
        if (!platform::exists(path("lib")))
            platform::createDirectory(path("lib"));
        put("lib/.oalib", text);
        return thrownBy([&] { open("lib", "lib")->close(); });
    }
};

std::string marker(const std::string& attributes) {
    return "<Library DMSystem=\"oaDMFileSys\"><oaDMFileSys " + attributes + "/></Library>";
}

} // namespace

TEST_F(MarkerTest, IsWrittenAsOtherProgramsExpectIt) {
    createFor("unix", "Unix");
    EXPECT_EQ(markerOf("unix"), "<?xml version=\"1.0\"?>\n"
                                "\n"
                                "<Library DMSystem=\"oaDMFileSys\">\n"
                                "    <oaDMFileSys libReadOnly=\"No\"\n"
                                "                 origFileSystem=\"Unix\"/>\n"
                                "</Library>\n");
    createFor("windows", "Windows");
    EXPECT_THAT(markerOf("windows"), HasSubstr("origFileSystem=\"Windows\"/>"));
}

TEST_F(MarkerTest, SaysWhichSystemTheLibraryWasMadeOn) {
    create("lib");
    const bool isWindows = platform::pathSeparator() == '\\';
    EXPECT_THAT(markerOf("lib"),
                HasSubstr(isWindows ? "origFileSystem=\"Windows\"" : "origFileSystem=\"Unix\""));
}

TEST_F(MarkerTest, IsReadInEverySpellingOfXml) {
    for (const std::string& text :
         {marker("libReadOnly=\"No\" origFileSystem=\"Unix\""),
          "\xef\xbb\xbf<?xml version='1.0' encoding='utf-8'?>\r\n<!-- x -->\r\n" +
              marker("libReadOnly = 'No'\r\n origFileSystem='Windows'") + "\r\n<!-- end -->",
          marker(""), marker("origFileSystem=\"VMS\""), marker("extra=\"a &lt;&#65;&amp;&quot;\""),
          std::string("<Library DMSystem=\"oaDMFileSys\"><other><x/></other>"
                      "<oaDMFileSys libReadOnly=\"Yes\"></oaDMFileSys></Library>")})
        EXPECT_EQ(openingWith(text).id, 0U) << text;
}

TEST_F(MarkerTest, KnowsCharactersByNumber) {
    create("lib")->close();
    put("lib/.oalib", marker("origFileSystem=\"Unix\" a=\"&#65;&#228;&#x20AC;&#x1f600;\""));
    oaLib* lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    oaDMAttrArray attributes;
    lib->getAttributes(attributes);
    EXPECT_EQ(attributes[2].getValue(), "A\u00e4\u20ac\U0001f600");
}

TEST_F(MarkerTest, OfAnUnknownSystemCanBeWrittenAgain) {
    create("lib")->close();
    put("lib/.oalib", marker("origFileSystem=\"VMS\""));
    oaLib* lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    oaDMAttrArray attributes;
    lib->getAttributes(attributes);
    lib->setAttributes(attributes);
    EXPECT_THAT(markerOf("lib"), HasSubstr("origFileSystem=\"VMS\""));
}

TEST_F(MarkerTest, NamesTheFileAndWhatIsWrongWithIt) {
    const struct {
        std::string text;
        const char* reason;
    } broken[] = {
        {"", "line 1: expected '<' before the end of the file"},
        {"garbage", "line 1: expected '<'"},
        {"<Lib/>", "the file holds <Lib> instead of <Library>"},
        {"<Library/>", "<Library> has no attribute 'DMSystem'"},
        {"<Library DMSystem=\"oaDMFileSys\"/>", "<Library> has no element <oaDMFileSys>"},
        {"<Library DMSystem=\"oaDMTurbo\"><oaDMTurbo/></Library>",
         "the design-management system 'oaDMTurbo' is not supported"},
        {marker("libReadOnly=\"yes\""),
         "attribute 'libReadOnly' is 'yes' instead of 'Yes' or 'No'"},
        {marker("a=\"1\" a=\"2\""), "line 1: attribute 'a' stands twice"},
        {marker("a=1"), "line 1: expected a value in quotes"},
        {marker("a"), "line 1: expected '='"},
        {marker("a=\"&nope;\""), "line 1: unknown character entity"},
        {marker("a=\"&#0;\""), "line 1: unknown character entity"},
        {marker("a=\"&#xd800;\""), "line 1: unknown character entity"},
        {marker("a=\"&#x110000;\""), "line 1: unknown character entity"},
        {marker("a=\"x"), "line 1: the closing quote of a value is missing"},
        {"\n\n<Library DMSystem=\"oaDMFileSys\">\n<oaDMFileSys>",
         "line 4: expected '<' before the end of the file"},
        {"<Library></Other>", "line 1: the end of <Library> is missing"},
        {"<a/><b/>", "line 1: unexpected text after the end of <a>"},
        {"<!-- x", "line 1: '-->' is missing"},
    };
    const std::string file = platform::joinPath(platform::absolutePath(path("lib")), ".oalib");
    for (const auto& [text, reason] : broken) {
        const Thrown thrown = openingWith(text);
        EXPECT_EQ(thrown.id, oacLibCouldNotOpen) << text;
        EXPECT_EQ(thrown.text, "Library 'lib' cannot be opened from '" +
                                   platform::absolutePath(path("lib")) + "': file '" + file +
                                   "' is damaged: " + reason + ".");
    }
}

TEST_F(MarkerTest, IsRefusedOrUnderstoodWhateverItsLength) {
    createFor("lib", "Windows")->close();
    const std::string whole = markerOf("lib");
    for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
        const Thrown thrown = openingWith(whole.substr(0, length));
        EXPECT_EQ(thrown.id, oacLibCouldNotOpen) << length;
    }
    EXPECT_EQ(openingWith(whole.substr(0, whole.size() - 1)).id, 0U) << "only the line end is gone";
}

TEST_F(MarkerTest, IsNotNestedWithoutEnd) {
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<a>";
    EXPECT_THAT(openingWith(deep).text, HasSubstr("elements are nested too deeply"));
}

TEST_F(MarkerTest, SurvivesReadingAndWritingWithForeignAttributes) {
    impl::LibraryMarker before;
    EXPECT_EQ(before.set("project", "a <b> & \"c\"\n"), "");
    before.write(path("marker"));
    const impl::LibraryMarker after = impl::LibraryMarker::read(path("marker"));
    EXPECT_EQ(after.attributes(), before.attributes());
    EXPECT_EQ(after.text(), before.text());
}
