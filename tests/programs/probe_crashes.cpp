// A probe that ends as a program does that has gone wrong.

int main() {
    __builtin_trap(); // ends as a crash on every system, which abort() does not
}
