// save_forever_design <library> <ready>: opens the layout of "cell" for appending, over and over
// adds a rectangle on each of two layers and saves. <ready> is made before the first save.

#include <oa/oaDesignDB.h>

#include "platform/file.h"
#include "platform/text.h"

#include <string>

using namespace oa;

int main(int count, char** values) {
    const auto arguments = platform::utf8Arguments(count, values);
    const oaNativeNS ns;
    oaLib::open(oaScalarName(ns, "lib"), arguments.at(1).c_str());
    oaDesign* design = oaDesign::open(oaScalarName(ns, "lib"), oaScalarName(ns, "cell"),
                                      oaScalarName(ns, "layout"), 'a');
    oaBlock* block = design->getTopBlock();
    if (!block)
        block = oaBlock::create(design);
    platform::File(arguments.at(2), platform::OpenMode::write).close();
    for (;;) {
        for (const oaLayerNum layer : {1u, 2u})
            oaRect::create(block, layer, oavPurposeNumberDrawing, oaBox(0, 0, 10, 10));
        design->save();
    }
}
