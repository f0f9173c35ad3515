#include <oa/oaBase.h>

#include "base/src/map_window.h"

#include "geometry_printers.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <vector>

using namespace oa;

namespace {

struct Bytes {
    explicit Bytes(oaUInt4 size, oaBoolean swap = false)
        : bytes(size, 0xee), data(bytes.data(), size, swap) {}

    std::vector<oaByte> bytes;
    oaPackedData data;
};

// What is written comes back, and takes exactly `size` bytes.
template <class T, class Write, class Read>
void expectRoundTrip(const T& value, oaUInt4 size, Write write, Read read) {
    for (const oaBoolean swap : {0, 1}) {
        Bytes all(size + 1, swap);
        oaUInt4 loc = 1;
        (all.data.*write)(loc, value);
        EXPECT_EQ(loc, size + 1);
        EXPECT_EQ(all.bytes[0], 0xee);
        T result{};
        loc = 1;
        (all.data.*read)(loc, result);
        EXPECT_EQ(loc, size + 1);
        EXPECT_EQ(result, value);

        Bytes tooSmall(size - 1, swap);
        loc = 0;
        EXPECT_THROW((tooSmall.data.*write)(loc, value), oaError);
        EXPECT_THROW((tooSmall.data.*read)(loc, result), oaError);
        EXPECT_EQ(loc, 0u);
    }
}

// The same for several values; those that do not fit are not written in part.
template <class T, class Write, class Read>
void expectArrayRoundTrip(const std::vector<T>& values, oaUInt4 size, Write write, Read read) {
    const oaUInt4 count = oaUInt4(values.size());
    for (const oaBoolean swap : {0, 1}) {
        Bytes all(size + 1, swap);
        oaUInt4 loc = 1;
        (all.data.*write)(loc, count, values.data());
        EXPECT_EQ(loc, size + 1);
        std::vector<T> result(values.size());
        loc = 1;
        (all.data.*read)(loc, count, result.data());
        EXPECT_EQ(loc, size + 1);
        EXPECT_EQ(result, values);

        Bytes tooSmall(size - 1, swap);
        const std::vector<oaByte> before = tooSmall.bytes;
        loc = 0;
        EXPECT_THROW((tooSmall.data.*write)(loc, count, values.data()), oaError);
        EXPECT_THROW((tooSmall.data.*read)(loc, count, result.data()), oaError);
        EXPECT_EQ(loc, 0u);
        EXPECT_EQ(tooSmall.bytes, before);
    }
}

} // namespace

TEST(PackedData, GivesBackEachKindOfValue) {
    using D = oaPackedData;
    expectRoundTrip<oaByte>(0xa5, 1, &D::writeByte, &D::readByte);
    expectRoundTrip<oaInt2>(-12345, 2, &D::writeInt2, &D::readInt2);
    expectRoundTrip<oaUInt2>(54321, 2, &D::writeUInt2, &D::readUInt2);
    expectRoundTrip<oaInt4>(-123456789, 4, &D::writeInt4, &D::readInt4);
    expectRoundTrip<oaUInt4>(0xfedcba98, 4, &D::writeUInt4, &D::readUInt4);
    expectRoundTrip<oaInt8>(std::numeric_limits<oaInt8>::min() + 1, 8, &D::writeInt8, &D::readInt8);
    expectRoundTrip<oaUInt8>(0xfedcba9876543210, 8, &D::writeUInt8, &D::readUInt8);
    expectRoundTrip<oaFloat>(-1.5f, 4, &D::writeFloat, &D::readFloat);
    expectRoundTrip<oaDouble>(1e-300, 8, &D::writeDouble, &D::readDouble);
    expectRoundTrip<oaTime>(5000000000LL, 8, &D::writeTime, &D::readTime);
    expectRoundTrip<oaPoint>(oaPoint(-7, 8), 8, &D::writePoint, &D::readPoint);
    expectRoundTrip<oaBox>(oaBox(1, 2, 3, -4), 16, &D::writeBox, &D::readBox);
    expectRoundTrip<oaString>(oaString("four"), 5, &D::writeString, &D::readString);
}

