#include <cmath>

#include "cli/view/ZoomRange.h"
#include "tests/cli/ViewerFixture.h"

using namespace tessara;

namespace {

constexpr CZoomWindow WHOLE{10, 0, 100, 0};

/// The bits of all numbers, so that equality is that of the last bit.
std::vector<CZoomState> WalkBack(CZoomHistory& history) {
    std::vector<CZoomState> states = {history.GetPresent()};
    while (history.CanGoBack()) {
        states.insert(states.begin(), history.GoBack());
    }
    return states;
}

TEST(ZoomHistory, GivesBackStatesInOrderAndForgetsThoseAheadOfANewOne) {
    const CZoomState a = CZoomWindow{0.1 + 0.2, 0, 1, 0};
    const CZoomState b = CZoomWindow{0.3, 0, 1, 0}; // differs from a in the last bit
    CZoomHistory history;
    history.Add(a);
    history.Add(a);
    history.Add(b);
    EXPECT_EQ(WalkBack(history), (std::vector<CZoomState>{std::nullopt, a, b}));
    EXPECT_EQ(history.GoForward(), a);
    history.Replace(b);
    EXPECT_FALSE(history.CanGoForward());
    EXPECT_EQ(WalkBack(history), (std::vector<CZoomState>{std::nullopt, b}));
    EXPECT_EQ(history.GoBack(), std::nullopt);
}

TEST(ZoomHistory, KeepsTheLatestStates) {
    CZoomHistory history;
    for (int i = 1; i <= 1000; ++i) {
        history.Add(CZoomWindow{1.0 * i, 0, 1, 0});
    }
    const std::vector<CZoomState> states = WalkBack(history);
    EXPECT_EQ(states.size(), CZoomHistory::MAX_STATES);
    EXPECT_EQ(states.back()->dXMax, 1000);
}

TEST(ZoomRange, StaysWithinTheWholePlotAndEndsInIt) {
    const CZoomRange corner(CZoomWindow{2, 0, 100, 50}, WHOLE);
    const CZoomState wider = corner.Scaled(2, 100, 1.25); // would begin below 0 and end above 100
    EXPECT_EQ(wider, (CZoomWindow{2.5, 0, 100, 37.5}));
    EXPECT_EQ(corner.Scaled(1, 75, 1000), std::nullopt);
    EXPECT_EQ(CZoomRange(CZoomWindow{9, 0, 30, 20}, WHOLE).Scaled(5, 25, 1.25),
              (CZoomWindow{10, 0, 31.25, 18.75}));
    EXPECT_EQ(corner.Moved(-0.1, 0.1), (CZoomWindow{2, 0, 100, 50}));
    EXPECT_EQ(corner.Moved(0.5, -0.5), (CZoomWindow{3, 1, 75, 25}));
    EXPECT_EQ(CZoomRange(WHOLE, WHOLE).Moved(0.1, 0.1), std::nullopt);
}

TEST(ZoomRange, ChangesNothingThatCouldNotBeDividedOrIsNotANumber) {
    const CZoomWindow tiny{5 + 4e-9, 5, 50, 40};
    EXPECT_EQ(CZoomRange(tiny, WHOLE).Scaled(5, 45, 0.5), tiny);
    const double dNaN = std::nan("");
    EXPECT_EQ(CZoomRange({dNaN, dNaN, dNaN, dNaN}, WHOLE).Scaled(5, 45, 0.5), std::nullopt);
    EXPECT_EQ(CZoomRange({5, 4, 5, 4}, {dNaN, dNaN, dNaN, dNaN}).Scaled(4, 4, 0.5),
              (CZoomWindow{4.5, 4, 4.5, 4}));
    EXPECT_FALSE(CZoomRange(WHOLE, WHOLE).Meets({20, 10, 100, 0}));
    EXPECT_TRUE(CZoomRange(WHOLE, WHOLE).Meets({20, 9, 100, 0}));
}

class ViewerZoom : public CViewerFixture {
protected:
    CPixelMap Map() {
        View().UpdateWindow();
        return Plot().GetPixelMap();
    }
    CPoint PointInPlot() {
        const CRect frame = Map().rect;
        return {static_cast<int>(frame.left) + frame.Width() / 3,
                static_cast<int>(frame.top) + frame.Height() / 4};
    }
    void Drag(CPoint from, CPoint to) {
        QTest::mousePress(&Paper(), Qt::LeftButton, {}, QPoint(from.x, from.y));
        QTest::mouseMove(&Paper(), QPoint(to.x, to.y));
        QTest::mouseRelease(&Paper(), Qt::LeftButton, {}, QPoint(to.x, to.y));
    }
};

TEST_F(ViewerZoom, TheWheelKeepsThePointUnderThePointer) {
    const CPoint at = PointInPlot();
    const double dX = Map().GetX(at.x);
    const double dY = Map().GetY(at.y);
    for (const int nDelta : {120, 120, 360, 15, -120, 40, -60}) {
        const double dWidth = Map().dXUpper - Map().dXLower;
        Wheel(at, nDelta);
        EXPECT_NEAR(Map().GetX(at.x), dX, 1e-12);
        EXPECT_NEAR(Map().GetY(at.y), dY, 1e-11);
        EXPECT_NEAR((Map().dXUpper - Map().dXLower) / dWidth, std::pow(1.25, -nDelta / 120.0), 1e-12);
    }
}

TEST_F(ViewerZoom, ManyNotchesInStopBeforeNumbersRunOutAndOutAgainGiveTheWholePlot) {
    const CPoint at = PointInPlot();
    for (int i = 0; i < 200; ++i) {
        Wheel(at, 120);
    }
    const CPixelMap map = Map();
    EXPECT_GT(map.dXUpper - map.dXLower, 1e-10 * map.dXUpper);
    EXPECT_LT(map.dXUpper - map.dXLower, 1e-6);
    EXPECT_LT(map.GetX(at.x - 1), map.GetX(at.x)); // neighbouring pixels can be told apart
    for (int i = 0; i < 200; ++i) {
        Wheel(at, -120);
    }
    EXPECT_EQ(Plot().GetZoom(), std::nullopt);
    EXPECT_FALSE(IsEnabled(ID_ZOOM_OUT));
}

TEST_F(ViewerZoom, BackAndForwardReturnToTheSameWindowsToTheLastBit) {
    std::vector<CZoomState> states = {Plot().GetZoom()};
    const CPoint at = PointInPlot();
    const auto fnNote = [&] {
        View().UpdateWindow();
        states.push_back(Plot().GetZoom());
    };
    Wheel(at, 120), fnNote();
    Wheel({at.x + 50, at.y + 31}, 240), fnNote();
    Key(Qt::Key_Z);
    Drag({at.x, at.y}, {at.x + 77, at.y + 55}), fnNote();
    Key(Qt::Key_Left, Qt::ShiftModifier), fnNote();
    Key(Qt::Key_Up), fnNote();
    Key(Qt::Key_Plus, Qt::ControlModifier), fnNote();
    Key(Qt::Key_Minus, Qt::ControlModifier), fnNote();
    Key(Qt::Key_0, Qt::ControlModifier), fnNote();
    for (std::size_t i = 1; i < states.size(); ++i) {
        EXPECT_NE(states[i], states[i - 1]) << i;
    }
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        Key(Qt::Key_Left, Qt::AltModifier);
        EXPECT_EQ(Plot().GetZoom(), states[i]) << i;
    }
    EXPECT_FALSE(IsEnabled(ID_ZOOM_BACK));
    for (std::size_t i = 1; i < states.size(); ++i) {
        Key(Qt::Key_Right, Qt::AltModifier);
        EXPECT_EQ(Plot().GetZoom(), states[i]) << i;
    }
    EXPECT_FALSE(IsEnabled(ID_ZOOM_FORWARD));
}

