#pragma once

#include <algorithm>

#include <ovalis/pcell.h>
#include <ovalis/xml.h>

#include "support/library_fixture.h"

namespace ovalis::test {

/// An evaluator that draws one square, as wide as the parameter "size".
class SquarePcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    oa::oaPcellDef* getPcellDef() override { return new oa::oaPcellDef(this); } // for onUnbind()
    void getName(oa::oaString& name) override { name = "square"; }
    void onBind(oa::oaDesign*, oa::oaPcellDef*) override {}
    void onUnbind(oa::oaDesign*, oa::oaPcellDef* def) override { delete def; }
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override {
        oa::oaParam size;
        design->findParam("size", size);
        oa::oaRect::create(oa::oaBlock::create(design), 1, 2,
                           oa::oaBox(0, 0, size.getIntVal(), size.getIntVal()));
    }
    void onRead(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override { return 0; }
};

/// Gives each test a library "lib" with designs of all kinds.
class DescribedLibrary : public LibraryTest {
protected:
    DescribedLibrary() : evaluator_(new SquarePcell), link_(oa::oaPcellLink::create(evaluator_)) {}
    ~DescribedLibrary() override {
        closeLibrary();
        link_->destroy();
    }

    static oa::oaScalarName name(const char* text) {
        return oa::oaScalarName(oa::oaNativeNS(), text);
    }

    oa::oaBlock* newBlock(const char* cell) {
        return oa::oaBlock::create(&design(cell, "layout", 'w'));
    }
    static void finish(oa::oaBlock* block) { finish(block->getDesign()); }
    static void finish(oa::oaDesign* design) {
        design->save();
        design->close();
    }

    void makeTech();
    /// "leaf": every kind of shape and property, and connections.
    void makeLeaf();
    /// "middle": a single instance of "leaf", an array and a vector.
    void makeMiddle();
    /// "square": a pcell of the evaluator above.
    void makeSquare();
    /// "macro": a component of a script macro, which nobody has evaluated.
    void makeMacro();
    /// "top": instances of the others and of a cell that is missing.
    void makeTop();
    /// "notes": a cell view without a design, with a file.
    void makeNotes();

    void makeAll() {
        makeTech();
        makeLeaf();
        makeMiddle();
        makeSquare();
        makeMacro();
        makeTop();
        makeNotes();
        reopen();
        lib().getAccess(oa::oacReadLibAccess);
    }

    /// `text` with "DIR" in the place of the library's directory, and slashes in paths.
    std::string portable(std::string text) const {
        for (std::size_t at = 0; (at = text.find(" path=\"", at)) != std::string::npos; ++at) {
            const std::size_t end = text.find("\"/>\n", at);
            std::replace(text.begin() + at, text.begin() + end, '\\', '/');
        }
        const std::string directory = pathOf("lib");
        for (std::size_t at; (at = text.find(directory)) != std::string::npos;) {
            text.replace(at, directory.size(), "DIR");
        }
        return text;
    }

private:
    SquarePcell* evaluator_; // belongs to the link
    oa::oaPcellLink* link_;
};

} // namespace ovalis::test
