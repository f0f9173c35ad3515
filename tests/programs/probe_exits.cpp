// A probe with the exit code EXIT, which notes that it ran and what it was told.

#include <string>

#include "broker_pipes.h"

int main(int count, char** values) {
    std::string note;
    for (const std::string& argument : platform::utf8Arguments(count, values)) {
        note += argument + "|";
    }
    appendToFile(setting("STARTS"), note + setting("NOTE") + "\n");
    return std::stoi(setting("EXIT", "0"));
}
