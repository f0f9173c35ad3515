#include "scratch_directory.h"

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/process.h"

namespace bench {

ScratchDirectory::ScratchDirectory() {
    const auto chosen = platform::environmentVariable("OVALIS_BENCH_DIRECTORY");
    path_ = chosen ? *chosen : platform::temporaryDirectory();
    path_ += "/ovalis-bench-" + std::to_string(platform::currentProcessId());
    platform::createDirectory(path_);
}

ScratchDirectory::~ScratchDirectory() {
    platform::removeTree(path_);
}

} // namespace bench
