#pragma once

#include "platform/process.h"

#include <string>

namespace platform {

/// What a process leaves behind, in a lock file or the name of a file, so that others can judge
/// later whether it still lives.
struct ProcessMark {
    std::string host;     // hostName()
    std::string system;   // systemName()
    std::string process;  // its number as a text
    std::string instance; // processInstance(); empty when it was not noted
};

enum class ProcessFate {
    alive,
    dead,
    unknown, // of another host or system, or not a process number
};

/// Judges a process. One that has the number of a later process is dead when its instance tells.
ProcessFate fateOf(const ProcessMark& mark);

} // namespace platform
