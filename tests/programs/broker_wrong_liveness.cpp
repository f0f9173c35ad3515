// A broker that shows wrongly that it is there, after GOOD proper answers, and goes on as if
// nothing were wrong.

#include "broker_pipes.h"

int main(int count, char** values) {
    BrokerPipes pipes(count, values);
    int good = std::stoi(setting("GOOD", "0"));
    while (const auto request = pipes.next()) {
        const bool isWrong = request->command == 0 && good-- <= 0;
        pipes.write(isWrong ? ";" : plainAnswer(*request));
    }
    return 0;
}
