#include "platform/process_mark.h"

#include <charconv>

namespace platform {

ProcessFate fateOf(const ProcessMark& mark) {
    if (mark.host != hostName() || mark.system != systemName())
        return ProcessFate::unknown;
    ProcessId process = 0;
    const char* end = mark.process.data() + mark.process.size();
    const auto [read, error] = std::from_chars(mark.process.data(), end, process);
    if (error != std::errc() || read != end)
        return ProcessFate::unknown;
    if (!isProcessAlive(process))
        return ProcessFate::dead;
    return mark.instance.empty() || mark.instance == processInstance(process) ? ProcessFate::alive
                                                                              : ProcessFate::dead;
}

} // namespace platform
