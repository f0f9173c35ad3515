// make_via_library DIR: makes the library with vias that builds for several systems exchange.

#include "via_library.h"

#include "platform/text.h"

#include <oa/oaDesignDB.h>

#include <iostream>

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() != 2) {
        std::cerr << "usage: make_via_library DIR\n";
        return 2;
    }
    try {
        makeViaLibrary(arguments[1]);
        return 0;
    } catch (const oa::oaException& error) {
        std::cerr << "make_via_library: " << error.getMsg() << '\n';
        return 1;
    }
}
