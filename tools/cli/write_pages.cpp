// ovalis_pages DIR: writes the help of every command as a page into a directory.

#include <iostream>

#include "cli/command_line.h"
#include "platform/file.h"
#include "platform/path.h"
#include "platform/text.h"

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() != 2) {
        std::cerr << "usage: ovalis_pages DIR\n";
        return 2;
    }
    try {
        for (const auto& [name, text] : cli::helpPages()) {
            platform::File file(platform::joinPath(arguments[1], name), platform::OpenMode::write);
            file.write(text.data(), text.size());
            file.close();
        }
    } catch (const std::exception& error) {
        std::cerr << "ovalis_pages: " << error.what() << '\n';
        return 2;
    }
    return 0;
}
