#include <oa/oaBase.h>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace oa;

namespace {

template <class Array>
std::vector<int> valuesOf(const Array& array) {
    return {array.getElements(), array.getElements() + array.getNumElements()};
}

using Values = std::vector<int>;

} // namespace

TEST(Array, IsEmptyAtFirst) {
    const oaArray<oaInt4> array;
    EXPECT_EQ(array.getNumElements(), 0u);
    EXPECT_EQ(array.getSize(), 0u);
}

TEST(Array, HasRoomBeforeItHasElements) {
    oaArray<oaInt4> array(3);
    EXPECT_EQ(array.getSize(), 3u);
    EXPECT_EQ(array.getNumElements(), 0u);
    array[0] = 7;
    array[1] = 8;
    array.setNumElements(2);
    EXPECT_EQ(valuesOf(array), (Values{7, 8}));
    EXPECT_EQ(std::as_const(array)[1], 8);
    EXPECT_EQ(array.get(0), 7);
}

TEST(Array, MakesRoomForMoreElements) {
    oaArray<oaInt4> array;
    array.setNumElements(2);
    EXPECT_EQ(valuesOf(array), (Values{0, 0}));
    EXPECT_GE(array.getSize(), 2u);
}

TEST(Array, KeepsElementsWhenItsRoomChanges) {
    const oaInt4 values[] = {1, 2, 3};
    oaArray<oaInt4> array(values, 3);
    array.setSize(10);
    EXPECT_EQ(valuesOf(array), (Values{1, 2, 3}));
    EXPECT_EQ(array.getSize(), 10u);
    array.setSize(2);
    EXPECT_EQ(valuesOf(array), (Values{1, 2}));
    array.setSize(5, false);
    EXPECT_EQ(array.getNumElements(), 0u);
    EXPECT_EQ(array.getSize(), 5u);
}

TEST(Array, IsReplacedByValuesOfItsOwn) {
    const oaInt4 values[] = {1, 2, 3, 4};
    oaArray<oaInt4> array(values, 4);
    array.set(array.getElements() + 1, 2);
    EXPECT_EQ(valuesOf(array), (Values{2, 3}));
    EXPECT_EQ(array.getSize(), 4u);
    array.set(nullptr, 0);
    EXPECT_EQ(array.getNumElements(), 0u);
}

TEST(Array, CopiesAndMoves) {
    const oaInt4 values[] = {1, 2};
    oaArray<oaInt4> array(values, 2);
    oaArray<oaInt4> copy(array);
    copy[0] = 9;
    EXPECT_EQ(valuesOf(array), (Values{1, 2}));
    oaArray<oaInt4> moved(std::move(copy));
    EXPECT_EQ(valuesOf(moved), (Values{9, 2}));
    EXPECT_EQ(copy.getNumElements(), 0u); // a moved-from array is empty
    EXPECT_EQ(copy.getSize(), 0u);
    array = std::move(moved);
    EXPECT_EQ(valuesOf(array), (Values{9, 2}));
}

TEST(Array, GrowsAtItsEnd) {
    oaArray<oaInt4> array;
    Values expected;
    for (int i = 0; i < 100; ++i) {
        array.append(i);
        expected.push_back(i);
    }
    EXPECT_EQ(valuesOf(array), expected);
}

TEST(Array, AppendsItself) {
    const oaInt4 values[] = {1, 2};
    oaArray<oaInt4> array(values, 2);
    array.append(array);
    array.append(array[1]);
    EXPECT_EQ(valuesOf(array), (Values{1, 2, 1, 2, 2}));
}

TEST(Array, FindsAndRemovesTheFirstEqualElement) {
    const oaInt4 values[] = {5, 6, 5, 7};
    oaArray<oaInt4> array(values, 4);
    EXPECT_EQ(array.find(5), 0u);
    EXPECT_EQ(array.find(8), oacNullIndex);
    EXPECT_TRUE(array.remove(5));
    EXPECT_FALSE(array.remove(8));
    EXPECT_EQ(valuesOf(array), (Values{6, 5, 7}));
}

TEST(Subset, HoldsEachElementOnce) {
    oaSubset<oaInt4> subset;
    subset.add(3);
    subset.add(4);
    subset.add(3);
    EXPECT_EQ(valuesOf(subset), (Values{3, 4}));
    EXPECT_TRUE(subset.includes(4));
    EXPECT_FALSE(subset.includes(5));
}

TEST(Array, OfStringsBytesAndBoxesHasTheSameForms) {
    const oaString strings[] = {"a", "b"};
    const oaByte bytes[] = {1, 2, 3};
    const oaBox boxes[] = {oaBox(0, 0, 1, 1)};
    EXPECT_EQ(oaStringArray(strings, 2).find("b"), 1u);
    EXPECT_EQ(oaByteArray(bytes, 3)[2], 3);
    EXPECT_EQ(oaBoxArray(boxes, 1).getNumElements(), 1u);
    EXPECT_EQ(oaStringArray(5).getSize(), 5u);
    EXPECT_EQ(oaByteArray(5).getNumElements(), 0u);
    EXPECT_EQ(oaBoxArray().getSize(), 0u);
}
