#include "tests/phasediagram/DiagramWindow.h"

namespace tessara {

namespace {

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

TEST_F(DiagramInteraction, PaintingDuringADragKeepsTheRectangleOnTheScreen) {
    const auto whole = m_window.Pixels();
    const CPoint middle = Plot().m_rcPlotDevice.CenterPoint();
    Plot().EnableZoomInMode(1);
    m_window.MoveTo(middle);
    m_window.Press(middle);
    m_window.MoveTo({middle.x + 70, middle.y + 50});
    const auto dragged = m_window.Pixels();
    m_window.RedrawWindow();
    EXPECT_EQ(m_window.Pixels(), dragged);
    Plot().EnableZoomInMode(0);
    m_window.UpdateWindow();
    EXPECT_EQ(m_window.Pixels(), whole);
}

TEST_F(DiagramInteraction, ReturnInAReadOutClosesItAsTheCloseBoxDoes) {
    const auto clean = m_window.Pixels();
    Plot().ShowGetValue(1);
    Click(GREEN);
    QTest::keyClick(DialogOf(GET_VALUE), Qt::Key_Return);
    EXPECT_EQ(Plot().IsGetValueVisible(), 0);
    EXPECT_EQ(Plot().m_nFlags & (MF_MARKSHOWN | MF_READOUT), 0U);
    m_window.UpdateWindow();
    EXPECT_EQ(m_window.Pixels(), clean);
}

TEST_F(DiagramInteraction, AMarkThatNoWindowShowsAnyMoreIsNotTakenAwayTwice) {
    Plot().ShowGetValue(1);
    Click(RED);
    Plot().DestroyGetValue();
    EXPECT_EQ(Plot().m_nFlags & (MF_MARKSHOWN | MF_READOUT), 0U);
    m_window.UpdateWindow();
    const auto clean = m_window.Pixels();
    Plot().CreateGetValue(&m_window);
    Plot().ShowGetValue(1);
    Plot().PickPoint(3.5, 2.5, GREEN);
    Plot().DrawMark();
    EXPECT_EQ(m_window.Pixels(), clean); // there was one mark
    Plot().DrawMark();
}

TEST_F(DiagramInteraction, ASectionNeedsALineAndACurve) {
    Plot().ShowCrossSection(1);
    std::string strMessage;
    AnswerMessage(strMessage);
    PressCalculate();
    EXPECT_EQ(strMessage, "You first have to select a parameter from the list.");
    Click(GREEN);
    ASSERT_GE(SectionLines().GetCount(), 2);
    SectionLines().SetCurSel(1);
    Plot().m_crSelected = RED;
    AnswerMessage(strMessage);
    PressCalculate();
    EXPECT_EQ(strMessage, "You have not selected a curve on the phase diagram. Please try again.");
    EXPECT_EQ(Plot().IsCrossSectionVisible(), 1);
    EXPECT_EQ(m_window.m_nSections, 0);
}

TEST_F(DiagramInteraction, TheSectionThroughTheMarkIsPosted) {
    struct CCase {
        DWORD crSelected;
        int nLine;
        int nHeld;
        int nTold;
    };
    for (const CCase& one : {CCase{GREEN, 1, 1, 1}, CCase{GREEN, 0, 0, 0}, CCase{MAGENTA, 0, 3, 0}}) {
        Plot().ShowCrossSection(1);
        Click(GREEN);
        Plot().m_crSelected = one.crSelected;
        SectionLines().SetCurSel(one.nLine);
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

} // namespace

} // namespace tessara
