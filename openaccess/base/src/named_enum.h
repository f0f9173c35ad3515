#pragma once

#include "oaNamedEnum.h"

/// Defines the printable names of the enumeration `name`Enum, from value 0 on.
#define OA_ENUM_NAMES(name, ...)                                                                   \
    const impl::EnumInfo& enumInfo(name##Enum) {                                                   \
        static const oaString names[] = {__VA_ARGS__};                                             \
        static const impl::EnumInfo info = {#name, names, sizeof(names) / sizeof(names[0])};       \
        return info;                                                                               \
    }
