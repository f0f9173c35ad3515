// A broker that is gone before it was asked anything.

int main() {
    return 0;
}
