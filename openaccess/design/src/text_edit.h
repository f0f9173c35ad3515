#pragma once

#include "design/src/shape_edit.h"

namespace OpenAccess_4::impl {

/// The style of a text or a text display, whichever it is.
TextStyle& textStyleOf(const oaObject* text);

/// Lets `change` set fields of the style of a text or a text display.
template <class Change>
void changeTextStyle(oaObject* text, Change change) {
    DesignDatabase& database = edited(text);
    const TableBase& table = tableOf(text);
    database.shapes.shrink(table, slotOf(text));
    change(textStyleOf(text));
    database.shapes.grow(table, slotOf(text));
}

inline std::uint8_t withFlag(std::uint8_t flags, std::uint8_t flag, oaBoolean value) {
    return std::uint8_t(value ? flags | flag : flags & ~flag);
}

inline std::uint8_t textFlags(oaBoolean overbar, oaBoolean visible, oaBoolean drafting) {
    return std::uint8_t((overbar ? TextStyle::kOverbar : 0) | (visible ? TextStyle::kVisible : 0) |
                        (drafting ? TextStyle::kDrafting : 0));
}

} // namespace OpenAccess_4::impl
