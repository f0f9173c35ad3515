#include "support/temporary_directory.h"

#include <random>

namespace ovalis::test {

namespace fs = std::filesystem;

std::string utf8(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

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
    fs::remove_all(path_, ignored);
}

std::string TemporaryDirectory::str() const {
    return utf8(path_);
}

} // namespace ovalis::test
