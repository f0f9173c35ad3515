#include "platform/processor.h"

// In place of the function that asks the processor.
bool platform::hasSha256Instructions() noexcept {
    return false;
}
