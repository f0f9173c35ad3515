#pragma once

#include "design/src/text_edit.h"

/// Defines the members that oaText and oaTextDisplay have in common.
#define OA_TEXT_STYLE_MEMBERS(Class)                                                               \
    void Class::getOrigin(oaPoint& origin) const {                                                 \
        origin = textStyleOf(this).origin;                                                         \
    }                                                                                              \
    oaTextAlign Class::getAlignment() const {                                                      \
        return oaTextAlignEnum(textStyleOf(this).alignment);                                       \
    }                                                                                              \
    oaOrient Class::getOrient() const {                                                            \
        return oaOrientEnum(textStyleOf(this).orient);                                             \
    }                                                                                              \
    oaFont Class::getFont() const {                                                                \
        return oaFontEnum(textStyleOf(this).font);                                                 \
    }                                                                                              \
    oaDist Class::getHeight() const {                                                              \
        return textStyleOf(this).height;                                                           \
    }                                                                                              \
    oaBoolean Class::hasOverbar() const {                                                          \
        return (textStyleOf(this).flags & TextStyle::kOverbar) != 0;                               \
    }                                                                                              \
    oaBoolean Class::isVisible() const {                                                           \
        return (textStyleOf(this).flags & TextStyle::kVisible) != 0;                               \
    }                                                                                              \
    oaBoolean Class::isDrafting() const {                                                          \
        return (textStyleOf(this).flags & TextStyle::kDrafting) != 0;                              \
    }                                                                                              \
    void Class::setOrigin(const oaPoint& origin) {                                                 \
        changeTextStyle(this, [&](TextStyle& style) { style.origin = origin; });                   \
    }                                                                                              \
    void Class::setAlignment(oaTextAlign alignment) {                                              \
        changeTextStyle(this,                                                                      \
                        [&](TextStyle& style) { style.alignment = std::uint8_t(alignment); });     \
    }                                                                                              \
    void Class::setOrient(oaOrient orient) {                                                       \
        changeTextStyle(this, [&](TextStyle& style) { style.orient = std::uint8_t(orient); });     \
    }                                                                                              \
    void Class::setFont(oaFont font) {                                                             \
        changeTextStyle(this, [&](TextStyle& style) { style.font = std::uint8_t(font); });         \
    }                                                                                              \
    void Class::setHeight(oaDist height) {                                                         \
        changeTextStyle(this, [&](TextStyle& style) { style.height = height; });                   \
    }                                                                                              \
    void Class::setOverbar(oaBoolean overbar) {                                                    \
        changeTextStyle(this, [&](TextStyle& style) {                                              \
            style.flags = withFlag(style.flags, TextStyle::kOverbar, overbar);                     \
        });                                                                                        \
    }                                                                                              \
    void Class::setVisible(oaBoolean visible) {                                                    \
        changeTextStyle(this, [&](TextStyle& style) {                                              \
            style.flags = withFlag(style.flags, TextStyle::kVisible, visible);                     \
        });                                                                                        \
    }                                                                                              \
    void Class::setDrafting(oaBoolean drafting) {                                                  \
        changeTextStyle(this, [&](TextStyle& style) {                                              \
            style.flags = withFlag(style.flags, TextStyle::kDrafting, drafting);                   \
        });                                                                                        \
    }