TEST_F(ViewerZoom, PartsOfANotchAreOneEntry) {
    for (int i = 0; i < 8; ++i) {
        Wheel(PointInPlot(), 15);
    }
    const CZoomState notch = Plot().GetZoom();
    Wheel(PointInPlot(), 15);
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Plot().GetZoom(), notch);
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Plot().GetZoom(), std::nullopt);
}

TEST_F(ViewerZoom, AnAreaIsDraggedOnceAndEscapeEndsWaitingForIt) {
    Key(Qt::Key_Z);
    EXPECT_TRUE(Plot().IsZoomInModeEnabled());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Plot().IsZoomInModeEnabled());
    Key(Qt::Key_Z);
    const CPixelMap map = Map();
    const CPoint from = PointInPlot();
    Drag(from, {from.x + 60, from.y + 40});
    EXPECT_EQ(Plot().GetZoom(), map.GetWindow(from, CPoint(from.x + 60, from.y + 40)));
    Idle();
    EXPECT_FALSE(Item(ID_ZOOM_AREA).isChecked());
}

TEST_F(ViewerZoom, ArrowsMoveByATenthWithoutAReadOutAndWalkWithOne) {
    Wheel(PointInPlot(), 360);
    const CZoomWindow before = *Plot().GetZoom();
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    const CZoomWindow after = *Plot().GetZoom();
    EXPECT_NEAR(after.dXMin - before.dXMin, (before.dXMax - before.dXMin) / 10, 1e-12);
    EXPECT_NEAR(after.dYMin - before.dYMin, (before.dYMin - before.dYMax) / 10, 1e-11);
    Key(Qt::Key_F2);
    for (const int nKey : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        Key(nKey);
    }
    EXPECT_EQ(Plot().m_walks,
              (std::vector{EWalk::back, EWalk::forward, EWalk::previousCurve, EWalk::nextCurve}));
    EXPECT_EQ(*Plot().GetZoom(), after);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_LT(Plot().GetZoom()->dXMin, after.dXMin);
}

TEST_F(ViewerZoom, TheWheelInTheMarginZoomsAtTheNearestEdge) {
    Wheel({1, 1}, 120);
    EXPECT_EQ(Plot().GetZoom(), (CZoomWindow{8, 0, 100, 20}));
}

} // namespace
