// The other process of the library tests: does what its first argument says to the path that its
// second names. Exit status 0: done, 1: refused, 2: failed. An action that begins with "hold" or
// "briefly" makes the file that the third argument names, and waits to be killed or for a second.

#include "dm/src/edit_lock.h"
#include "oa/oaDM.h"
#include "platform/file.h"
#include "platform/text.h"

#include <chrono>
#include <iostream>
#include <thread>

using namespace OpenAccess_4;

namespace {

oaLib* openLibrary(const std::string& path) {
    return oaLib::open(oaScalarName(oaNativeNS(), "child"), path.c_str());
}

int tell(bool granted, const std::vector<std::string>& arguments) {
    if (!granted)
        return 1;
    const bool holds = arguments[1].starts_with("hold");
    if (!holds && !arguments[1].starts_with("briefly"))
        return 0;
    platform::File(arguments.at(3), platform::OpenMode::write).close();
    std::this_thread::sleep_for(holds ? std::chrono::seconds(120) : std::chrono::seconds(1));
    return holds ? 2 : 0;
}

int run(const std::vector<std::string>& arguments) {
    const std::string& action = arguments.at(1);
    const std::string& path = arguments.at(2);
    if (action.ends_with("edit")) {
        const auto lock = impl::EditLock::tryAcquire(path);
        return tell(lock.has_value(), arguments);
    }
    const bool write = action.ends_with("write");
    return tell(openLibrary(path)->getAccess(write ? oacWriteLibAccess : oacReadLibAccess),
                arguments);
}

} // namespace

int main(int count, char** values) {
    try {
        oaDMInit();
        return run(platform::utf8Arguments(count, values));
    } catch (const oaException& error) {
        std::cerr << error.getMsg() << '\n';
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return 2;
}
