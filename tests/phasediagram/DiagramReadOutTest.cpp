#include <cmath>

#include "tessara/phasediagram/MathList.h"
#include "tessara/phasediagram/NearestRow.h"
#include "tests/phasediagram/DiagramWindow.h"

namespace tessara {

namespace {

TEST_F(DiagramInteraction, TheGetValueWindowListsThePointAndTheNearestValueOfTheSection) {
    Plot().ShowGetValue(1);
    for (const DWORD color : {RED, GREEN}) {
        const CPoint point = m_window.Find(color, Plot().m_rcPlotDevice);
        m_window.Click(point);
        const CPixelMap map = Plot().GetPixelMap();
        const double dX = map.GetX(point.x);
        std::vector<std::string> lines{Line("x~N", dX), Line("T~N", map.GetY(point.y))};
        auto shown = LinesOf(GET_VALUE, LINES);
        ASSERT_EQ(shown.size(), color == GREEN ? 3U : 2U);
        if (color == GREEN) {
            ASSERT_EQ(shown.back().rfind("F~G' = ", 0), 0U);
            const double dValue = std::atof(shown.back().c_str() + 7);
            const bool bRising = std::abs(dX - map.GetY(point.y)) < 0.3;
            EXPECT_NEAR(dValue, bRising ? 0.1 + (dX - 1) / 40 : 0.5 + (9 - dX) / 40, 0.01);
            shown.pop_back();
        }
        EXPECT_EQ(shown, lines);
    }
}

TEST_F(DiagramInteraction, ThePhasesOfAFoundMultiphasePointAreListed) {
    Plot().ToggleMultiphasePoints();
    m_window.RedrawWindow();
    ASSERT_EQ(Plot().m_pFoundMultiphasePoints->m_nParts, 1);
    Plot().ShowGetValue(1);
    for (const DWORD color :
         {GREEN, FOUND}) { // the curve, and the point that covers it where it crosses itself
        Click(color);
        const auto lines = LinesOf(GET_VALUE, LINES);
        ASSERT_EQ(lines.size(), 2U + static_cast<std::size_t>(Plot().m_pFoundMultiphasePoints->m_nPoints));
        EXPECT_EQ(lines[2].rfind("F~G'~N1~L = 0.592", 0), 0U) << lines[2];
        EXPECT_EQ(lines[3].rfind("F~G'~N2~L = 0.207", 0), 0U) << lines[3];
    }
    Plot().ToggleMultiphasePoints();
    Plot().PickPoint(5, 5,
                     MAGENTA); // nothing that can be picked: what was picked before, which is hidden now
    EXPECT_EQ(LinesOf(GET_VALUE, LINES).size(), 2U);
}

TEST_F(DiagramInteraction, FoundPointsAreThoseOfTheSectionThatIsShown) {
    Plot().ShowGetValue(1);
    CMultipartTable wide(60);
    CTable rows(60);
    rows.Allocate(4);
    const double corners[4][2] = {{1, 1}, {3, 3}, {3, 1}, {1, 3}}; // a cross at (2, 2)
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 60; ++j) {
            rows.m_ppData[j][i] = j == 57 ? corners[i][0] : j == 58 ? corners[i][1] : i;
        }
    }
    wide.AddTable(&rows, 0, -1);
    Plot().ToggleMultiphasePoints();
    Plot().SetBinodalSection(57, 59, 58, &wide, 0);
    m_window.RedrawWindow();
    Click(FOUND);
    EXPECT_NEAR(Plot().m_dMarkX, 2, 0.2);
    EXPECT_EQ(LinesOf(GET_VALUE, LINES).size(), 4U);
    Plot().SetBinodalSection(0, -1, 1, &m_section, 0); // its shadow curve stays that of the wide table
    m_window.RedrawWindow();
    Plot().m_crSelected = MAGENTA;
    EXPECT_EQ(Plot().RequestCrossSection(1), 0);
    EXPECT_EQ(Plot().RequestCrossSection(0), 0);
    Click(FOUND);
    EXPECT_NEAR(Plot().m_dMarkX, 5.31, 0.2);
    Plot().Reset();
}

