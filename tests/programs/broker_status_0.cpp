// A broker that takes every type and fails every evaluation with the text FAILURE, or with its own
// process number and the name of the cell.

#include "broker_pipes.h"

int main(int count, char** values) {
    BrokerPipes pipes(count, values);
    while (const auto request = pipes.next()) {
        pipes.write(plainAnswer(*request));
    }
    return 0;
}
