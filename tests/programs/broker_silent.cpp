// A broker that reads requests and answers none.

#include "broker_pipes.h"

int main(int count, char** values) {
    BrokerPipes pipes(count, values);
    while (pipes.next()) {
    }
    return 0;
}
