// The other end of the pipes for the goal of brokered evaluation: one read, one write, nothing
// else. It takes every block for one request, which is true for blocks that a pipe passes on in one
// piece.

#include "platform/pipe.h"
#include "platform/text.h"

#include <cstring>
#include <string>

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    const auto open = [&](std::size_t place, platform::PipeDirection direction) {
        platform::PipeEnd end = platform::pipeEndFromText(arguments.at(place));
        platform::StreamDescriptor descriptor = platform::openDescriptor(end, direction);
        return platform::openStream(descriptor, direction);
    };
    platform::PipeStream requests(open(1, platform::PipeDirection::read));
    platform::PipeStream answers(open(2, platform::PipeDirection::write));
    char block[4096];
    while (const std::size_t size = requests.read(block, sizeof block)) {
        if (block[0] == 0) {
            answers.write(":", 1);
        } else if (block[0] == 3) {
            answers.write("\1", 1);
        } else {
            // An evaluation that failed: the status, and a message that tells the request's size.
            const std::string digits = std::to_string(1'000'000 + size);
            const std::string text = "bench: Error[7]: " + digits;
            answers.write(std::string(1, '\0').append(text.c_str(), text.size() + 1).data(),
                          text.size() + 2);
        }
    }
}
