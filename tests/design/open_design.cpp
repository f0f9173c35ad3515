// open_design <library> <cell> <mode> [<ready>]: opens a layout as another process and says how
// that went. With a file to make as a sign that it is ready, it waits with the design open until it
// is killed.

#include <oa/oaDesignDB.h>

#include "platform/file.h"
#include "platform/text.h"

#include <chrono>
#include <iostream>
#include <string>
#include <thread>

using namespace oa;

namespace {

std::string open(const std::string& cell, char mode) {
    try {
        const oaNativeNS ns;
        const oaDesign* design =
            oaDesign::open(oaScalarName(ns, "elsewhere"), oaScalarName(ns, cell.c_str()),
                           oaScalarName(ns, "layout"), mode);
        if (!design)
            return "missing";
        const oaBlock* block = design->getTopBlock();
        return "open, " + std::to_string(block ? block->getShapes().getCount() : 0) + " shapes";
    } catch (const oaDMError& error) {
        return error.getMsgId() == oacCannotLockDatabase ? "locked" : std::string(error.getMsg());
    }
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() < 4)
        return 2;
    try {
        oaLib* lib = oaLib::open(oaScalarName(oaNativeNS(), "elsewhere"), arguments[1].c_str());
        std::cout << open(arguments[2], arguments[3].at(0)) << std::flush;
        if (arguments.size() > 4) {
            platform::File(arguments[4], platform::OpenMode::write).close();
            std::this_thread::sleep_for(std::chrono::seconds(120));
        }
        lib->close();
        return 0;
    } catch (const oaException& error) {
        std::cout << error.getMsg() << std::flush;
        return 1;
    }
}
