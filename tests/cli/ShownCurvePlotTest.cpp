#include "cli/view/ShownCurvePlot.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tests/cli/ShownPlots.h"

namespace tessara {

namespace {

constexpr UINT GET_VALUE = 16391;
constexpr UINT ARGUMENT = 144;
constexpr UINT VALUES = 183;
constexpr UINT GET_VALUE_BUTTON = 10;
constexpr COLORREF BLUE = 0xFF0000;

constexpr const char* LINES = "\"T, K\",up,down\n0,0,10\n1,1,9\n2,2,NA\n3,3,7\n4,4,6\n10,10,0\n";

class ShownCurvePlot : public ShownPlotFixture {
protected:
    std::string Argument() {
        return dynamic_cast<QLineEdit&>(ControlOf(GET_VALUE, ARGUMENT)).text().toStdString();
    }
    void Ask(const char* pszArgument) {
        auto& field = dynamic_cast<QLineEdit&>(ControlOf(GET_VALUE, ARGUMENT));
        field.setText(pszArgument);
        QTest::mouseClick(&ControlOf(GET_VALUE, GET_VALUE_BUTTON), Qt::LeftButton);
    }
    /// What the read-out shows after each step, until there is none.
    std::vector<std::string> Walked(EWalk eWalk) {
        std::vector<std::string> arguments;
        while (arguments.size() < 20 && Plot().Walk(eWalk)) {
            arguments.push_back(Argument());
        }
        return arguments;
    }
};

TEST_F(ShownCurvePlot, ReadsColumnsAsThePlotCommandDoes) {
    const std::string strPath = m_folder.Write("a.b.txt", "3;1;5\n1;2;4\n");
    EXPECT_EQ(OpenShownPlot({strPath, "1,3", "semicolon", true})->GetValuesText(), "x\tf(x)\n1\t4\n3\t5\n");
    EXPECT_EQ(OpenShownPlot({strPath, {}, {}, true})->GetName(), "a.b");
    const auto refusal = [](const CViewSource& source) { return Refusal([&] { OpenShownPlot(source); }); };
    EXPECT_NE(refusal({strPath, {}, {}, false}).find("--sort sorts the rows"), std::string::npos);
    EXPECT_NE(refusal({strPath, "1", {}, true}).find("--columns: "), std::string::npos);
    EXPECT_NE(refusal({strPath, {}, "comma", true}).find(strPath + ":1:"), std::string::npos);
    EXPECT_NE(refusal({m_folder.Path("none"), {}, {}, false}).find("cannot be read"), std::string::npos);
}

TEST_F(ShownCurvePlot, GivesTheShownValuesAsText) {
    const auto pPlot = Read(LINES);
    EXPECT_EQ(pPlot->GetValuesText(),
              "T, K\tup\tdown\n0\t0\t10\n1\t1\t9\n2\t2\t\n3\t3\t7\n4\t4\t6\n10\t10\t0\n");
    pPlot->SetScales({AXISSCALE{0, 4, 1, 0}, AXISSCALE{0, 8, 1, 0}});
    EXPECT_EQ(pPlot->GetValuesText(), "T, K\tup\tdown\n0\t0\t\n1\t1\t\n2\t2\t\n3\t3\t7\n4\t4\t6\n");
    pPlot->SetZoom(CZoomWindow{3.5, 1.5, 100, 2.5});
    EXPECT_EQ(pPlot->GetValuesText(), "T, K\tup\tdown\n3\t3\t7\n") << "both cut";
    EXPECT_EQ(Read("1 2 3\n")->GetValuesText(), "x\tf(x) 1\tf(x) 2\n1\t2\t3\n");
}

TEST_F(ShownCurvePlot, LeavesAllAsItWasWhenScalesShowNothing) {
    Show(Read(LINES));
    Plot().SetScales({AXISSCALE{0, 5, 1, 0}, {}});
    Plot().SetZoom(CZoomWindow{4, 1, 8, 2});
    Plot().Toggle(EPlotSwitch::caption);
    const auto before = Painted();
    const std::string strValues = Plot().GetValuesText();
    EXPECT_THROW(Plot().SetScales({AXISSCALE{20, 30, 5, 0}, {}}), CException);
    EXPECT_EQ(Plot().GetScales().x->dTo, 5);
    EXPECT_TRUE(Plot().GetZoom());
    EXPECT_EQ(Plot().GetValuesText(), strValues);
    EXPECT_EQ(Painted(), before);
}

TEST_F(ShownCurvePlot, KeepsItsSwitchesWhileScalesChangeAndEndsAZoom) {
    Show(Read(LINES));
    EXPECT_FALSE(Plot().Has(EPlotSwitch::multiphasePoints));
    for (const EPlotSwitch eSwitch : {EPlotSwitch::legend, EPlotSwitch::caption, EPlotSwitch::monochrome}) {
        ASSERT_TRUE(Plot().Has(eSwitch));
        const bool bOn = Plot().IsOn(eSwitch);
        const auto before = Painted();
        Plot().Toggle(eSwitch);
        EXPECT_NE(Plot().IsOn(eSwitch), bOn);
        EXPECT_NE(Painted(), before);
    }
    Plot().SetZoom(CZoomWindow{4, 1, 8, 2});
    Plot().SetScales({AXISSCALE{0, 5, 1, 0}, {}});
    EXPECT_FALSE(Plot().GetZoom());
    EXPECT_FALSE(Plot().IsOn(EPlotSwitch::legend));
    EXPECT_FALSE(Plot().IsOn(EPlotSwitch::caption));
    EXPECT_TRUE(Plot().IsOn(EPlotSwitch::monochrome));
    Plot().SetScales({});
    Plot().Toggle(EPlotSwitch::monochrome);
    Plot().Toggle(EPlotSwitch::legend);
    Plot().Toggle(EPlotSwitch::caption);
    const auto back = Painted();
    Close();
    Show(Read(LINES));
    EXPECT_EQ(Painted(), back) << "nothing is left of the scales";
    EXPECT_FALSE(Read("1 2\n2 3\n")->Has(EPlotSwitch::legend)) << "there is nothing to tell apart";
}

TEST_F(ShownCurvePlot, ZoomsByOneDrag) {
    Show(Read(LINES));
    Plot().EnableZoomInMode(true);
    const CPoint from = PixelOf(2, 8);
    const CPoint to = PixelOf(4, 5);
    m_window.Drag(from, to);
    EXPECT_FALSE(Plot().IsZoomInModeEnabled());
    ASSERT_TRUE(Plot().GetZoom());
    EXPECT_NEAR(Plot().GetZoom()->dXMin, 2, 0.02);
    EXPECT_NEAR(Plot().GetZoom()->dYMax, 8, 0.02);
    m_window.UpdateWindow();
    EXPECT_EQ(PixelOf(Plot().GetZoom()->dXMin, Plot().GetZoom()->dYMin).x, Plot().GetPixelMap().rect.left);
    Plot().EnableZoomInMode(true);
    m_window.Press(PixelOf(3, 6));
    Plot().EnableZoomInMode(false);
    m_window.Release(PixelOf(3.5, 7));
    EXPECT_NEAR(Plot().GetZoom()->dXMin, 2, 0.02) << "the mode goes alone";
    Plot().SetZoom(std::nullopt);
    EXPECT_FALSE(Plot().GetZoom());
}

TEST_F(ShownCurvePlot, DescribesAPointWithTheDigitsOfAPixel) {
    Show(Read(LINES));
    EXPECT_EQ(Plot().DescribePoint(3.14159, 2), "T = 3.14 K, value = 2.00");
    Plot().SetZoom(CZoomWindow{3.0002, 3.0001, 8, 2});
    m_window.RedrawWindow();
    EXPECT_EQ(Plot().DescribePoint(3.000123456, 2), "T = 3.0001235 K, value = 2.00");
    EXPECT_EQ(Read("1 2\n2 4\n")->DescribePoint(1, 0.5), "x = 1, f(x) = 0.5") << "before any paint";
    EXPECT_EQ(Read("T,p / kPa\n1,2\n2,4\n")->DescribePoint(1, 0.5), "T = 1, p = 0.5 kPa");
}

TEST_F(ShownCurvePlot, LeavesThePixelsOfTheScreenAndNoMarkInPictures) {
    Show(Read(LINES));
    Plot().ShowReadOut(EReadOut::getValue, true);
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    const CPixelMap map = Plot().GetPixelMap();
    const auto screen = Painted();
    const DRAWING drawing = Plot().GetDrawing();
    CImageDC image(300, 200);
    drawing.paint(image, image.GetClientRect());
    drawing.writeMetafile(image, image.GetClientRect(), m_folder.Path("a.wmf").c_str());
    EXPECT_EQ(Plot().GetPixelMap().rect, map.rect);
    EXPECT_EQ(Painted(), screen) << "the mark is there";
    CImageDC marked(CShownWindow::WIDTH, CShownWindow::HEIGHT);
    CImageDC plain(CShownWindow::WIDTH, CShownWindow::HEIGHT);
    drawing.paint(marked, marked.GetClientRect());
    Plot().ShowReadOut(EReadOut::getValue, false);
    drawing.paint(plain, plain.GetClientRect());
    for (int x = 0; x < CShownWindow::WIDTH; ++x) {
        ASSERT_EQ(marked.GetPixel(x, 300), plain.GetPixel(x, 300)) << x;
    }
}

TEST_F(ShownCurvePlot, WalksAlongTheSamplesOfThePickedFunction) {
    Show(Read(LINES));
    EXPECT_FALSE(Plot().Walk(EWalk::forward)) << "nothing reads out";
    Plot().ShowReadOut(EReadOut::getValue, true);
    EXPECT_EQ(Walked(EWalk::forward), (std::vector<std::string>{"0", "1", "2", "3", "4", "10"}));
    EXPECT_EQ(Walked(EWalk::back), (std::vector<std::string>{"4", "3", "2", "1", "0"}));
    EXPECT_TRUE(Plot().Walk(EWalk::nextCurve));
    EXPECT_EQ(Walked(EWalk::forward), (std::vector<std::string>{"1", "3", "4", "10"})) << "down has a gap";
    EXPECT_EQ(LinesOf(GET_VALUE, VALUES),
              (std::vector<std::string>{"up, down~N = 10~N", "up, down~N = 0~N"}));
    EXPECT_TRUE(Plot().Walk(EWalk::previousCurve));
    Plot().SetZoom(CZoomWindow{3.5, 1.5, 10, 0});
    m_window.RedrawWindow();
    EXPECT_EQ(Walked(EWalk::forward), std::vector<std::string>{"3"}) << "brought in, and at the last one";
    EXPECT_EQ(Walked(EWalk::back), std::vector<std::string>{"2"});
    Plot().SetZoom(CZoomWindow{1.7, 1.5, 10, 0});
    m_window.RedrawWindow();
    EXPECT_FALSE(Plot().Walk(EWalk::nextCurve)) << "no sample is shown";
}

TEST_F(ShownCurvePlot, PicksTheFunctionOfTheColourThatIsClicked) {
    Show(Read(LINES));
    Plot().ShowReadOut(EReadOut::getValue, true);
    m_window.Click(
        m_window.Find(BLUE, {PixelOf(3, 0).x + 5, PixelOf(0, 9).y, PixelOf(4, 0).x, PixelOf(0, 1).y}));
    EXPECT_EQ(Argument().substr(0, 2), "3.");
    EXPECT_EQ(Walked(EWalk::back), (std::vector<std::string>{"3", "1", "0"}));
}

TEST_F(ShownCurvePlot, ReadsEveryFunctionOutThoughScalesCutThem) {
    Show(Read(LINES));
    Plot().ShowReadOut(EReadOut::getValue, true);
    Plot().SetScales({AXISSCALE{0, 5, 1, 0}, AXISSCALE{0, 8, 2, 0}});
    EXPECT_TRUE(Plot().IsReadOutVisible(EReadOut::getValue));
    m_window.RedrawWindow();
    EXPECT_EQ(Walked(EWalk::forward), (std::vector<std::string>{"0", "1", "2", "3", "4"}));
    Walked(EWalk::back);
    EXPECT_EQ(LinesOf(GET_VALUE, VALUES),
              (std::vector<std::string>{"up, down~N = 0~N", "up, down~N = 10~N"}));
    Ask("7");
    EXPECT_EQ(LinesOf(GET_VALUE, VALUES), (std::vector<std::string>{"up, down~N = 7~N", "up, down~N = 3~N"}));
}

std::vector<COLORREF> Drawn(const std::function<int(CDC& dc, const RECT& rc)>& fnPaint) {
    CImageDC image(500, 360);
    fnPaint(image, image.GetClientRect());
    std::vector<COLORREF> pixels;
    for (int i = 0; i < 500 * 360; ++i) {
        pixels.push_back(image.GetPixel(i % 500, i / 500));
    }
    return pixels;
}

/// What the plot command draws within scales.
std::vector<COLORREF> Cut(const PLOTOPTIONS& options, const PLOTSOURCE& source, const CAxisScales& scales) {
    const CPlotSetup setup(options, CPlotScales(scales.x, scales.y));
    const CPlotData data(source.curves, source.symbols, setup.GetWindow(), PlotGaps::Stay);
    COutputCurve plot;
    setup.ApplyTo(plot, data);
    return Drawn([&](CDC& dc, const RECT& rc) { return plot.Paint(&dc, rc, nullptr); });
}

TEST_F(ShownCurvePlot, DrawsWithinScalesWhatThePlotCommandDraws) {
    PLOTOPTIONS options;
    options.files = {
        m_folder.Write("wave.txt", "x f g\n0 5 0\n1 8.4 1\n2 8.6 2\n3 NA 3\n4 2 4\n10 2.8 30\n")};
    const PLOTSOURCE source = PLOTSOURCE::Read(options);
    Show(std::make_unique<CShownCurvePlot>(options, source));
    const CAxisScales tries[] = {{AXISSCALE{0.5, 4.5, 1, 0}, {}},
                                 {{}, AXISSCALE{1.5, 8.5, 1, 0}},
                                 {AXISSCALE{0.5, 4.5, 1, 0}, AXISSCALE{1.5, 8.5, 1, 0}}};
    for (const CAxisScales& scales : tries) {
        Plot().SetScales(scales);
        const auto shown = Drawn(Plot().GetDrawing().paint);
        const auto cut = Cut(options, source, scales);
        int nDiffering = 0;
        for (std::size_t i = 0; i < cut.size(); ++i) {
            nDiffering += shown[i] != cut[i];
        }
        EXPECT_LT(nDiffering, 100) << "but for the rounding of a line that is cut into pieces";
    }
}

TEST_F(ShownCurvePlot, FollowsAChangedFileInTheSameWindow) {
    Show(Read(LINES));
    Plot().ShowReadOut(EReadOut::getValue, true);
    const QWidget* const pWindow = DialogOf(GET_VALUE);
    Ask("2");
    auto& argument = dynamic_cast<QLineEdit&>(ControlOf(GET_VALUE, ARGUMENT));
    argument.setText("3.");
    EXPECT_TRUE(Plot().Follow(*Read("0 5\n4 1\n")));
    m_window.RedrawWindow();
    Plot().SetMark(*Plot().GetMark());
    EXPECT_EQ(DialogOf(GET_VALUE), pWindow);
    EXPECT_EQ(LinesOf(GET_VALUE, VALUES), std::vector<std::string>{"f(x)~N = 3~N"}) << "without a name now";
    EXPECT_EQ(Argument(), "3.") << "what is being typed";
    EXPECT_EQ(Plot().GetMark()->dX, 2);
    EXPECT_FALSE(Plot().Has(EPlotSwitch::legend));
    const auto followed = Painted();
    const CPlotMark mark = *Plot().GetMark();
    Close();
    Show(Read("0 5\n4 1\n"));
    Plot().ShowReadOut(EReadOut::getValue, true);
    Plot().SetMark(mark);
    EXPECT_TRUE(Painted() == followed) << "nothing is left of the file before";
    EXPECT_FALSE(Plot().Follow(*Read("{\"format\":\"tessara-diagram\",\"version\":1,\"critical\":[[1,2]]}")));
}

TEST_F(ShownCurvePlot, KeepsTheDraggedRectangleWhereThePlotIsPaintedAnew) {
    Show(Read(LINES));
    Plot().Toggle(EPlotSwitch::legend);
    const auto plain = Painted();
    Plot().Toggle(EPlotSwitch::legend);
    Plot().EnableZoomInMode(true);
    m_window.RedrawWindow();
    m_window.Press(PixelOf(3, 6));
    m_window.MoveTo(PixelOf(5, 4));
    Plot().Toggle(EPlotSwitch::legend);
    EXPECT_TRUE(Painted() != plain) << "with the rectangle";
    Plot().EnableZoomInMode(false);
    EXPECT_TRUE(m_window.Pixels() == plain) << "without a trace";
    m_window.Release(PixelOf(5, 4));
}

} // namespace

} // namespace tessara
