#include <cmath>

#include "tessara/phasediagram/MathList.h"
#include "tessara/phasediagram/NearestRow.h"
#include "tessara/platform/ui/Loop.h"
#include "tessara/platform/ui/WinApp.h"
#include "tests/phasediagram/Diagrams.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

namespace {

constexpr UINT GET_VALUE = 16406;
constexpr UINT CROSS_SECTION = 16450;
constexpr UINT EXTENDED = 16451;
constexpr UINT LINES = 1008;

constexpr DWORD RED = 0x0000FF;
constexpr DWORD BLUE = 0xFF0000;
constexpr DWORD GREEN = 0x00FF00;
constexpr DWORD MAGENTA = 0xFF00FF;
constexpr DWORD CYAN = 0xFFFF00;
constexpr DWORD YELLOW = 0x00FFFF;
constexpr DWORD CRITICAL = 0x000080;
constexpr DWORD MULTIPHASE = 0x800000;
constexpr DWORD FOUND = 0x008000;
constexpr DWORD ALL_COLORS[] = {RED, BLUE, GREEN, MAGENTA, CYAN, YELLOW, CRITICAL, MULTIPHASE, FOUND};

class CMousePlot : public CTestDiagram {
public:
    using CPhaseDiagramOutput::DrawMark;
    using CPhaseDiagramOutput::DrawZoomTrackingRect;
    using CPhaseDiagramOutput::m_crSelected;
    using CPhaseDiagramOutput::m_ElementValueLines;
};

class CDiagramWindow : public CPlotWindow<CMousePlot> {
public:
    int m_nSections = 0;
    int m_nColumn = -1;
    std::unique_ptr<CTable> m_pSection;

protected:
    void OnPlotMessage(UINT nMessage, CPoint point) override {
        if (nMessage == WM_MOUSEMOVE) {
            m_plot.OnMouseMove(point, this);
        } else if (nMessage == WM_LBUTTONDOWN) {
            m_plot.OnLButtonDown(point, this);
        } else {
            m_plot.OnLButtonUp(point, this);
        }
    }
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override {
        if (nMessage == WM_SETCURSOR && m_plot.OnSetCursor(this, LOWORD(lParam), HIWORD(lParam))) {
            return TRUE;
        }
        if (nMessage == WM_CROSSSECTION) {
            ++m_nSections;
            m_nColumn = static_cast<int>(wParam);
            m_pSection.reset(reinterpret_cast<CTable*>(lParam));
            return 0;
        }
        return CPlotWindow::WindowProc(nMessage, wParam, lParam);
    }
};

/// A part of a table of three columns: abscissa, ordinate and dThird at nPoints places from dFrom to dTo.
void AddLine(CMultipartTable& table, POINT from, POINT to, double dThird, int nColor, double dScale = 1) {
    constexpr int POINTS = 21;
    CTable line(3);
    line.Allocate(POINTS);
    for (int i = 0; i < POINTS; ++i) {
        line.m_ppData[0][i] = (from.x + (to.x - from.x) * i / (POINTS - 1.0)) * dScale;
        line.m_ppData[1][i] = from.y + (to.y - from.y) * i / (POINTS - 1.0);
        line.m_ppData[2][i] = dThird + 0.01 * i;
    }
    table.AddTable(&line, nColor, -1);
}

/// Every kind of element on a field of 10 by 10: a cloud-point curve that crosses itself, with a non-physical
/// part, its shadow curve of abscissae times 0.5, two branches of a spinodal, and points.
class DiagramInteraction : public ::testing::Test {
protected:
    DiagramInteraction() : m_section(4), m_spinodal(3), m_critical(3), m_multiphase(2) {
        CMultipartTable lines(3);
        AddLine(lines, {1, 1}, {9, 9}, 0.1, 0);
        AddLine(lines, {9, 3}, {1, 8}, 0.5, 0); // they cross at (5.31, 5.31), between rows
        AddLine(lines, {6, 0}, {10, 0}, 0.9, 1);
        m_section.AddMultipartTable(&lines4(lines), -1);
        m_section.SetNumColors(2);
        AddLine(m_spinodal, {0, 8}, {4, 10}, 0, 0);
        AddLine(m_spinodal, {0, 9}, {4, 5}, 0, 1);
        m_spinodal.SetNumColors(2);
        FillRow(m_critical, {3, 8, 0.75});
        FillRow(m_multiphase, {8, 5});
    }
    ~DiagramInteraction() override {
        Plot().DestroyGetValue();
        Plot().DestroyExtendedGetValue();
        Plot().DestroyCrossSection();
        m_window.DestroyWindow();
        TakeExitCode();
    }
    void SetUp() override {
        Plot().SetNames("Diagram", "T~N", "x~N");
        Plot().SetBinodalSection(0, 3, 1, &m_section, 0);
        Plot().SetSpinodalSection(0, 1, &m_spinodal);
        Plot().SetCriticalPoints(0, 1, &m_critical);
        Plot().SetMultiphasePoints(0, 1, &m_multiphase);
        m_window.Open();
        m_app.m_pMainWnd = &m_window;
        Plot().CreateGetValue(&m_window);
        Plot().CreateExtendedGetValue(&m_window);
        Plot().CreateCrossSection(&m_window);
    }

