#include "tests/cli/ShownPlots.h"

namespace tessara {

namespace {

constexpr UINT GET_VALUE = 16406;
constexpr UINT CROSS_SECTION = 16450;
constexpr UINT EXTENDED = 16451;
constexpr UINT LIST = 1008;
constexpr COLORREF CRITICAL = 0x000080;

constexpr const char* BINODAL = R"("binodal":[
    {"branch":"physical","x":[1,2,3],"shadow":[7,6,5],"y":[1,2,3],"columns":{"100%":[10,20,30]}},
    {"branch":"non-physical","x":[3,4,5],"shadow":[5,4.5,4],"y":[3,4,1],"columns":{"100%":[30,40,50]}}])";
constexpr const char* OTHERS = R"(,"spinodal":[{"x":[1,8],"y":[5,5],"columns":{"chi":[0.5,0.7]}}],
    "critical":[[4,4],[8,1]],"multiphase":[[2,4.5]],"x":{"symbol":"f~G"},
    "y":{"symbol":"T~i, K~N","format":"%.1lf"},"boundaries":{"left":1.5,"right":7.5})";

using CLines = std::vector<std::string>;

class ShownDiagram : public ShownPlotFixture {
protected:
    std::unique_ptr<CShownPlot> ReadDiagram(const std::string& strMembers) {
        return Read(R"( {"format":"tessara-diagram","version":1,)" + strMembers + "}", "demixing.json");
    }
    void ShowDiagram(const std::string& strMembers = BINODAL + std::string(OTHERS)) {
        Show(ReadDiagram(strMembers));
    }
    void Click(COLORREF color) { m_window.Click(m_window.Find(color, Plot().GetPixelMap().rect)); }
    CLines Elements() { return LinesOf(EXTENDED, LIST); }
};

TEST_F(ShownDiagram, IsToldByItsFirstCharacter) {
    EXPECT_EQ(ReadDiagram(BINODAL)->GetName(), "demixing");
    EXPECT_EQ(ReadDiagram(R"("name":"A","critical":[[1,2]])")->GetName(), "A");
    EXPECT_NE(Refusal([&] { Read("\n{]"); }).find(":2:2: "), std::string::npos);
    EXPECT_NE(Refusal([&] {
                  ReadDiagram(R"("critical":[[1,2]],"x":{"scale":{"from":3,"to":4,"step":1}})");
              }).find("nothing of the diagram lies within"),
              std::string::npos);
}

TEST_F(ShownDiagram, GivesEachElementAsAPairOfColumns) {
    const auto pPlot = ReadDiagram(BINODAL + std::string(OTHERS));
    EXPECT_EQ(pPlot->GetValuesText(),
              "Spinodal curve: φ\tSpinodal curve: T, K\t"
              "Cloud-point curve (physical): φ\tCloud-point curve (physical): T, K\t"
              "Cloud-point curve (non-physical): φ\tCloud-point curve (non-physical): T, K\t"
              "Shadow curve (physical): φ\tShadow curve (physical): T, K\t"
              "Shadow curve (non-physical): φ\tShadow curve (non-physical): T, K\t"
              "Critical point(s): φ\tCritical point(s): T, K\t"
              "Multiphase point(s): φ\tMultiphase point(s): T, K\n"
              "1\t5\t1\t1\t3\t3\t7\t1\t5\t3\t4\t4\t2\t4.5\n"
              "8\t5\t2\t2\t4\t4\t6\t2\t4.5\t4\t8\t1\t\t\n"
              "\t\t3\t3\t5\t1\t5\t3\t4\t1\t\t\t\t\n");
    pPlot->SetZoom(CZoomWindow{9, 0, 2.5, 0.5});
    EXPECT_EQ(ReadDiagram(R"("binodal":[{"x":[1,2,9,3,null,4],"y":[1,2,3,4,5,6]}],
                              "zoom":{"x":[0,5],"y":[0,9]})")
                  ->GetValuesText(),
              "Cloud-point curve: x\tCloud-point curve: f(x)\n1\t1\n2\t2\n\t\n3\t4\n\t\n4\t6\n");
}

TEST_F(ShownDiagram, ShowsAZoomOfTheFileThatCanBeLeft) {
    const std::string strMembers = BINODAL + std::string(OTHERS);
    ShowDiagram(strMembers);
    const auto whole = Painted();
    Close();
    ShowDiagram(strMembers + R"(,"zoom":{"x":[2,4],"y":[1,3]})");
    const auto zoomed = Painted();
    ASSERT_TRUE(Plot().GetZoom());
    EXPECT_EQ(*Plot().GetZoom(), (CZoomWindow{4, 2, 3, 1}));
    EXPECT_NE(zoomed, whole);
    Plot().SetZoom(std::nullopt);
    EXPECT_EQ(Painted(), whole) << "with the boundaries that a zoom leaves out";
    Plot().SetZoom(CZoomWindow{4, 2, 3, 1});
    EXPECT_EQ(Painted(), zoomed);
}

