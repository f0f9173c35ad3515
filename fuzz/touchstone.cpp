#include "touchstone.h"

#include "component/json_node.h"
#include "component/touchstone.h"
#include "platform/file.h"
#include "support/temporary_directory.h"

#include <cstdlib>
#include <iostream>

namespace fuzz {

namespace {

void require(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << "fuzz: " << what << std::endl;
    std::abort();
}

} // namespace

bool tryTouchstone(std::span<const std::byte> input) {
    static const ovalis::test::TemporaryDirectory directory;
    const unsigned ports = input.empty() ? 0 : std::to_integer<unsigned>(input[0]) % 10;
    const auto text = input.empty() ? input : input.subspan(1);
    const std::string path = directory.str() + "/a" +
                             (ports == 0 ? std::string(".ts") : ".s" + std::to_string(ports) + "p");
    platform::File file(path, platform::OpenMode::write);
    file.write(text.data(), text.size());
    file.close();
    try {
        const component::Touchstone found = component::readTouchstone(path);
        require(found.ports > 0, "a file has no ports");
        require(ports == 0 || found.ports == ports, "a file has other ports than its name says");
        require(found.impedances.size() == found.ports, "a port has no reference impedance");
        require(found.portNames.size() == found.ports, "a port has no place for its name");
        return true;
    } catch (const component::InputError&) {
        return false;
    }
}

} // namespace fuzz
