#include <algorithm>
#include <cmath>
#include <cstring>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/curveplot/Plots.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

namespace {

constexpr UINT GET_VALUE = 16391;
constexpr UINT LABEL = 138;
constexpr UINT ARGUMENT = 144;
constexpr UINT VALUES = 183;
constexpr UINT BUTTON = 10;
constexpr COLORREF RED = 0x0000FF;
constexpr COLORREF BLUE = 0xFF0000;
constexpr COLORREF WHITE = 0xFFFFFF;

class CReadPlot : public CTestPlot {
public:
    using COutputCurve::DrawMark;
    using COutputCurve::operator=;
};

class CCurveWindow : public CPlotWindow<CReadPlot> {
protected:
    void OnPlotMessage(UINT nMessage, CPoint point) override {
        if (nMessage == WM_MOUSEMOVE) {
            m_plot.OnMouseMove(point, this);
        } else if (nMessage == WM_LBUTTONDOWN) {
            m_plot.OnMouseClick(point, this);
        }
    }
};

/// x and 10 - x from 0 to 10, with the read-out shown.
class CurveReadOut : public ::testing::Test {
protected:
    CurveReadOut() {
        m_pLines->Allocate(11);
        for (int i = 0; i <= 10; ++i) {
            m_pLines->m_pX[i] = i;
            m_pLines->m_ppY[0][i] = i;
            m_pLines->m_ppY[1][i] = 10 - i;
        }
        Plot().SetNames("Lines", "f~N", "Volume", "V~N");
        Plot().SetOutputData(m_pLines.get());
    }
    ~CurveReadOut() override {
        Plot().DestroyGetValue();
        m_window.DestroyWindow();
    }
    void SetUp() override {
        m_window.Open();
        Plot().CreateGetValue(&m_window);
        ASSERT_EQ(Plot().IsGetValueVisible(), 0);
        Plot().ShowGetValue(1);
        ASSERT_EQ(Plot().IsGetValueVisible(), 1);
    }

    CReadPlot& Plot() { return m_window.m_plot; }
    std::vector<std::string> Lines() { return LinesOf(GET_VALUE, VALUES); }
    std::string Typed() {
        return dynamic_cast<QLineEdit&>(ControlOf(GET_VALUE, ARGUMENT)).text().toStdString();
    }
    void Type(const char* pszText) {
        auto& edit = dynamic_cast<QLineEdit&>(ControlOf(GET_VALUE, ARGUMENT));
        edit.selectAll();
        QTest::keyClicks(&edit, pszText);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    /// The columns of the plot that show the mark's grey in a row between the curves and the grid.
    std::vector<int> MarkColumns() {
        std::vector<int> columns;
        const CRect plot = Plot().m_rcPlotDevice;
        for (int x = plot.left; x < plot.right; ++x) {
            const COLORREF color = m_window.PixelAt({x, plot.top + 20});
            if (color != WHITE && color != 0 && Plot().CurveFromColor(color) == -1) {
                columns.push_back(x);
            }
        }
        return columns;
    }

    std::unique_ptr<CMultiCurve> m_pLines = std::make_unique<CMultiCurve>(2);
    CCurveWindow m_window;
};

TEST_F(CurveReadOut, ATypedArgumentIsReadOutAndMarked) {
    EXPECT_EQ(TextOf(ControlOf(GET_VALUE, LABEL)), "Volume:");
    Type("2.5");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"f~N = 2.50~N", "f~N = 7.50~N"}));
    ASSERT_FALSE(MarkColumns().empty());
    EXPECT_NEAR(Plot().GetPixelMap().GetX(MarkColumns().front()), 2.5, 0.05);
}

TEST_F(CurveReadOut, ABadArgumentSaysSoAndChangesNothing) {
    Type("2.5");
    const std::vector<int> mark = MarkColumns();
    for (const char* pszBad : {"2,5", "-1", "x", "1e"}) {
        std::string strMessage;
        AnswerMessage(strMessage);
        Type(pszBad);
        EXPECT_EQ(strMessage, "Please check the value you have entered !") << pszBad;
    }
    EXPECT_EQ(Lines().front(), "f~N = 2.50~N");
    EXPECT_EQ(MarkColumns(), mark);
}