TEST_F(ShownDiagram, KeepsScalesOfTheFileThatHoldItsZoom) {
    const auto read = [&](const char* pszScale) {
        return ReadDiagram(std::string(BINODAL) + R"(,"zoom":{"x":[2,4],"y":[1,3]},"x":{"scale":)" +
                           pszScale + "}");
    };
    EXPECT_EQ(read(R"({"from":1,"to":5,"step":1})")->GetScales().x->dFrom, 1);
    EXPECT_FALSE(read(R"({"from":3,"to":5,"step":1})")->GetScales().x) << "a zoom overrules scales in a file";
}

TEST_F(ShownDiagram, LeavesAllAsItWasWhenScalesShowNothing) {
    ShowDiagram();
    Plot().SetScales({AXISSCALE{0, 6, 1, 0}, {}});
    Plot().SetZoom(CZoomWindow{4, 1, 8, 2});
    const auto before = Painted();
    EXPECT_THROW(Plot().SetScales({AXISSCALE{20, 30, 5, 0}, {}}), CException);
    EXPECT_EQ(Plot().GetScales().x->dTo, 6);
    EXPECT_TRUE(Plot().GetZoom());
    EXPECT_EQ(Painted(), before);
}

TEST_F(ShownDiagram, KeepsSwitchesAndReadOutsWhileScalesChange) {
    ShowDiagram();
    for (const EPlotSwitch eSwitch : {EPlotSwitch::legend, EPlotSwitch::caption, EPlotSwitch::monochrome,
                                      EPlotSwitch::multiphasePoints}) {
        ASSERT_TRUE(Plot().Has(eSwitch));
        Plot().Toggle(eSwitch);
    }
    Plot().ShowReadOut(EReadOut::extendedGetValue, true);
    Plot().EnableZoomInMode(true);
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    const CLines lines = Elements();
    Plot().SetZoom(CZoomWindow{4, 1, 8, 2});
    Plot().SetScales({{}, AXISSCALE{0, 6, 1, 0}});
    EXPECT_FALSE(Plot().GetZoom());
    EXPECT_TRUE(Plot().IsZoomInModeEnabled());
    EXPECT_FALSE(Plot().IsOn(EPlotSwitch::legend));
    EXPECT_FALSE(Plot().IsOn(EPlotSwitch::caption));
    EXPECT_TRUE(Plot().IsOn(EPlotSwitch::monochrome));
    EXPECT_TRUE(Plot().IsOn(EPlotSwitch::multiphasePoints));
    EXPECT_TRUE(Plot().IsReadOutVisible(EReadOut::extendedGetValue));
    EXPECT_FALSE(Plot().IsReadOutVisible(EReadOut::getValue));
    EXPECT_EQ(Elements(), lines);
    EXPECT_FALSE(ReadDiagram(R"("critical":[[1,2]])")->Has(EPlotSwitch::multiphasePoints));
}

TEST_F(ShownDiagram, ReadsThePhaseInEquilibriumOut) {
    ShowDiagram();
    Plot().ShowReadOut(EReadOut::getValue, true);
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    EXPECT_EQ(LinesOf(GET_VALUE, LIST), (CLines{"f~G = 2~N", "T~i, K~N = 2.0~N", "F~G' = 6~N"}));
    Click(CRITICAL);
    EXPECT_EQ(LinesOf(GET_VALUE, LIST).size(), 2u);
    Plot().SetScales({AXISSCALE{0, 2.5, 1, 0}, {}});
    m_window.RedrawWindow();
    while (Plot().Walk(EWalk::forward)) {
    }
    EXPECT_EQ(LinesOf(GET_VALUE, LIST), (CLines{"f~G = 2.5~N", "T~i, K~N = 2.5~N", "F~G' = 5.5~N"}))
        << "where the scale cuts";
}

