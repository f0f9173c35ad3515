// A broker that sends its answers byte by byte, with a pause before each.

#include <chrono>
#include <thread>

#include "broker_pipes.h"

int main(int count, char** values) {
    BrokerPipes pipes(count, values);
    while (const auto request = pipes.next()) {
        for (const char byte : plainAnswer(*request)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            pipes.write(std::string(1, byte));
        }
    }
    return 0;
}