TEST(PackedData, GivesBackArraysOfEachKindOfValue) {
    using D = oaPackedData;
    expectArrayRoundTrip<oaInt2>({-1, 2}, 4, &D::writeInt2Array, &D::readInt2Array);
    expectArrayRoundTrip<oaUInt2>({1, 65535}, 4, &D::writeUInt2Array, &D::readUInt2Array);
    expectArrayRoundTrip<oaInt4>({-1, 2}, 8, &D::writeInt4Array, &D::readInt4Array);
    expectArrayRoundTrip<oaUInt4>({1, UINT_MAX}, 8, &D::writeUInt4Array, &D::readUInt4Array);
    expectArrayRoundTrip<oaInt8>({-1, 2}, 16, &D::writeInt8Array, &D::readInt8Array);
    expectArrayRoundTrip<oaUInt8>({1, 1ull << 63}, 16, &D::writeUInt8Array, &D::readUInt8Array);
    expectArrayRoundTrip<oaFloat>({-1.5f, 2}, 8, &D::writeFloatArray, &D::readFloatArray);
    expectArrayRoundTrip<oaDouble>({-1e300, 2}, 16, &D::writeDoubleArray, &D::readDoubleArray);
    expectArrayRoundTrip<oaPoint>({oaPoint(1, -2), oaPoint(3, 4)}, 16, &D::writePointArray,
                                  &D::readPointArray);
    expectArrayRoundTrip<oaBox>({oaBox(1, 2, 3, 4), oaBox(-5, 6, 7, 8)}, 32, &D::writeBoxArray,
                                &D::readBoxArray);
}

TEST(PackedData, WritesArraysAsTheirValuesOneByOne) {
    const oaUInt2 values[] = {0x0201, 0x0403, 0x0605};
    Bytes plain(6);
    Bytes swapped(6, true);
    oaUInt4 loc = 0;
    plain.data.writeUInt2Array(loc, 3, values);
    loc = 0;
    swapped.data.writeUInt2Array(loc, 3, values);
    EXPECT_EQ(plain.bytes, (std::vector<oaByte>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(swapped.bytes, (std::vector<oaByte>{2, 1, 4, 3, 6, 5}));
    plain.data.writeUInt2Array(loc = 6, 0, nullptr);
    EXPECT_EQ(loc, 6u);
    EXPECT_THROW(plain.data.readUInt2Array(loc = 0, UINT_MAX, nullptr), oaError);
    EXPECT_EQ(loc, 0u);
}

TEST(PackedData, WritesInTheOrderOfTheMachineOrTheOther) {
    Bytes plain(4);
    Bytes swapped(4, true);
    oaUInt4 loc = 0;
    plain.data.writeUInt4(loc, 0x04030201);
    loc = 0;
    swapped.data.writeUInt4(loc, 0x04030201);
    EXPECT_EQ(plain.bytes, (std::vector<oaByte>{1, 2, 3, 4}));
    EXPECT_EQ(swapped.bytes, (std::vector<oaByte>{4, 3, 2, 1}));
    swapped.data.swap() = false;
    oaUInt4 value = 0;
    loc = 0;
    swapped.data.readUInt4(loc, value);
    EXPECT_EQ(value, 0x01020304u);
}

TEST(PackedData, AlignsByteArraysToFour) {
    const oaByte text[] = {'a', 'b', 'c', 'd', 'e'};
    Bytes all(12);
    oaUInt4 loc = 0;
    all.data.writeByteArray(loc, 5, text);
    EXPECT_EQ(loc, 8u);
    all.data.writeUInt4(loc, 0x2a2a2a2a);
    EXPECT_EQ(all.bytes,
              (std::vector<oaByte>{'a', 'b', 'c', 'd', 'e', 0, 0, 0, '*', '*', '*', '*'}));
    oaByte result[5] = {};
    loc = 0;
    all.data.readByteArray(loc, 5, result);
    EXPECT_EQ(loc, 8u);
    EXPECT_EQ(std::vector<oaByte>(result, result + 5), std::vector<oaByte>(text, text + 5));
}

TEST(PackedData, EndsAnAlignedArrayWithTheData) {
    const oaByte text[] = {'a', 'b', 'c'};
    Bytes all(3);
    oaByte result[3] = {};
    oaUInt4 loc = 0;
    all.data.writeByteArray(loc, 3, text);
    EXPECT_EQ(loc, 3u);
    loc = 0;
    all.data.readByteArray(loc, 3, result);
    EXPECT_EQ(loc, 3u);
    all.data.writeByteArray(loc, 0, text);
    EXPECT_EQ(loc, 3u);
}

TEST(PackedData, LeavesBytesUnaligned) {
    const oaByte text[] = {'a', 'b', 'c'};
    Bytes all(6);
    oaUInt4 loc = 0;
    all.data.writeBytes(loc, 3, text);
    all.data.writeBytes(loc, 3, text);
    EXPECT_EQ(all.bytes, (std::vector<oaByte>{'a', 'b', 'c', 'a', 'b', 'c'}));
    oaByte result[2] = {};
    loc = 1;
    all.data.readBytes(loc, 2, result);
    EXPECT_EQ(loc, 3u);
    EXPECT_EQ(result[1], 'c');
}

TEST(PackedData, NeverLeavesItsBytes) {
    Bytes all(8);
    oaByte buffer[16] = {};
    oaUInt4 loc = 0;
    const std::function<void()> overruns[] = {
        [&] { all.data.readBytes(loc = 4, 5, buffer); },
        [&] { all.data.writeBytes(loc = 8, 1, buffer); },
        [&] { all.data.writeByteArray(loc = 0, 9, buffer); },
        [&] { all.data.readByteArray(loc = UINT_MAX, UINT_MAX, buffer); },
        [&] { all.data.readUInt4(loc = UINT_MAX, loc); },
        [&] { all.data.writeString(loc = 1, "1234567"); },
    };
    for (const auto& overrun : overruns)
        EXPECT_THROW(overrun(), oaError);
    EXPECT_EQ(all.bytes, std::vector<oaByte>(8, 0xee));
}

TEST(PackedData, TellsWhatDoesNotFit) {
    Bytes all(8);
    oaUInt4 loc = 6;
    try {
        all.data.writeUInt4(loc, 1);
        FAIL();
    } catch (const oaError& error) {
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacPackedDataOverrun));
        EXPECT_EQ(error.getMsg(), "4 bytes at position 6 do not fit into a window of 8 bytes.");
    }
    EXPECT_EQ(loc, 6u);
}

