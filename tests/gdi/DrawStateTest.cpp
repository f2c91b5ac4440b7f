#include <climits>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using testing::ElementsAre;

namespace {

/// Something of everything that the state decides, as lines of the log; the position is put back.
std::vector<std::string> Sample(CLoggedSurface& log) {
    log.lines.clear();
    const CPoint position = log.dc.MoveTo(0, 0);
    POINT origin{0, 0};
    log.dc.LPtoDP(&origin);
    log.dc.Ellipse(origin.x, origin.y, position.x, position.y);
    log.dc.TextOut(1, 2, "x", 1);
    log.dc.MoveTo(position);
    return log.lines;
}

} // namespace

TEST(DrawState, RestoreBringsBackWhateverWasChanged) {
    CPen pen(PS_DASH, 7, 0x112233);
    CBrush brush(RGB(9, 8, 7));
    CFont font;
    const LOGFONT symbol = tessara::MakeLogFont(-77, "Symbol");
    font.CreateFontIndirect(&symbol);
    const std::vector<std::function<void(CDC&)>> changes{
        [&](CDC& dc) { dc.SelectObject(&pen); },
        [&](CDC& dc) { dc.SelectObject(&brush); },
        [&](CDC& dc) { dc.SelectObject(&font); },
        [](CDC& dc) { dc.SetTextColor(0xFF); },
        [](CDC& dc) { dc.SetBkMode(OPAQUE); },
        [](CDC& dc) { dc.SetROP2(R2_NOTXORPEN); },
        [](CDC& dc) { dc.MoveTo(-4, 4); },
        [](CDC& dc) { dc.SetViewportOrg(31, 41); },
        [](CDC& dc) { dc.SetMapMode(MM_LOENGLISH), dc.SetWindowOrg(5, 5); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        CLoggedSurface log;
        const std::vector<std::string> before = Sample(log);
        EXPECT_EQ(log.dc.SaveDC(), 1);
        changes[i](log.dc);
        EXPECT_NE(Sample(log), before) << i;
        EXPECT_TRUE(log.dc.RestoreDC(1));
        EXPECT_EQ(Sample(log), before) << i;
    }
}

TEST(DrawState, RestoringALevelForgetsItAndThoseAfterIt) {
    for (const auto& [nLevel, nRop, nNext] :
         {std::tuple{2, R2_XORPEN, 2}, {-1, R2_NOP, 3}, {-3, R2_NOT, 1}}) {
        CDC dc;
        for (const int nMode : {R2_NOT, R2_XORPEN, R2_NOP}) {
            dc.SetROP2(nMode);
            dc.SaveDC();
        }
        dc.SetROP2(R2_WHITE);
        EXPECT_TRUE(dc.RestoreDC(nLevel));
        EXPECT_EQ(dc.GetROP2(), nRop);
        EXPECT_EQ(dc.SaveDC(), nNext);
    }
}

TEST(DrawState, RestoringALevelThatDoesNotExistChangesNothing) {
    CDC dc;
    dc.SaveDC();
    dc.SetROP2(R2_NOT);
    for (const int nLevel : {0, 2, -2, INT_MAX, INT_MIN}) {
        EXPECT_FALSE(dc.RestoreDC(nLevel)) << nLevel;
    }
    EXPECT_EQ(dc.GetROP2(), R2_NOT);
    EXPECT_TRUE(dc.RestoreDC(-1));
    EXPECT_FALSE(dc.RestoreDC(-1));
}

TEST(DrawState, SelectingReturnsTheObjectSelectedBefore) {
    CDC dc;
    CPen pen(PS_SOLID, 1, 0);
    CBrush brush(RGB(0, 0, 0));
    CFont font;
    EXPECT_EQ(dc.SelectObject(&pen), tessara::GetStockObject(BLACK_PEN));
    EXPECT_EQ(dc.SelectObject(&brush), tessara::GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(dc.SelectObject(&font), tessara::GetStockObject(SYSTEM_FONT));
    for (const int nStock : {WHITE_PEN, BLACK_PEN, NULL_PEN}) {
        EXPECT_EQ(dc.SelectStockObject(nStock), &pen);
        EXPECT_EQ(dc.SelectObject(static_cast<CGdiObject*>(&pen)), tessara::GetStockObject(nStock));
    }
    for (int nStock = WHITE_BRUSH; nStock <= NULL_BRUSH; ++nStock) {
        EXPECT_EQ(dc.SelectStockObject(nStock), &brush);
        EXPECT_EQ(dc.SelectObject(static_cast<CGdiObject*>(&brush)), tessara::GetStockObject(nStock));
    }
    EXPECT_EQ(dc.SelectStockObject(SYSTEM_FONT), &font);
    EXPECT_EQ(dc.SelectObject(static_cast<CGdiObject*>(&font)), tessara::GetStockObject(SYSTEM_FONT));
}

TEST(DrawState, SelectingNothingSelectsNothing) {
    CDC dc;
    EXPECT_EQ(dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
    EXPECT_EQ(dc.SelectObject(static_cast<CGdiObject*>(nullptr)), nullptr);
    EXPECT_EQ(dc.SelectStockObject(99), nullptr);
    EXPECT_EQ(dc.SelectStockObject(BLACK_PEN), tessara::GetStockObject(BLACK_PEN));
}

TEST(DrawState, AnObjectDeletedWhileSelectedIsStillDrawnWith) {
    CLoggedSurface log;
    {
        CPen pen(PS_SOLID, 3, 0x0000FF);
        log.dc.SelectObject(&pen);
        pen.DeleteObject();
        pen.CreatePen(PS_SOLID, 9, 0);
    }
    log.dc.LineTo(1, 1);
    EXPECT_THAT(log.lines, ElementsAre("Polyline 0,0 1,1 (pen 0000FF width 3)"));
}

TEST(DrawState, SettersReturnThePreviousValue) {
    CDC dc;
    EXPECT_EQ(dc.SetTextColor(0xFF), 0x000000U);
    EXPECT_EQ(dc.SetTextColor(0), 0xFFU);
    EXPECT_EQ(dc.SetBkColor(1), 0xFFFFFFU);
    EXPECT_EQ(dc.SetBkMode(TRANSPARENT), OPAQUE);
    EXPECT_EQ(dc.SetROP2(R2_NOTXORPEN), R2_COPYPEN);
    EXPECT_EQ(dc.SetMapMode(MM_ISOTROPIC), MM_TEXT);
    EXPECT_EQ(dc.SetMapMode(0), 0) << "no such mode";
    dc.LineTo(10, 11);
    EXPECT_EQ(dc.MoveTo(0, 0), (CPoint(10, 11)));
}
