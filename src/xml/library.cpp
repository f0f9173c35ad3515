// Libraries, cells, cell views and their files.

#include <ovalis/diagnostics.h>

#include "core/names.h"
#include "xml/describe.h"

namespace ovalis {

namespace {

/// Takes back an opening at scope end.
template <class Opened>
class Opening {
public:
    explicit Opening(Opened* object) : object_(object) {}
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
    ~Opening() {
        if (object_ != nullptr) {
            object_->close();
        }
    }

    Opened* get() const { return object_; }

private:
    Opened* object_;
};

void describeTech(XmlText& text, const oa::oaLib& lib) {
    oa::oaScalarName name;
    lib.getName(name);
    if (oa::oaTech::exists(name)) {
        const Opening<oa::oaTech> tech(oa::oaTech::open(name, 'r'));
        describe(text, *tech.get());
    }
}

void describeDesign(XmlText& text, const oa::oaCellView& cellView) {
    oa::oaScalarName lib;
    oa::oaScalarName cell;
    oa::oaScalarName view;
    cellView.getLib()->getName(lib);
    cellView.getCell()->getName(cell);
    cellView.getView()->getName(view);
    if (!oa::oaDesign::exists(lib, cell, view)) {
        return;
    }
    oa::oaDesign* design = oa::oaDesign::open(lib, cell, view, 'r');
    if (design == nullptr) {
        return;
    }
    if (design->getMode() == 'r') {
        const OaDesignSAC held(design);
        describe(text, *held);
    } else { // somebody edits it, and alone decides when it is saved
        const Opening<oa::oaDesign> held(design);
        describe(text, *held.get());
    }
}

} // namespace

void describe(XmlText& text, const oa::oaDMContainer& container) {
    text.put("<dmContainer>\n");
    oa::oaIter<oa::oaDMFile> files(container.getDMFiles());
    while (const oa::oaDMFile* file = files.getNext()) {
        oa::oaString name;
        oa::oaString path;
        file->getName(name);
        file->getPath(path);
        text.attribute("\t<dmFile name=\"", name);
        text.attribute(" path=\"", path);
        text.put("/>\n");
    }
    text.put("</dmContainer>\n");
}

void describe(XmlText& text, const oa::oaCellView& cellView) {
    const oa::oaView& view = *cellView.getView();
    oa::oaString viewType;
    view.getViewType()->getName(viewType);
    text.attribute("<cellView viewName=\"", nativeName(view));
    text.lineAttribute("      viewType=\"", viewType);
    text.lineAttribute("      hasProp=\"", cellView.hasProp() != 0);
    text.lineAttribute("      hasAppDef=\"", cellView.hasAppDef() != 0);
    text.put(">\n");
    describe(text, static_cast<const oa::oaDMContainer&>(cellView));
    describeDesign(text, cellView);
    text.put("</cellView>\n");
}

void describe(XmlText& text, const oa::oaCell& cell) {
    text.attribute("<cell name=\"", nativeName(cell));
    text.lineAttribute("      hasProp=\"", cell.hasProp() != 0);
    text.lineAttribute("      hasAppDef=\"", cell.hasAppDef() != 0);
    text.put(">\n");
    describe(text, static_cast<const oa::oaDMContainer&>(cell));
    describeAll(text, cell.getCellViews());
    text.put("</cell>\n");
}

void describe(XmlText& text, const oa::oaLib& lib) {
    text.attribute("<lib name=\"", nativeName(lib));
    text.put(">\n");
    describeTech(text, lib);
    describeAll(text, lib.getCells());
    text.put("</lib>\n");
}

} // namespace ovalis
