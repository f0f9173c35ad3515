#include "tools/broker/result_directory.h"

#include "platform/atomic_file.h"
#include "platform/file.h"
#include "platform/private_directory.h"

#include <chrono>
#include <random>
#include <thread>

namespace broker {

ResultDirectory::ResultDirectory() {
    const std::string target = platform::joinPath(platform::temporaryDirectory(), "pcellBroker");
    platform::removeStaleTemporaries(target);
    do
        directory = platform::temporaryPathFor(target);
    while (!platform::createPrivateDirectory(directory));
}

std::string ResultDirectory::resultPath(const std::string& token) const {
    return broker::resultPath(directory, token);
}

void ResultDirectory::remove() noexcept {
    removeDirectory(directory);
}

std::string resultPath(const std::string& directory, const std::string& token) {
    return platform::joinPath(directory, token + ".pcell");
}

std::string unguessableToken() {
    constexpr char digits[] = "0123456789abcdef";
    std::random_device random;
    std::string token;
    while (token.size() < 32) {
        for (unsigned value = random(), place = 0; place < 8; ++place, value /= 16)
            token += digits[value % 16];
    }
    return token;
}

// An evaluation may write its result meanwhile, and a system may find only behind the call that the
// directory is not empty: what counts is that it is gone.
void removeDirectory(const std::string& directory) noexcept {
    constexpr int attempts = 50;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        try {
            platform::removeTree(directory);
            if (!platform::exists(directory))
                return;
        } catch (const std::exception&) {
            // Something in it is in use: the next attempt may find it closed.
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

} // namespace broker
