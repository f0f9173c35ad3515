#include "sparse_file.h"

#include <fstream>

namespace ovalis::test {

void makeSparseFile(const std::filesystem::path& path, std::uint64_t size) {
    std::ofstream{path};
    std::filesystem::resize_file(path, size);
}

} // namespace ovalis::test
