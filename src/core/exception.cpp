#include <ovalis/core.h>

namespace ovalis {

namespace {

// An exception of a plug-in may come without a text.
const char* textOf(const oaCommon::IException& error) {
    const char* text = error.getMsg();
    return text != nullptr ? text : "";
}

} // namespace

Exception::Exception(const oa::oaException& error)
    : std::runtime_error(fromOa(error.getMsg())),
      msgId_(static_cast<std::int32_t>(error.getMsgId())) {}

Exception::Exception(const oaCommon::IException& error)
    : std::runtime_error(textOf(error)), msgId_(static_cast<std::int32_t>(error.getMsgId())) {}

Exception::~Exception() = default;

} // namespace ovalis
