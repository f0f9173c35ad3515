#include "support/temporary_directory.h"

#include "platform/file.h"

#include <chrono>
#include <random>
#include <thread>

namespace ovalis::test {

namespace fs = std::filesystem;

std::string utf8(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

namespace {

/// Files of programs that have just ended may still be in use. (remove_all() of the standard
/// library would never return when one of them goes between its being listed and its being
/// removed.)
void removeWhenFree(const std::string& directory) {
    constexpr int attempts = 50;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        try {
            return platform::removeTree(directory);
        } catch (const platform::SystemFailure&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
}

} // namespace

TemporaryDirectory::TemporaryDirectory() {
    std::random_device random;
    do {
        const std::string name = "ovalis-" + std::to_string(random()) + std::to_string(random());
        path_ = fs::temp_directory_path() / name;
    } while (!fs::create_directory(path_));
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    // Tests may leave read-only directories behind, whose entries could not be removed.
    for (fs::recursive_directory_iterator it(path_, ignored), end; !ignored && it != end;
         it.increment(ignored)) {
        if (it->is_directory(ignored) && !it->is_symlink(ignored))
            fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    removeWhenFree(str());
}

std::string TemporaryDirectory::str() const {
    return utf8(path_);
}

} // namespace ovalis::test
