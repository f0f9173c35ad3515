// A probe that ends as a program does that has gone wrong.

#include <cstdlib>

int main() {
    std::abort();
}
