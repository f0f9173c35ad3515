// Prints each argument on its own line, the variable it is asked for on the other stream, and
// ends with the number of arguments.

#include <cstdlib>
#include <iostream>

int main(int count, char** values) {
    for (int i = 1; i < count; ++i) {
        std::cout << '[' << values[i] << "]\n";
    }
    const char* value = std::getenv("OVALIS_TEST_VALUE");
    std::cerr << (value != nullptr ? value : "unset") << '\n';
    return count - 1;
}
