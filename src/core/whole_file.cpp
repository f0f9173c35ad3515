#include <ovalis/core.h>

namespace ovalis {

namespace {

constexpr oa::oaUInt8 largestSize = 0xFFFFFFFF80000000U;

void requireExisting(const oa::oaFile& file, const std::string& path) {
    if (!file.exists()) {
        throw std::runtime_error("File " + path + " not found");
    }
}

} // namespace

std::string readoaFile(const std::string& path) {
    oa::oaFile file(toOa(path));
    requireExisting(file, path);
    file.open('r');
    const oa::oaUInt8 size = file.getSize();
    if (size > largestSize) {
        throw std::runtime_error("File " + path + " too big to handle");
    }
    std::string content(static_cast<std::size_t>(size), '\0');
    // The count is cut to 32 bits on purpose: the database reads no more in one call.
    file.read(reinterpret_cast<oa::oaByte*>(content.data()), static_cast<oa::oaUInt4>(size));
    file.close();
    return content;
}

int writeoaFile(const std::string& path, const std::string& content, bool append) {
    oa::oaFile file(toOa(path));
    requireExisting(file, path);
    file.open(append ? 'a' : 'w');
    const oa::oaUInt4 written = file.write(reinterpret_cast<const oa::oaByte*>(content.data()),
                                           static_cast<oa::oaUInt4>(content.size()));
    file.close();
    return static_cast<int>(written);
}

} // namespace ovalis
