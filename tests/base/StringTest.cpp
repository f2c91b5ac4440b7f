#include "tessara/platform/base/String.h"

#include <utility>

#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"

namespace {

TEST(String, PiecesAreClippedToTheString) {
    const CString str("phase");
    const std::pair<CString, const char*> cases[] = {
        {str.Left(2), "ph"}, {str.Left(-1), ""},      {str.Left(9), "phase"}, {str.Right(3), "ase"},
        {str.Right(-1), ""}, {str.Right(9), "phase"}, {str.Mid(3), "se"},     {str.Mid(5), ""},
        {str.Mid(9), ""},    {str.Mid(1, 2), "ha"},   {str.Mid(-3, 2), "ph"}, {str.Mid(1, -1), ""}};
    for (const auto& [strPiece, pszExpected] : cases) {
        EXPECT_EQ(strPiece, pszExpected);
    }
    for (const int nIndex : {-1, 5}) {
        EXPECT_THROW(str.GetAt(nIndex), CInvalidArgException) << nIndex;
        EXPECT_THROW(CString(str).SetAt(nIndex, 'x'), CInvalidArgException) << nIndex;
    }
    EXPECT_TRUE(str.Find('p', 6) == -1 && str.Find("p", -1) == -1 && str.Find("", 99) == -1);
}

TEST(String, SortsByBytesAndKnowsTheCaseOfAsciiLettersOnly) {
    EXPECT_GT(CString("\xE4").Compare("z"), 0) << "bytes are unsigned";
    EXPECT_EQ(CString("Spinodal").CompareNoCase("sPINODAL"), 0);
    EXPECT_NE(CString("\xC4").CompareNoCase("\xE4"), 0);
    CString str(" \t\xE4h\xC4 x\r\n");
    str.TrimLeft();
    EXPECT_EQ(str, "\xE4h\xC4 x\r\n");
    str.TrimRight();
    str.MakeUpper();
    EXPECT_EQ(str, "\xE4H\xC4 X");
    str.MakeLower();
    EXPECT_EQ(str, "\xE4h\xC4 x");
}

TEST(String, JoinsItselfAndNullAndKeepsZeroBytes) {
    CString str("ab");
    str += str;
    str += static_cast<const char*>(nullptr);
    EXPECT_EQ(str + '!' + "?", "abab!?");
    EXPECT_EQ(CString('-', -1), "");
    EXPECT_EQ((CString(std::string_view("a\0b", 3)) + "c").GetLength(), 4);
}

} // namespace
