#include "platform/text.h"

namespace platform {

std::vector<std::string> utf8Arguments(int count, char** values) {
    return std::vector<std::string>(values, values + count);
}

} // namespace platform
