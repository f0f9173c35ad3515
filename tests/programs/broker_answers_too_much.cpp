// A broker that sends the text EXTRA behind its answer to the command COMMAND.

#include "broker_pipes.h"

int main(int count, char** values) {
    BrokerPipes pipes(count, values);
    const int command = std::stoi(setting("COMMAND", "4"));
    while (const auto request = pipes.next()) {
        pipes.write(plainAnswer(*request) + (request->command == command ? setting("EXTRA") : ""));
    }
    return 0;
}
