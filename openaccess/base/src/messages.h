#pragma once

#include "oaException.h"

#include <span>

namespace OpenAccess_4::impl {

/// One message of a package: its id and the printf format of its text.
struct MessageFormat {
    oaUInt4 id;
    const oaChar* text;
};

/// The text of `id` in `formats`; null when there is none.
///
/// Every package keeps one table of formats, and its exception classes answer
/// getFormatString() with this function. A constructor fills in its message by
///     va_start(args, msgId);
///     setMsg(args);
/// where the virtual call reaches the class under construction.
inline const oaChar* findFormat(std::span<const MessageFormat> formats, oaUInt4 id) {
    for (const MessageFormat& format : formats) {
        if (format.id == id)
            return format.text;
    }
    return nullptr;
}

} // namespace OpenAccess_4::impl