TEST_F(ShownDiagram, ListsWhatTheFileHasOfAnElement) {
    ShowDiagram();
    Plot().ShowReadOut(EReadOut::extendedGetValue, true);
    CLines headings;
    for (int i = 0; i < 7; ++i) {
        ASSERT_TRUE(Plot().Walk(i == 0 ? EWalk::forward : EWalk::nextCurve));
        headings.push_back(Elements().empty() ? "" : Elements().front());
    }
    EXPECT_EQ(headings, (CLines{"Cloud-point curve (physical)~b", "Cloud-point curve (non-physical)~b",
                                "Spinodal curve~b", "", "", "Critical point~b", "Multiphase point~b"}))
        << "the shadow curve has no lines";
    ASSERT_TRUE(Plot().Walk(EWalk::nextCurve));
    ASSERT_TRUE(Plot().Walk(EWalk::back)) << "from the end of the curve";
    EXPECT_EQ(Elements(), (CLines{"Cloud-point curve (physical)~b", "f~G = 2~N", "T~i, K~N = 2.0~N",
                                  "F~G' = 6~N", "100%~N = 20~N"}));
    ASSERT_TRUE(Plot().Walk(EWalk::nextCurve));
    ASSERT_TRUE(Plot().Walk(EWalk::nextCurve));
    EXPECT_EQ(Elements().back(), "chi~N = 0.5~N");
}

TEST_F(ShownDiagram, WalksOnlyWhereTheReadOutAllowsPicking) {
    ShowDiagram();
    EXPECT_FALSE(Plot().Walk(EWalk::forward)) << "nothing reads out";
    Plot().ShowReadOut(EReadOut::crossSection, true);
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    EXPECT_FALSE(Plot().Walk(EWalk::nextCurve)) << "the cloud-point curve alone";
    Click(CRITICAL);
    EXPECT_EQ(LinesOf(CROSS_SECTION, LIST).front(), "f~G = 1~N") << "critical points have no section";
    Plot().ShowReadOut(EReadOut::getValue, true);
    while (Plot().GetMark()->nPicked != CRITICAL) {
        ASSERT_TRUE(Plot().Walk(EWalk::nextCurve));
    }
    EXPECT_EQ(LinesOf(GET_VALUE, LIST).front(), "f~G = 4~N");
    ASSERT_TRUE(Plot().Walk(EWalk::forward)) << "points are a curve without lines";
    EXPECT_EQ(LinesOf(GET_VALUE, LIST).front(), "f~G = 8~N");
    EXPECT_FALSE(Plot().Walk(EWalk::forward));
}

TEST_F(ShownDiagram, ShowsOneReadOutAtATimeAndTakesThePointAlong) {
    ShowDiagram();
    Plot().ShowReadOut(EReadOut::getValue, true);
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    for (const EReadOut eReadOut : {EReadOut::extendedGetValue, EReadOut::crossSection,
                                    EReadOut::extendedGetValue, EReadOut::getValue}) {
        Plot().ShowReadOut(eReadOut, true);
        EXPECT_EQ(Plot().GetReadOut(), eReadOut);
        EXPECT_EQ((DialogOf(GET_VALUE) != nullptr) + (DialogOf(EXTENDED) != nullptr) +
                      (DialogOf(CROSS_SECTION) != nullptr),
                  1);
        ASSERT_TRUE(Plot().GetMark());
        EXPECT_EQ(Plot().GetMark()->dX, 2);
        const UINT nWindow = eReadOut == EReadOut::getValue       ? GET_VALUE
                             : eReadOut == EReadOut::crossSection ? CROSS_SECTION
                                                                  : EXTENDED;
        const CLines lines = LinesOf(nWindow, LIST);
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "f~G = 2~N"), 1);
    }
    Plot().ShowReadOut(EReadOut::extendedGetValue, true);
    while (Plot().GetMark()->nPicked != CRITICAL && Plot().Walk(EWalk::nextCurve)) {
    }
    Plot().ShowReadOut(EReadOut::crossSection, true);
    EXPECT_FALSE(Plot().GetMark()) << "which can read nothing out there";
    Plot().ShowReadOut(EReadOut::crossSection, false);
    EXPECT_FALSE(Plot().GetReadOut());
}

TEST_F(ShownDiagram, FollowsAChangedFileInTheSameWindows) {
    ShowDiagram();
    Plot().ShowReadOut(EReadOut::extendedGetValue, true);
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    const QWidget* const pWindow = DialogOf(EXTENDED);
    Plot().EnableZoomInMode(true);
    std::string strChanged = BINODAL + std::string(OTHERS);
    strChanged.replace(strChanged.find("[10,20,30]"), 10, "[11,21,31]");
    const auto pNext = ReadDiagram(strChanged);
    pNext->Toggle(EPlotSwitch::caption);
    ASSERT_TRUE(Plot().Follow(*pNext));
    EXPECT_TRUE(Plot().IsZoomInModeEnabled());
    Plot().SetMark(*Plot().GetMark());
    EXPECT_EQ(DialogOf(EXTENDED), pWindow);
    EXPECT_EQ(Elements().back(), "100%~N = 21~N");
    EXPECT_FALSE(Plot().IsOn(EPlotSwitch::caption));
    const auto followed = Painted();
    EXPECT_FALSE(Plot().Follow(*ReadDiagram(R"("critical":[[1,2]])"))) << "which has fewer windows";
    EXPECT_FALSE(Plot().Follow(*Read("1 2\n2 3\n")));
    EXPECT_TRUE(Painted() == followed);
}

