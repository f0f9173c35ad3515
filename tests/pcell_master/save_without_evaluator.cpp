// save_without_evaluator <library> <cell>: draws a rectangle into a super master whose evaluator
// this process does not know, saves it, and says what the pcell observers were told.

#include <oa/oaDesignDB.h>

#include "platform/text.h"

#include <iostream>

using namespace oa;

namespace {

class Telling : public oaPcellObserver {
public:
    Telling() : oaPcellObserver(1) {}
    void onError(oaDesign*, const oaString& msg, oaPcellErrorTypeEnum kind) override {
        std::cout << kind << " " << msg << std::flush;
    }
};

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() != 3)
        return 2;
    try {
        const Telling telling;
        const oaNativeNS ns;
        oaLib* lib = oaLib::open(oaScalarName(ns, "elsewhere"), arguments[1].c_str());
        oaDesign* design =
            oaDesign::open(oaScalarName(ns, "elsewhere"), oaScalarName(ns, arguments[2].c_str()),
                           oaScalarName(ns, "layout"), 'a');
        oaRect::create(oaBlock::create(design), 1, 2, oaBox(0, 0, 10, 20));
        design->save();
        design->close();
        lib->close();
        return 0;
    } catch (const oaException& error) {
        std::cout << error.getMsg() << std::flush;
        return 1;
    }
}