TEST(PackedData, RefusesATextWithoutAnEnd) {
    Bytes all(4);
    oaString text("before");
    oaUInt4 loc = 0;
    EXPECT_THROW(all.data.readString(loc, text), oaError);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(loc, 0u);
}

TEST(MapWindow, ShowsTheBytesOfItsOwner) {
    std::vector<oaByte> bytes(8, 0);
    oaMapFileWindow window = impl::MapWindowAccess::windowOver(bytes.data(), bytes.size());
    oaUInt4 loc = 4;
    window.data().writeUInt4(loc, 0x01010101);
    EXPECT_EQ(bytes, (std::vector<oaByte>{0, 0, 0, 0, 1, 1, 1, 1}));
    EXPECT_EQ(window.getSize(), 8u);
    EXPECT_EQ(window.getOffset(), 0u);
    EXPECT_EQ(window.getLoc(3), 3u);
    EXPECT_FALSE(window.getSwap());
    EXPECT_THROW(impl::MapWindowAccess::windowOver(bytes.data(), 1ull << 32), oaError);
}

TEST(MapWindow, KnowsWhatLiesInIt) {
    std::vector<oaByte> bytes(8);
    const oaMapFileWindow window = impl::MapWindowAccess::windowOver(bytes.data(), bytes.size());
    EXPECT_TRUE(window.isMapped());
    oaUInt4 loc = 99;
    EXPECT_FALSE(window.isMapped(1, 8, loc));
    EXPECT_FALSE(window.isMapped(5, 4, loc));
    EXPECT_FALSE(window.isMapped(UINT_MAX, 1, loc));
    EXPECT_FALSE(window.isMapped(0, 1ull << 40, loc));
    EXPECT_EQ(loc, 99u);
    EXPECT_TRUE(window.isMapped(4, 4, loc));
    EXPECT_EQ(loc, 4u);
    EXPECT_TRUE(window.isMapped(0, 8, loc));
    EXPECT_EQ(loc, 8u);
}
