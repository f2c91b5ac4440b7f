#include "tessara/platform/base/Array.h"

#include <initializer_list>
#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/StringArray.h"

namespace {

using testing::ElementsAre;

class Array : public testing::Test {
protected:
    Array() {
        for (const DWORD nValue : {10U, 20U, 30U}) {
            array.Add(nValue);
        }
    }
    std::vector<DWORD> Elements() const { return {array.GetData(), array.GetData() + array.GetSize()}; }

    CDWordArray array;
};

TEST_F(Array, GrowsWithZeroesWhereNothingIsGiven) {
    array.SetAtGrow(4, 50);
    array.SetAtGrow(0, 11);
    array.InsertAt(6, 70);
    EXPECT_THAT(Elements(), ElementsAre(11, 20, 30, 0, 50, 0, 70));
    array.SetSize(2);
    array.SetSize(3);
    EXPECT_THAT(Elements(), ElementsAre(11, 20, 0));
}

TEST_F(Array, InsertsRemovesAndAppendsRuns) {
    array.InsertAt(1, 5, 2);
    array.RemoveAt(3, 1);
    EXPECT_THAT(Elements(), ElementsAre(10, 5, 5, 30));
    array.RemoveAt(1, 2);
    array.InsertAt(1, 20);
    EXPECT_EQ(array.Append(array), 3);
    EXPECT_THAT(Elements(), ElementsAre(10, 20, 30, 10, 20, 30));
    array.Copy(array);
    EXPECT_EQ(array.GetSize(), 6);
    array.RemoveAll();
    EXPECT_EQ(array.GetUpperBound(), -1);
}

TEST_F(Array, RefusesAnIndexOutsideAndKeepsItsElements) {
    const CDWordArray& constant = array;
    for (const int nIndex : {-1, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_THROW(constant.GetAt(nIndex), CInvalidArgException) << nIndex;
        EXPECT_THROW(constant[nIndex], CInvalidArgException) << nIndex;
        EXPECT_THROW(array[nIndex], CInvalidArgException) << nIndex;
        EXPECT_THROW(array.SetAt(nIndex, 1), CInvalidArgException) << nIndex;
        EXPECT_THROW(array.RemoveAt(nIndex), CInvalidArgException) << nIndex;
    }
    EXPECT_THROW(array.InsertAt(-1, 1), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(0, 1, -1), CInvalidArgException);
    EXPECT_THROW(array.SetAtGrow(-1, 1), CInvalidArgException);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(1, 3), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(1, -1), CInvalidArgException);
    EXPECT_THAT(Elements(), ElementsAre(10, 20, 30));
}

TEST(StringArray, TakesItsOwnElements) {
    CStringArray array;
    array.Add("spinodal");
    for (int i = 0; i < 20; ++i) {
        array.Add(array[0]);
        array.InsertAt(0, array[0]);
    }
    array.SetAtGrow(100, array[40]);
    EXPECT_EQ(array[0], "spinodal");
    EXPECT_EQ(array[99], "");
    EXPECT_EQ(array[100], "spinodal");
}

} // namespace
