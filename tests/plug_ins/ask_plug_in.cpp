// Prints the answer of the plug-in named on the command line, or why there is none.

#include "common/component.h"

#include <iostream>

int main(int count, char** values) {
    if (count != 2)
        return 2;
    try {
        const oaCommon::SPtr<test::IAnswer> plugIn(values[1]);
        std::cout << plugIn->answer() << '\n';
    } catch (const oaCommon::IException& error) {
        std::cout << error.getMsg() << '\n';
    }
    return 0;
}
