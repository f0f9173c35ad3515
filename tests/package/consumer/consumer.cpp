// Makes a library at the path given and prints what is in it, as an application would.

#include <ovalis/core.h>
#include <ovalis/library.h>

#include <exception>
#include <iostream>

namespace {

void makeAndList(const char* path) {
    const ovalis::LibPtr library = ovalis::createLib(path, "consumer");
    const ovalis::ScopedLibAccess access(*library, oa::oaLibAccess(oa::oacWriteLibAccess), 1);
    ovalis::createCell(*library, "amplifier");
    ovalis::createCell(*library, "divider");
    for (const std::string& name : ovalis::getCellNames(*library)) {
        std::cout << "cell " << name << '\n';
    }
}

void openWhatIsMissing(const std::string& path) {
    try {
        const ovalis::LibPtr library = ovalis::openLib(path, false, "absent");
        std::cout << "opened a library that is not there\n";
    } catch (const std::runtime_error&) {
        std::cout << "no library\n";
    }
}

} // namespace

int main(int count, char** values) {
    if (count != 2) {
        return 2;
    }
    try {
        makeAndList(values[1]);
        openWhatIsMissing(std::string(values[1]) + "-absent");
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
