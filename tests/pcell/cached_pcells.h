#pragma once

#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <optional>
#include <sstream>

#include "support/files.h"
#include "support/library_fixture.h"

namespace ovalis::test {

inline oa::oaScalarName native(const char* name) {
    return {oa::oaNativeNS(), name};
}

inline oa::oaParamArray paramsOf(int width, const char* model) {
    oa::oaParamArray params;
    params.append(oa::oaParam("w", width));
    params.append(oa::oaParam("model", oa::oaString(model)));
    return params;
}

/// The width of the only shape of a submaster; none when it has no content.
inline std::optional<int> drawnWidth(const oa::oaDesign* submaster) {
    if (submaster == nullptr || submaster->getTopBlock() == nullptr) {
        return std::nullopt;
    }
    oa::oaIter<oa::oaShape> shapes(submaster->getTopBlock()->getShapes());
    oa::oaBox box;
    shapes.getNext()->getBBox(box);
    EXPECT_EQ(shapes.getNext(), nullptr);
    return box.right();
}

/// Notes what the database tells about pcells, a line for each.
class Notes : public oa::oaPcellObserver {
public:
    Notes() : oaPcellObserver(1) {}

    void onPreEval(oa::oaDesign* design, oa::oaPcellDef*) override { note("before", design); }
    void onPostEval(oa::oaDesign* design, oa::oaPcellDef*) override { note("after", design); }
    void onError(oa::oaDesign* design, const oa::oaString& message,
                 oa::oaPcellErrorTypeEnum kind) override {
        note(fromOa(message) + (kind == oa::oacPcellEvalError ? " (evaluation)" : " (other)"),
             design);
    }

    std::string text() const { return text_.str(); }

private:
    void note(const std::string& what, const oa::oaDesign* design) {
        oa::oaParam width;
        design->findParam("w", width);
        text_ << what << ": " << width.getIntVal() << '\n';
    }

    std::ostringstream text_;
};

/// A library with a pcell, the definition list that names it, and the cache beside that list.
class CachedPcells : public LibraryTest {
protected:
    explicit CachedPcells(const char* kind = "PSNPcell") {
        oa::oaDesign& master = design("resistor", "layout", 'w');
        master.defineSuperMaster(oa::oaPcellLink::getPcellDef(kind), paramsOf(1, "poly"));
        master.save();
        master.close();
        listLibraries("lib.defs");
    }

    ~CachedPcells() override { forgetLists(); }

    /// Makes a list with the library the top one, and its cache.
    void listLibraries(const std::string& name) {
        writeText(filePath(name), "DEFINE lib größe_lib\n");
        oa::oaLibDefList::openLibs(pathOf(name).c_str());
        std::filesystem::create_directory(cache());
    }

    static void forgetLists() {
        oa::oaIter<oa::oaLibDefList> lists(oa::oaLibDefList::getLibDefLists());
        while (oa::oaLibDefList* list = lists.getNext()) {
            list->destroy();
        }
    }

    /// The directory of the test is that of its lists.
    std::filesystem::path cache() const { return filePath("").parent_path() / ".vexPcells"; }

    /// The file for a width; what the database stores of it is not asked.
    std::filesystem::path cached(int width, const char* model = "poly") const {
        return cache() /
               identifySubmaster("lib", "resistor", "layout", paramsOf(width, model)).hash;
    }

    /// Puts a bar of that width into the file.
    void put(int width, const std::filesystem::path& file) {
        oa::oaDesign& content = design("content", "layout", 'w');
        oa::oaRect::create(oa::oaBlock::create(&content), 1, 1, oa::oaBox(0, 0, width, 10));
        const std::u8string path = file.u8string();
        oa::PcellFile pcells(reinterpret_cast<const char*>(path.c_str()));
        pcells.open("w");
        pcells.append(&content);
        pcells.close();
        content.purge();
    }
    void put(int width) { put(width, cached(width)); }

    static oa::oaDesign* open(int width) {
        oa::oaParamArray given;
        given.append(oa::oaParam("w", width));
        return oa::oaDesign::open(native("lib"), native("resistor"), native("layout"), given);
    }

    oa::oaDesign& superMaster() { return design("resistor", "layout", 'r'); }

    /// What is told when the file for width 7 has these bytes, after which there is no content.
    std::string toldOf(std::string_view bytes) {
        writeText(cached(7), bytes);
        return toldOfFailure();
    }

    /// The same for the file as it is.
    std::string toldOfFailure() {
        oa::oaDesign& master = superMaster();
        const Notes notes;
        EXPECT_EQ(drawnWidth(open(7)), std::nullopt);
        oa::oaIter<oa::oaDesign> made(master.getSubMasters());
        oa::oaDesign* const submaster = made.getNext();
        EXPECT_TRUE(submaster != nullptr && submaster->getTopBlock() == nullptr);
        std::string told = notes.text();
        master.purge();
        return told;
    }

    Notes& notes() { return notes_; }

    const std::string missing =
        "before: 7\nThe pcell submaster cannot be produced. (evaluation): 7\n";

private:
    Notes notes_;
};

} // namespace ovalis::test
