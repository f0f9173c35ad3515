#include "cli/result_file.h"

namespace cli {
namespace {

bool isOrdinary(const std::string& path) {
    if (platform::absolutePath(path).starts_with("/dev/"))
        return false;
    return platform::isFile(path) || !platform::exists(path);
}

} // namespace

ResultFile::ResultFile(const std::string& path) {
    if (!isOrdinary(path)) {
        file_ = platform::File(path, platform::OpenMode::write);
        return;
    }
    platform::removeStaleTemporaries(path);
    replacement_.emplace(path);
}

void ResultFile::write(const void* data, std::size_t size) {
    if (replacement_)
        replacement_->write(data, size);
    else
        file_.write(data, size);
}

void ResultFile::finish() {
    if (replacement_)
        replacement_->commit();
    else
        file_.close();
}

} // namespace cli