TEST_F(CurveReadOut, AClickOnACurveReadsOutEveryFunctionThere) {
    for (const COLORREF color : {RED, BLUE}) {
        const CPoint point = m_window.Find(color, Plot().m_rcPlotDevice);
        m_window.Click(point);
        const CRect plot = Plot().m_rcPlotDevice;
        const double dArgument = (point.x - plot.left) / static_cast<double>(plot.Width()) * 10;
        CString strArgument;
        strArgument.Format("%.2lf", dArgument);
        EXPECT_EQ(Typed(), std::string(strArgument));
        CString strFirst;
        CString strSecond;
        strFirst.Format("f~N = %.2lf~N", dArgument);
        strSecond.Format("f~N = %.2lf~N", 10 - dArgument);
        EXPECT_EQ(Lines(), (std::vector<std::string>{std::string(strFirst), std::string(strSecond)}));
        ASSERT_FALSE(MarkColumns().empty());
        EXPECT_NEAR(MarkColumns().front(), point.x, 1);
    }
}

TEST_F(CurveReadOut, AClickElsewhereDoesNothing) {
    const auto before = m_window.Pixels();
    const CRect plot = Plot().m_rcPlotDevice;
    const CPoint grid{plot.left + plot.Width() / 10 * 2, plot.top + plot.Height() * 3 / 10};
    const CPoint white{plot.left + plot.Width() / 10 * 3 + 9, plot.top + 13};
    ASSERT_EQ(m_window.PixelAt(white), WHITE);
    for (const CPoint point :
         {white, grid, CPoint(plot.left - 30, plot.top + 5), CPoint(plot.right + 200, plot.top + 9)}) {
        m_window.Click(point);
    }
    EXPECT_TRUE(Lines().empty());
    EXPECT_EQ(Plot().m_nFlags & OCF_MARKSHOWN, 0U);
    EXPECT_EQ(m_window.Pixels(), before);
    Plot().ShowGetValue(0);
    m_window.Click(m_window.Find(RED, plot));
    EXPECT_EQ(Plot().m_nFlags & OCF_MARKSHOWN, 0U);
}

TEST_F(CurveReadOut, ReadOutsLeaveOneMarkAndPaintingKeepsIt) {
    Plot().DisplayValues(2.5);
    Plot().DisplayValues(6.5);
    const auto marked = m_window.Pixels();
    ASSERT_FALSE(MarkColumns().empty());
    EXPECT_GT(MarkColumns().front(), Plot().GetPixelMap().GetPixel(6, 0).x);
    m_window.RedrawWindow();
    EXPECT_EQ(m_window.Pixels(), marked);
    Plot().DrawMark();
    EXPECT_TRUE(MarkColumns().empty());
    Plot().DrawMark();
    EXPECT_EQ(m_window.Pixels(), marked);
}

TEST_F(CurveReadOut, HidingTheWindowOrClosingItTakesTheMarkAway) {
    const auto unmarked = m_window.Pixels();
    Plot().ShowGetValue(0);
    EXPECT_EQ(m_window.Pixels(), unmarked);
    for (const bool bClose : {false, true}) {
        Plot().ShowGetValue(1);
        Plot().DisplayValues(4.25);
        EXPECT_NE(m_window.Pixels(), unmarked);
        if (bClose) {
            DialogOf(GET_VALUE)->close();
        } else {
            Plot().ShowGetValue(0);
        }
        EXPECT_EQ(Plot().IsGetValueVisible(), 0);
        EXPECT_EQ(Plot().m_nFlags & (OCF_MARKSHOWN | OCF_GETVALUE), 0U);
        EXPECT_EQ(m_window.Pixels(), unmarked);
    }
}

TEST_F(CurveReadOut, TheMarkFollowsTheWidthOfThePlotAndStaysInIt) {
    Plot().m_bShowLegend = 0;
    m_window.RedrawWindow();
    const CPoint point = m_window.Find(RED, Plot().m_rcPlotDevice);
    m_window.Click(point);
    ASSERT_FALSE(MarkColumns().empty());
    EXPECT_NEAR(MarkColumns().front(), point.x, 1);
    const auto marked = m_window.Pixels();
    Plot().DisplayValues(25); // off the axis
    EXPECT_EQ(Lines().front(), "f~N = 10.00~N");
    EXPECT_TRUE(MarkColumns().empty());
    Plot().PickArgument(Plot().GetPixelMap().GetX(point.x));
    EXPECT_EQ(m_window.Pixels(), marked);
}

TEST_F(CurveReadOut, LinesShowTheNumberBesideThePowerOfTenThatItIsTimes) {
    struct CCase {
        int nExponent;
        double dValue;
        const char* pszLine;
    };
    for (const CCase& one : {CCase{0, 0.0123, "p~N = 0.01~N"},
                             CCase{2, 0.0123,
                                   "p~N = 1.23\xD7"
                                   "10~N-2~H"},
                             CCase{-1, 12,
                                   "p~N = 1.20\xD7"
                                   "10~N"},
                             CCase{1, 0.5,
                                   "p~N = 5.00\xD7"
                                   "10~N-1~H"},
                             CCase{-3, 4500,
                                   "p~N = 4.50\xD7"
                                   "10~N3~H"}}) {
        double dX = 1;
        double dY = one.dValue;
        Plot().SetOutputData(&dX, &dY, 1);
        Plot().SetCurveSymbol("p~N");
        ASSERT_EQ(Plot().UseCustomScale(2, 0, 1, 0.5, one.nExponent), 1);
        Plot().DisplayValues(1);
        EXPECT_EQ(Lines(), std::vector<std::string>{one.pszLine});
    }
    Plot().SetOutputData(m_pLines.get());
}

