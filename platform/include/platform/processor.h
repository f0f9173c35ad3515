#pragma once

namespace platform {

/// True when this processor has the instructions of SHA-256, and those of SSSE3 that go with them.
/// The processor is asked each time, which may cost a microsecond in a virtual machine.
bool hasSha256Instructions() noexcept;

} // namespace platform
