#pragma once

#include <oa/oaBase.h>

#include <gtest/gtest.h>

#include <bit>
#include <vector>

namespace test {

template <class Enum>
struct Value {
    Enum value;
    int number;
    const char* name;
};

/// Every value keeps its number and its name, and is found by its name.
template <class Wrapper, class Enum>
void expectValues(const std::vector<Value<Enum>>& values) {
    for (const Value<Enum>& expected : values) {
        EXPECT_EQ(static_cast<int>(expected.value), expected.number) << expected.name;
        EXPECT_EQ(Wrapper(expected.value).getName(), expected.name);
        EXPECT_EQ(Wrapper(oa::oaString(expected.name)), expected.value) << expected.name;
    }
    EXPECT_THROW(Wrapper(oa::oaString("no such name")), oa::oaError);
    // Only then can a variable of the enumeration hold one value more at all.
    if (!std::has_single_bit(values.size())) {
        EXPECT_THROW(Wrapper(static_cast<Enum>(values.size())).getName(), oa::oaError);
    }
}

} // namespace test