TEST_F(ShownDiagram, OpensTheCrossSectionThatIsAskedFor) {
    ShowDiagram();
    Plot().ShowReadOut(EReadOut::crossSection, true);
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    ASSERT_TRUE(Plot().Walk(EWalk::forward));
    auto& list = ControlOf(CROSS_SECTION, LIST);
    QTest::mouseClick(&CPeer::Of(&list)->GetClient(), Qt::LeftButton, {}, QPoint(8, 30)); // the ordinate
    QTest::mouseClick(&ControlOf(CROSS_SECTION, IDOK), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_window.m_pSection != nullptr; }));
    EXPECT_EQ(m_window.m_nSectionColumn, 1);
    const auto pSection = Plot().OpenSection(m_window.m_nSectionColumn, std::move(m_window.m_pSection));
    ASSERT_TRUE(pSection);
    EXPECT_EQ(pSection->GetName().substr(0, 25), "Cross section at T = 2.0 ");
}

/// A section of some rows of three columns.
std::unique_ptr<CTable> Section(std::initializer_list<std::array<double, 3>> rows, int nColumns = 3) {
    auto pTable = std::make_unique<CTable>(nColumns);
    pTable->Allocate(static_cast<int>(rows.size()));
    int nRow = 0;
    for (const std::array<double, 3>& row : rows) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(nColumns); ++i) {
            pTable->m_ppData[i][nRow] = row[i];
        }
        ++nRow;
    }
    return pTable;
}

TEST_F(ShownDiagram, ShowsTheRowsOfASectionAsMarkers) {
    constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
    const auto pDiagram = ReadDiagram(BINODAL + std::string(OTHERS));
    const auto open = [&](int nColumn, std::unique_ptr<CTable> pTable) {
        const auto pPlot = pDiagram->OpenSection(nColumn, std::move(pTable));
        return pPlot ? pPlot->GetName() + "\n" + pPlot->GetValuesText() : "";
    };
    EXPECT_EQ(open(1, Section({{3, 305.24, 6}, {1, 305.24, 7}, {2, 305.24, NOT_A_NUMBER}})),
              "Cross section at T = 305.2 K\nφ\tΦ'\n1\t7\n3\t6\n");
    EXPECT_EQ(open(0, Section({{2, 300, 7}, {2, 290, 6}})),
              "Cross section at φ = 2\nT, K\tΦ'\n290\t6\n300\t7\n");
    EXPECT_EQ(open(0, Section({{2, 300, 7}, {3, 290, 7}})),
              "Cross section at Φ' = 7\nT, K\tφ\n290\t3\n300\t2\n")
        << "the shadow's abscissa was held";
    EXPECT_EQ(open(1, Section({{2, 300, 0}}, 2)), "Cross section at T = 300.0 K\nφ\tT, K\n2\t300\n");
    EXPECT_EQ(open(1, Section({})), "");
    EXPECT_EQ(open(1, nullptr), "");
    Show(pDiagram->OpenSection(1, Section({{3, 305, 6}, {1, 305, 7}})));
    EXPECT_FALSE(Plot().OpenSection(1, Section({{3, 305, 6}})));
    Plot().ShowReadOut(EReadOut::getValue, true);
    EXPECT_TRUE(Plot().Walk(EWalk::forward));
    EXPECT_TRUE(Plot().Walk(EWalk::forward));
    EXPECT_FALSE(Plot().Walk(EWalk::forward));
}

TEST_F(ShownDiagram, DescribesAPoint) {
    ShowDiagram();
    EXPECT_EQ(Plot().DescribePoint(3.14159, 2), "φ = 3.14, T = 2.000 K");
    EXPECT_EQ(ReadDiagram(BINODAL)->DescribePoint(3.25, 2), "x = 3.25, f(x) = 2");
}

TEST_F(ShownDiagram, LeavesTheZoomWithZoomInModeOnly) {
    ShowDiagram();
    Plot().EnableZoomInMode(true);
    m_window.Drag(PixelOf(2, 3), PixelOf(4, 1));
    EXPECT_FALSE(Plot().IsZoomInModeEnabled());
    const auto zoom = Plot().GetZoom();
    ASSERT_TRUE(zoom);
    EXPECT_NEAR(zoom->dXMin, 2, 0.03);
    Plot().EnableZoomInMode(true);
    Plot().EnableZoomInMode(false);
    EXPECT_EQ(Plot().GetZoom(), zoom);
}

} // namespace

} // namespace tessara
