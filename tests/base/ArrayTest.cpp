#include "tessara/platform/base/Array.h"

#include <limits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/StringArray.h"

namespace {

using testing::ElementsAre;

std::vector<DWORD> Elements(const CDWordArray& array) {
    return {array.GetData(), array.GetData() + array.GetSize()};
}

TEST(Array, GrowsWithZeroesWhereNothingIsGivenAndRemovesRuns) {
    CDWordArray array;
    array.SetAtGrow(4, 50);
    array.SetAtGrow(0, 11);
    array.InsertAt(6, 70);
    EXPECT_THAT(Elements(array), ElementsAre(11, 0, 0, 0, 50, 0, 70));
    array.InsertAt(1, 5, 2);
    array.RemoveAt(3, 5);
    EXPECT_THAT(Elements(array), ElementsAre(11, 5, 5, 70));
    array.SetSize(2);
    array.SetSize(3);
    EXPECT_THAT(Elements(array), ElementsAre(11, 5, 0));
}

TEST(Array, RefusesAnIndexOutsideAndKeepsItsElements) {
    CDWordArray array;
    array.InsertAt(0, 10, 3);
    for (const int nIndex : {-1, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_THROW(std::as_const(array)[nIndex], CInvalidArgException) << nIndex;
        EXPECT_THROW(array[nIndex], CInvalidArgException) << nIndex;
        EXPECT_THROW(array.SetAt(nIndex, 1), CInvalidArgException) << nIndex;
        EXPECT_THROW(array.RemoveAt(nIndex), CInvalidArgException) << nIndex;
    }
    EXPECT_THROW(array.InsertAt(-1, 1), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(0, 1, -1), CInvalidArgException);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(1, 3), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(1, -1), CInvalidArgException);
    EXPECT_THAT(Elements(array), ElementsAre(10, 10, 10));
}

TEST(StringArray, TakesItsOwnElements) {
    CStringArray array;
    array.Add("spinodal");
    for (int i = 0; i < 20; ++i) {
        array.Add(array[0]);
        array.InsertAt(0, array[0]);
    }
    array.SetAtGrow(100, array[40]);
    EXPECT_EQ(array.Append(array), 101);
    array.Copy(array);
    EXPECT_EQ(array[0], "spinodal");
    EXPECT_EQ(array[201], "spinodal");
}

} // namespace