TEST_F(CurveReadOut, EveryBranchOfAMultipartCurveIsReadOut) {
    // 0..2 upwards, 1..4 downwards, 6..7 twice, the second time with a gap
    double x[] = {0, 1, 2, 1, 2, 4, 6, 7, 6, 6.5, 7};
    double y[] = {0, 1, 4, 9, 8, 7, 5, 5, 5, std::nan(""), 6};
    CCurvePartInfo parts[] = {{0, 3, 0}, {3, 3, 1}, {6, 2, 2}, {8, 3, 3}};
    CMultipartCurve curve(11, x, y, 4, parts, 4);
    Plot() = &curve;
    m_window.RedrawWindow(); // leaves the arrays at the last part
    const struct {
        double dArgument;
        std::vector<std::string> values;
    } cases[] = {
        {0.5, {"0.50"}},  {1.5, {"2.50", "8.50"}}, {2, {"4.00", "8.00"}}, // where the first ends
        {4, {"7.00"}},                                                    // a last point
        {6, {"5.00"}},                                                    // the same value twice
        {5, {"6.00"}},    // between branches, as the curve's own value has it
        {9, {"6.00"}},    // and beyond its ends
        {6.25, {"5.00"}}, // beside a gap
    };
    for (const auto& one : cases) {
        Plot().DisplayValues(one.dArgument);
        std::vector<std::string> lines;
        for (const std::string& strValue : one.values) {
            lines.push_back("f~N = " + strValue + "~N");
        }
        EXPECT_EQ(Lines(), lines) << one.dArgument;
    }
    Plot().SetOutputData(m_pLines.get());
}

TEST_F(CurveReadOut, AnOpenReadOutFollowsNewDataAndChangedOnes) {
    Plot().DisplayValues(2.5);
    CMultiCurve other(3);
    other.Allocate(2);
    for (int i = 0; i < 2; ++i) {
        other.m_pX[i] = 10 * i;
        for (int j = 0; j < 3; ++j) {
            other.m_ppY[j][i] = 4 * j;
        }
    }
    Plot().SetOutputData(&other);
    m_window.RedrawWindow();
    EXPECT_EQ(Lines(), (std::vector<std::string>{"f~N = 0.00~N", "f~N = 4.00~N", "f~N = 8.00~N"}));
    other.m_ppY[1][0] = other.m_ppY[1][1] = 6;
    Plot().SetCurveSymbol("p~N");
    m_window.RedrawWindow();
    EXPECT_EQ(Lines(), (std::vector<std::string>{"p~N = 0.00~N", "p~N = 6.00~N", "p~N = 8.00~N"}));
    CImageDC picture(200, 144);
    Plot().SetOutputData(m_pLines.get());
    Plot().Paint(&picture, picture.GetClientRect(), nullptr);
    EXPECT_EQ(Lines().size(), 2U) << "whatever surface shows them first";
}

TEST_F(CurveReadOut, NoCurveLiesUnderThePointerWhereTheWindowHasGone) {
    const CPoint point = m_window.Find(RED, Plot().m_rcPlotDevice);
    CWnd gone;
    Plot().OnMouseMove(point, &m_window);
    ASSERT_NE(Plot().m_nFlags & OCF_OVERCURVE, 0U);
    Plot().OnMouseMove(point, &gone);
    EXPECT_EQ(Plot().m_nFlags & OCF_OVERCURVE, 0U);
    Plot().OnMouseClick(point, &gone);
    EXPECT_TRUE(Lines().empty());
}

TEST_F(CurveReadOut, AMarkThatNoWindowShowsAnyMoreIsNotTakenAwayTwice) {
    Plot().DisplayValues(3.25);
    Plot().DestroyGetValue();
    m_window.UpdateWindow();
    EXPECT_TRUE(MarkColumns().empty());
    Plot().DisplayValues(6.75); // without a window
    Plot().CreateGetValue(&m_window);
    Plot().ShowGetValue(1);
    Plot().DisplayValues(4.5);
    const CPixelMap map = Plot().GetPixelMap();
    for (const int nColumn : MarkColumns()) {
        EXPECT_NEAR(map.GetX(nColumn), 4.5, 0.05);
    }
}

