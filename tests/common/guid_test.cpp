#include <oa/oaCommon.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace oaCommon;

TEST(Guid, IsSixteenBytes) {
    EXPECT_EQ(sizeof(Guid), 16u);
}

TEST(Guid, ComparesEveryByte) {
    const Guid original = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    EXPECT_TRUE(original == Guid(original));
    for (std::size_t i = 0; i < sizeof(Guid); ++i) {
        unsigned char bytes[sizeof(Guid)];
        std::memcpy(bytes, &original, sizeof(Guid));
        bytes[i] ^= 0x80;
        Guid other;
        std::memcpy(&other, bytes, sizeof(Guid));
        EXPECT_TRUE(original != other) << i;
        EXPECT_FALSE(original == other) << i;
    }
}

TEST(Guid, OfTheBaseInterfaceIsItsId) {
    EXPECT_TRUE(IBase::getId() == IID_IBase);
}