    CMousePlot& Plot() { return m_window.m_plot; }
    void Click(DWORD color) { m_window.Click(m_window.Find(color, Plot().m_rcPlotDevice)); }
    bool IsMarked() { return Plot().m_nFlags & MF_MARKSHOWN; }
    /// Clicks each colour that is on the screen; those that took a mark.
    std::vector<DWORD> Pickable() {
        std::vector<DWORD> colors;
        for (const DWORD color : ALL_COLORS) {
            if (color == FOUND && !Plot().AreMultiphasePointsVisible()) {
                continue;
            }
            Plot().m_nFlags &= ~DWORD{MF_MARKSHOWN};
            m_window.RedrawWindow();
            Click(color);
            if (IsMarked()) {
                colors.push_back(color);
                EXPECT_EQ(Plot().m_crSelected, color);
            }
        }
        return colors;
    }
    std::string Line(const char* pszSymbol, double dValue) {
        CString strLine;
        strLine.Format("%s = %.2lf~N", pszSymbol, dValue);
        return std::string(strLine);
    }
    void PressCalculate() {
        QTest::mouseClick(&ControlOf(CROSS_SECTION, IDOK), Qt::LeftButton);
        QApplication::processEvents();
    }

    CWinApp m_app{"Diagrams"};
    CMultipartTable m_section; ///< cloud-point abscissa, ordinate, value, shadow abscissa
    CMultipartTable m_spinodal;
    CTable m_critical;
    CTable m_multiphase;
    CDiagramWindow m_window;

private:
    /// The same with the half of the abscissa as a fourth column.
    CMultipartTable& lines4(const CMultipartTable& lines) {
        m_pLines = std::make_unique<CMultipartTable>(4);
        for (int i = 0; i < lines.m_nParts; ++i) {
            const CCurvePartInfo& part = lines.m_pParts[i];
            CTable rows(4);
            rows.Allocate(part.nPoints);
            for (int k = 0; k < part.nPoints; ++k) {
                for (int j = 0; j < 3; ++j) {
                    rows.m_ppData[j][k] = lines.m_ppData[j][part.nFirst + k];
                }
                rows.m_ppData[3][k] = rows.m_ppData[0][k] / 2;
            }
            m_pLines->AddTable(&rows, part.nColor, -1);
        }
        return *m_pLines;
    }
    static void FillRow(CTable& table, std::initializer_list<double> values) {
        table.Allocate(1);
        int nColumn = 0;
        for (const double dValue : values) {
            table.m_ppData[nColumn++][0] = dValue;
        }
    }
    std::unique_ptr<CMultipartTable> m_pLines;
};

TEST_F(DiagramInteraction, WhatCanBePickedDependsOnTheWindowThatIsShown) {
    EXPECT_EQ(Pickable(), std::vector<DWORD>{}); // none is shown
    Plot().ShowGetValue(1);
    EXPECT_EQ(Pickable(), (std::vector<DWORD>{RED, BLUE, GREEN}));
    Plot().EnableCriticalPointsClicking(1);
    EXPECT_EQ(Pickable(), (std::vector<DWORD>{RED, BLUE, GREEN, CRITICAL}));
    Plot().EnableCriticalPointsClicking(0);
    Plot().ToggleMultiphasePoints();
    EXPECT_EQ(Pickable(), (std::vector<DWORD>{RED, BLUE, GREEN, FOUND}));
    Plot().ToggleMultiphasePoints();
    Plot().ShowGetValue(0);
    Plot().ShowCrossSection(1);
    EXPECT_EQ(Pickable(), std::vector<DWORD>{GREEN});
    Plot().ShowCrossSection(0);
    Plot().SetElementReadOut(true);
    Plot().ShowExtendedGetValue(1);
    EXPECT_EQ(Pickable(),
              (std::vector<DWORD>{RED, BLUE, GREEN, MAGENTA, CYAN, YELLOW, CRITICAL, MULTIPHASE}));
}

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
    Click(GREEN);
    const auto lines = LinesOf(GET_VALUE, LINES);
    ASSERT_EQ(lines.size(), 2U + static_cast<std::size_t>(Plot().m_pFoundMultiphasePoints->m_nPoints));
    EXPECT_EQ(lines[2].rfind("F~G'~N1~L = 0.592", 0), 0U) << lines[2];
    EXPECT_EQ(lines[3].rfind("F~G'~N2~L = 0.207", 0), 0U) << lines[3];
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

TEST_F(DiagramInteraction, MarksReplaceEachOtherAndVanishWithTheWindow) {
    const auto clean = m_window.Pixels();
    for (const bool bClose : {false, true}) {
        Plot().ShowGetValue(1);
        Click(RED);
        Click(GREEN);
        const auto marked = m_window.Pixels();
        EXPECT_NE(marked, clean);
        m_window.RedrawWindow();
        EXPECT_EQ(m_window.Pixels(), marked); // one cross-hair, which painting keeps
        Plot().DrawMark();
        EXPECT_EQ(m_window.Pixels(), clean);
        Plot().DrawMark();
        if (bClose) {
            DialogOf(GET_VALUE)->close();
        } else {
            Plot().ShowGetValue(0);
        }
        EXPECT_EQ(Plot().IsGetValueVisible(), 0);
        EXPECT_EQ(Plot().m_nFlags & ~DWORD{MF_OVERELEMENT}, 0U);
        m_window.UpdateWindow();
        EXPECT_EQ(m_window.Pixels(), clean);
    }
    Plot().ShowCrossSection(1);
    DialogOf(CROSS_SECTION)->close();
    EXPECT_EQ(Plot().m_nFlags & (MF_CROSSSECTION | MF_READOUT), static_cast<DWORD>(MF_CROSSSECTION));
}

TEST_F(DiagramInteraction, AClickThatHitsNoElementDoesNothing) {
    Plot().ShowGetValue(1);
    const CRect plot = Plot().m_rcPlotDevice;
    const auto before = m_window.Pixels();
    for (const CPoint point :
         {m_window.Find(0xFFFFFF, plot), m_window.Find(0, plot), CPoint(plot.right + 60, plot.top + 25),
          CPoint(plot.left - 40, plot.top + 3)}) {
        m_window.Click(point);
    }
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(m_window.Pixels(), before);
}

TEST_F(DiagramInteraction, DraggingZoomsInTwiceAndEndingTheModeShowsTheWhole) {
    const auto whole = m_window.Pixels();
    const CHOOSESCALE abscissa = Plot().m_AbscissaScale;
    CZoomWindow last{10, 0, 10, 0};
    for (int i = 0; i < 2; ++i) {
        Plot().EnableZoomInMode(1);
        const CRect plot = Plot().m_rcExactPlotDevice;
        const CPoint from{plot.left + 60, plot.bottom - 50};
        const CPoint to{plot.right - 80, plot.top + 40};
        const CZoomWindow expected =
            CPixelMap(plot, Plot().m_AbscissaScale, Plot().m_OrdinateScale).GetWindow(from, to);
        m_window.Drag(from, to);
        EXPECT_EQ(Plot().IsZoomInModeEnabled(), 0); // one drag
        EXPECT_EQ(Plot().GetZoomWindow(), expected);
        EXPECT_GT(expected.dXMin, last.dXMin);
        EXPECT_LT(expected.dYMax, last.dYMax);
        last = expected;
        m_window.UpdateWindow();
        EXPECT_EQ(Plot().m_AbscissaScale.dLower, expected.dXMin);
        EXPECT_EQ(Plot().m_OrdinateScale.dUpper, expected.dYMax);
        EXPECT_NE(m_window.Pixels(), whole);
    }
    Plot().EnableZoomInMode(0);
    m_window.UpdateWindow();
    EXPECT_EQ(Plot().IsZoomed(), 0);
    EXPECT_EQ(std::memcmp(&Plot().m_AbscissaScale, &abscissa, sizeof abscissa), 0);
    EXPECT_EQ(m_window.Pixels(), whole);
}

TEST_F(DiagramInteraction, AnEmptyZoomAreaSaysSoAndLeavesTheDiagram) {
    const auto whole = m_window.Pixels();
    const CPoint anchor = Plot().m_rcPlotDevice.CenterPoint();
    for (const CPoint end : {anchor, CPoint(anchor.x + 40, anchor.y), CPoint(anchor.x, anchor.y - 40)}) {
        Plot().EnableZoomInMode(1);
        std::string strMessage;
        AnswerMessage(strMessage);
        m_window.Drag(anchor, end);
        EXPECT_EQ(strMessage, "The zoom area is empty. Please try again.");
        EXPECT_EQ(Plot().IsZoomed(), 0);
        EXPECT_EQ(Plot().IsZoomInModeEnabled(), 0);
        EXPECT_EQ(m_window.Pixels(), whole);
    }
}

TEST_F(DiagramInteraction, TheTrackingRectangleLeavesNoTraceAndTheCursorTellsWhereADragMayBegin) {
    const auto whole = m_window.Pixels();
    const CRect plot = Plot().m_rcPlotDevice;
    Plot().EnableZoomInMode(1);
    const auto fnHotSpotAt = [&](CPoint point) {
        m_window.MoveTo(point);
        return m_window.Widget().cursor().hotSpot();
    };
    EXPECT_EQ(fnHotSpotAt(plot.CenterPoint()), QPoint(9, 9));
    EXPECT_EQ(fnHotSpotAt({plot.left - 30, plot.top}), QPoint(15, 15));
    m_window.Press({plot.left - 30, plot.top}); // outside: no drag
    m_window.Release(plot.CenterPoint());
    EXPECT_NE(Plot().IsZoomInModeEnabled(), 0);
    m_window.Press(plot.CenterPoint());
    m_window.MoveTo({plot.left + 9, plot.top + 9});
    EXPECT_NE(m_window.Pixels(), whole);
    Plot().EnableZoomInMode(0); // in the middle of the drag
    EXPECT_EQ(m_window.Pixels(), whole);
    Plot().DrawZoomTrackingRect({300, 300}, {200, 250});
    EXPECT_NE(m_window.Pixels(), whole);
    Plot().DrawZoomTrackingRect({200, 250}, {300, 300});
    EXPECT_EQ(m_window.Pixels(), whole);
}

TEST_F(DiagramInteraction, ACrossSectionIsAskedForAndPosted) {
    Plot().ShowCrossSection(1);
    std::string strMessage;
    AnswerMessage(strMessage);
    PressCalculate();
    EXPECT_EQ(strMessage, "You first have to select a parameter from the list.");
    Click(GREEN);
    auto& list =
        dynamic_cast<CListBox&>(*CWnd::FromHandle(CPeer::Of(&ControlOf(CROSS_SECTION, LINES))->GetHandle()));
    ASSERT_GE(list.GetCount(), 2);
    list.SetCurSel(1);
    const DWORD crPicked = Plot().m_crSelected;
    Plot().m_crSelected = RED;
    AnswerMessage(strMessage);
    PressCalculate();
    EXPECT_EQ(strMessage, "You have not selected a curve on the phase diagram. Please try again.");
    EXPECT_EQ(Plot().IsCrossSectionVisible(), 1);
    EXPECT_EQ(m_window.m_nSections, 0);

    struct CCase {
        DWORD crSelected;
        int nLine;
        int nHeld;
        int nTold;
    };
    for (const CCase& one : {CCase{GREEN, 1, 1, 1}, CCase{GREEN, 0, 0, 0}, CCase{MAGENTA, 0, 3, 0}}) {
        Plot().ShowCrossSection(1);
        Click(GREEN);
        ASSERT_EQ(crPicked, GREEN);
        Plot().m_crSelected = one.crSelected;
        list.SetCurSel(one.nLine);
        m_window.m_nColumn = -1;
        const double dHeld = one.nLine == 0 ? Plot().m_dMarkX : Plot().m_dMarkY;
        PressCalculate();
        EXPECT_EQ(m_window.m_nColumn, one.nTold);
        ASSERT_NE(m_window.m_pSection, nullptr);
        const std::unique_ptr<CTable> pExpected(m_section.Value(one.nHeld, dHeld));
        ASSERT_EQ(m_window.m_pSection->m_nPoints, pExpected ? pExpected->m_nPoints : 0);
        for (int i = 0; i < m_window.m_pSection->m_nPoints; ++i) {
            EXPECT_NEAR(m_window.m_pSection->m_ppData[one.nHeld][i], dHeld, 1e-12);
        }
        EXPECT_EQ(Plot().IsCrossSectionVisible(), 0);
        EXPECT_FALSE(IsMarked());
    }
    EXPECT_EQ(m_window.m_nSections, 3);
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