TEST_F(CurveReadOut, CurvesAreCutAtCustomAxesWhenAskedTo) {
    ASSERT_EQ(Plot().UseCustomScale(2, 2, 6, 1, 0), 1);
    const auto fnReds = [&](const CRect& rect) {
        const auto pixels = m_window.Pixels();
        int nReds = 0;
        for (int y = rect.top; y < rect.bottom; ++y) {
            const auto row = pixels.begin() + y * CCurveWindow::WIDTH;
            nReds += static_cast<int>(std::count(row + rect.left, row + rect.right, RED));
        }
        return nReds;
    };
    m_window.RedrawWindow();
    const CRect plot = Plot().m_rcPlotDevice;
    const CRect above(plot.left, 0, plot.right, plot.top - 8);
    const int nInside = fnReds(plot);
    EXPECT_GT(fnReds(above), 0);
    Plot().CutToAxes(1);
    m_window.RedrawWindow();
    EXPECT_EQ(fnReds(above), 0);
    EXPECT_NEAR(fnReds(plot), nInside, 4);
    Plot().DisplayValues(9);
    EXPECT_EQ(Lines().front(), "f~N = 9.00~N");
}

TEST(CurvePlotWithoutReadOut, KeepsItsOwnStateAlone) {
    CReadPlot plot;
    double dX = 1;
    double dY = 2;
    plot.SetOutputData(&dX, &dY, 1);
    plot.ShowGetValue(1);
    plot.DisplayValues(1);
    plot.DisplayValues(1);
    plot.OnMouseClick({5, 5}, nullptr);
    EXPECT_EQ(plot.IsGetValueVisible(), 0);
    EXPECT_EQ(plot.m_ValueLines.GetAt(0), "f(x)~N = 2.00~N");
    plot.ShowGetValue(0);
    plot.DestroyGetValue();
    EXPECT_EQ(plot.m_nFlags, 0U);
    plot.CreateGetValue(nullptr); // a read-out without a window that shows the plot
    plot.ShowGetValue(1);
    plot.DisplayValues(1);
    plot.ShowGetValue(0);
}

/// A zoomed plot shows pixels of its curve inside the frame alone.
TEST_F(CurveReadOut, AZoomCutsTheCurvesAndGivesTheScalesBack) {
    ASSERT_EQ(Plot().UseCustomScale(2, -5, 15, 5, 0), 1);
    m_window.RedrawWindow();
    const CHOOSESCALE argument = Plot().m_ArgumentScale;
    const CHOOSESCALE function = Plot().m_FunctionScale;
    const auto whole = m_window.Pixels();
    const CZoomWindow window{4.5, 2.5, 4, 1};
    Plot().ZoomTo(window);
    m_window.RedrawWindow();
    EXPECT_EQ(Plot().m_ArgumentScale.dLower, 2.5);
    EXPECT_EQ(Plot().m_ArgumentScale.dUpper, 4.5);
    EXPECT_EQ(Plot().m_FunctionScale.dUpper, 4);
    const CRect plot = Plot().m_rcPlotDevice;
    for (int y = 0; y < CCurveWindow::HEIGHT; ++y) {
        for (int x = 0; x < plot.right + 8; ++x) {
            const bool bAround =
                !CRect(plot.left - 2, plot.top - 2, plot.right + 2, plot.bottom + 2).PtInRect({x, y});
            ASSERT_FALSE(bAround && m_window.PixelAt({x, y}) == RED) << x << ' ' << y;
        }
    }
    EXPECT_EQ(m_window.PixelAt(m_window.Find(RED, plot)), RED);
    EXPECT_EQ(Plot().Value(0, 9), 9); // values are those of the whole curve
    Plot().ShowWhole();
    m_window.RedrawWindow();
    EXPECT_EQ(m_window.Pixels(), whole);
    EXPECT_EQ(std::memcmp(&Plot().m_ArgumentScale, &argument, sizeof argument), 0);
    EXPECT_EQ(std::memcmp(&Plot().m_FunctionScale, &function, sizeof function), 0);
}

TEST_F(CurveReadOut, NewDataEndAZoom) {
    Plot().ZoomTo({4.5, 2.5, 4, 1});
    Plot().SetOutputData(m_pLines.get());
    EXPECT_EQ(Plot().IsZoomed(), 0);
}

TEST_F(CurveReadOut, LeavesNothingBehind) {
    Plot().DestroyGetValue();
    const auto fnRound = [&] {
        Plot().CreateGetValue(&m_window);
        Plot().ShowGetValue(1);
        Plot().PickArgument(3.5);
        QApplication::processEvents();
        Plot().ShowGetValue(0);
        Plot().DestroyGetValue();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    CheckRounds(fnRound);
}

} // namespace

} // namespace tessara
