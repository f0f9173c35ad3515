// open_tech <library> <mode> <then>: opens or creates the technology of a library, says how that
// went, and closes everything or dies with it open.

#include <oa/oaTechDB.h>

#include <cstdlib>
#include <iostream>
#include <string>

using namespace oa;

namespace {

std::string openTech(const char* path, const std::string& mode) {
    oaLib* lib = oaLib::open(oaScalarName(oaNativeNS(), "elsewhere"), path);
    try {
        if (mode == "create")
            oaTech::create(lib);
        else
            oaTech::open(lib, mode[0]);
        return "open";
    } catch (const oaDMError& error) {
        return error.getMsgId() == oacCannotLockDatabase ? "locked" : std::string(error.getMsg());
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count != 4)
        return 2;
    try {
        std::cout << openTech(arguments[1], arguments[2]) << std::flush;
    } catch (const oaException& error) {
        std::cout << error.getMsg() << std::flush;
        return 1;
    }
    if (std::string(arguments[3]) == "die")
        std::_Exit(0);
    oaLib::find(oaScalarName(oaNativeNS(), "elsewhere"))->close();
    return 0;
}
