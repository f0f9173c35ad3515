// open_tech <library> <mode> [<ready>]: opens or creates the technology of a library, says how that
// went, and closes everything. With a file to make as a sign that it is ready, it waits with the
// technology open until it is killed.

#include <oa/oaTechDB.h>

#include "platform/file.h"
#include "platform/text.h"

#include <chrono>
#include <iostream>
#include <string>
#include <thread>

using namespace oa;

namespace {

std::string openTech(oaLib* lib, const std::string& mode) {
    try {
        if (mode == "create")
            oaTech::create(lib);
        else
            oaTech::open(lib, mode.at(0));
        return "open";
    } catch (const oaDMError& error) {
        return error.getMsgId() == oacCannotLockDatabase ? "locked" : std::string(error.getMsg());
    }
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() < 3)
        return 2;
    try {
        oaLib* lib = oaLib::open(oaScalarName(oaNativeNS(), "elsewhere"), arguments[1].c_str());
        std::cout << openTech(lib, arguments[2]) << std::flush;
        if (arguments.size() > 3) {
            platform::File(arguments[3], platform::OpenMode::write).close();
            std::this_thread::sleep_for(std::chrono::seconds(120));
        }
        lib->close();
        return 0;
    } catch (const oaException& error) {
        std::cout << error.getMsg() << std::flush;
        return 1;
    }
}
