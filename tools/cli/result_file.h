#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/atomic_file.h"

namespace cli {

/// The file that a command writes its result to.
///
/// An ordinary file is there as a whole with `finish`; until then, and without it, what was there
/// before stays. Devices, pipes and the names in `/dev`, which may stand for a file that others
/// write to as well, are written to as they are.
class ResultFile {
public:
    /// @throws platform::SystemFailure  the file cannot be written
    explicit ResultFile(const std::string& path);

    void write(const void* data, std::size_t size);
    void finish();

private:
    std::optional<platform::AtomicFile> replacement_;
    platform::File file_;
};

} // namespace cli
