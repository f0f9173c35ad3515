// A broker that exits where it would have to send more than BYTES bytes in all.

#include "broker_pipes.h"

int main(int count, char** values) {
    BrokerPipes pipes(count, values);
    std::size_t left = std::stoul(setting("BYTES", "0"));
    while (const auto request = pipes.next()) {
        const std::string answer = plainAnswer(*request);
        pipes.write(answer.substr(0, left));
        if (answer.size() > left) {
            return 0;
        }
        left -= answer.size();
    }
    return 0;
}