TEST_F(DiagramInteraction, TheExtendedWindowListsTheFormatsOfThePickedElement) {
    Plot().SetElementReadOut(true);
    Plot().AddFormatString(6, -1, "Critical point");
    Plot().AddFormatString(2, 1, "T~N = %.1lf~N");
    Plot().AddFormatString(6, 2, "c~G = %.3lf~N");
    Plot().AddFormatString(6, 9, "no such column %lf");
    Plot().AddFormatString(7, -1, "Multiphase point");
    Plot().ShowExtendedGetValue(1);
    Click(CRITICAL);
    EXPECT_EQ(LinesOf(EXTENDED, LINES), (std::vector<std::string>{"Critical point", "c~G = 0.750~N"}));
    Click(GREEN);
    ASSERT_EQ(LinesOf(EXTENDED, LINES).size(), 1U);
    EXPECT_NEAR(std::atof(LinesOf(EXTENDED, LINES)[0].c_str() + 6), Plot().m_dMarkY, 0.1);
    Click(MAGENTA); // has no table
    EXPECT_TRUE(LinesOf(EXTENDED, LINES).empty());
    Click(MULTIPHASE);
    EXPECT_EQ(LinesOf(EXTENDED, LINES), std::vector<std::string>{"Multiphase point"});
    Plot().ShowExtendedGetValue(0);
    Plot().ShowExtendedGetValue(1);
    EXPECT_TRUE(LinesOf(EXTENDED, LINES).empty()); // emptied when it is shown
}

TEST_F(DiagramInteraction, AfterResetNoTableIsReadThatMayHaveGone) {
    Plot().ShowCrossSection(1);
    Click(GREEN);
    Plot().Reset();
    m_section.Free();
    m_spinodal.Free();
    Plot().ToggleMultiphasePoints();
    EXPECT_EQ(Plot().m_pFoundMultiphasePoints, nullptr);
    EXPECT_EQ(Plot().RequestCrossSection(1), 0);
    Plot().PickPoint(3, 3, GREEN);
    EXPECT_EQ(LinesOf(CROSS_SECTION, LINES).size(), 2U);
    Plot().SetElementReadOut(true);
    for (const DWORD color : ALL_COLORS) {
        Plot().PickPoint(3, 3, color);
    }
    EXPECT_EQ(Plot().m_ElementValueLines.GetSize(), 0);
}

TEST_F(DiagramInteraction, LeavesNothingBehind) {
    Plot().DestroyGetValue();
    Plot().DestroyExtendedGetValue();
    Plot().DestroyCrossSection();
    CheckRounds([&] {
        Plot().CreateGetValue(&m_window);
        Plot().CreateExtendedGetValue(&m_window);
        Plot().CreateCrossSection(&m_window);
        Plot().ShowGetValue(1);
        Plot().PickPoint(3, 3, GREEN);
        Plot().ShowGetValue(0);
        Plot().ShowCrossSection(1);
        Plot().PickPoint(4, 4, GREEN);
        Plot().ShowCrossSection(0);
        Plot().SetElementReadOut(true);
        Plot().ShowExtendedGetValue(1);
        Plot().PickPoint(3, 8, CRITICAL);
        QApplication::processEvents();
        Plot().ShowExtendedGetValue(0);
        Plot().SetElementReadOut(false);
        Plot().DestroyGetValue();
        Plot().DestroyExtendedGetValue();
        Plot().DestroyCrossSection();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
}

TEST(NearestRow, IsTheFirstOfTheNearestAndNoneWithoutNumbers) {
    CTable table(3);
    EXPECT_EQ(NearestTableRow(0, 0, 0, 1, &table), nullptr);
    table.Allocate(4);
    const double rows[4][3] = {{std::nan(""), 0, 7}, {1, 0, 8}, {-1, 0, 9}, {5, 5, 10}};
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 3; ++j) {
            table.m_ppData[j][i] = rows[i][j];
        }
    }
    const std::unique_ptr<CTable> pNearest(NearestTableRow(0, 0, 0, 1, &table));
    ASSERT_EQ(pNearest->m_nPoints, 1);
    EXPECT_EQ(pNearest->m_ppData[2][0], 8);
    EXPECT_EQ(NearestTableRow(std::nan(""), 0, 0, 1, &table), nullptr);
}

TEST(NearestRow, OfASectionLiesBetweenItsRowsAndAtTheOrdinateOfTwoEquallyNear) {
    CMultipartTable section(3);
    AddLine(section, {0, 0}, {10, 10}, 0, 0);
    const std::unique_ptr<CTable> pRow(NearestSectionRow(3.3, 3.3, 0, 1, &section));
    EXPECT_NEAR(pRow->m_ppData[1][0], 3.3, 1e-12);
    const std::unique_ptr<CTable> pEqual(NearestSectionRow(4.25, 4.75, 0, 1, &section));
    EXPECT_EQ(pEqual->m_ppData[1][0], 4.75);
    EXPECT_EQ(NearestSectionRow(11, 12, 0, 1, &section), nullptr);
}

TEST(MathList, IsMadeByName) {
    EXPECT_NE(
        dynamic_cast<CMathList*>(std::unique_ptr<CObject>(RUNTIME_CLASS(CMathList)->CreateObject()).get()),
        nullptr);
}

} // namespace

} // namespace tessara
