#include "tests/cli/ViewerFixture.h"

#include <QApplication>

#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/ui/threads/Loop.h"

using namespace tessara;

namespace {

/// Counts those that there are.
class CCountedTable : public CTable {
public:
    explicit CCountedTable(int nRows) : CTable(2) {
        Allocate(nRows);
        ++s_nTables;
    }
    ~CCountedTable() override { --s_nTables; }
    static int s_nTables;
};
int CCountedTable::s_nTables = 0;

class ViewerSection : public CViewerFixture {
protected:
    void PostSection(int nRows = 7) {
        m_pApp->m_pMainWnd->PostMessage(WM_CROSSSECTION, 3,
                                        reinterpret_cast<LPARAM>(new CCountedTable(nRows)));
        QApplication::processEvents();
    }
};

TEST_F(ViewerSection, APostedSectionOpensAWindowThatOwnsIt) {
    CViewerFrame& first = Frame();
    Key(Qt::Key_F4);
    Idle();
    Key(Qt::Key_F4); // the window hides once it has asked
    PostSection();
    ASSERT_EQ(m_pApp->GetFrames().size(), 2U);
    EXPECT_EQ(CCountedTable::s_nTables, 0) << "the plot of the section makes its own of the table";
    CViewerFrame& section =
        *(m_pApp->GetFrames()[0] == &first ? m_pApp->GetFrames()[1] : m_pApp->GetFrames()[0]);
    EXPECT_EQ(WindowOf(section).windowTitle(), "Test, section 3 - Tessara");
    EXPECT_TRUE(section.IsWindowVisible());
    EXPECT_TRUE(first.IsWindowVisible());
}

TEST_F(ViewerSection, ATableWithoutRowsIsSaidInTheBanner) {
    Key(Qt::Key_F4);
    Idle();
    Key(Qt::Key_F4);
    PostSection(0);
    EXPECT_EQ(m_pApp->GetFrames().size(), 1U);
    EXPECT_EQ(CCountedTable::s_nTables, 0);
    EXPECT_TRUE(IsBannerVisible());
    EXPECT_EQ(BannerText(), "No cross section: the curve has no point there");
}

TEST_F(ViewerSection, WithoutADiagramToAskTheTableIsGivenBack) {
    PostSection();
    EXPECT_EQ(m_pApp->GetFrames().size(), 1U);
    EXPECT_EQ(CCountedTable::s_nTables, 0);
}

TEST_F(ViewerSection, TheProgramLivesUntilTheLastWindowIsClosed) {
    Key(Qt::Key_F4);
    PostSection();
    CViewerFrame* const pFirst = dynamic_cast<CViewerFrame*>(m_pApp->m_pMainWnd);
    pFirst->SendMessage(WM_COMMAND, ID_FILE_CLOSE);
    ASSERT_EQ(m_pApp->GetFrames().size(), 1U);
    EXPECT_EQ(m_pApp->m_pMainWnd, m_pApp->GetFrames()[0]);
    bool bGoesOn = false;
    RunLoopUntil([&] { return bGoesOn = true; });
    EXPECT_TRUE(bGoesOn);
    m_pApp->m_pMainWnd->PostMessage(WM_COMMAND, ID_FILE_CLOSE);
    EXPECT_FALSE(RunLoopUntil([] { return false; }));
    EXPECT_TRUE(m_pApp->GetFrames().empty());
}

TEST_F(ViewerSection, TheDiagramWithTheKeyboardIsTheOneThatAsked) {
    Key(Qt::Key_F4);
    PostSection();
    CViewerFrame& second = *m_pApp->GetFrames().back();
    auto& plot = dynamic_cast<CViewerPlot&>(*second.GetPlotView().GetPlot());
    plot.ShowReadOut(EReadOut::crossSection, true);
    for (CViewerFrame* const pFrame : {m_pApp->GetFrames().front(), m_pApp->GetFrames().back()}) {
        pFrame->SetForegroundWindow();
        pFrame->GetPlotView().SetFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&WindowOf(*pFrame)));
        m_pApp->OnIdle(0);
        const std::string strName = pFrame->GetPlotView().GetPlot()->GetName();
        const std::vector<CViewerFrame*> before = m_pApp->GetFrames();
        PostSection();
        for (const CViewerFrame* const pNew : m_pApp->GetFrames()) {
            if (std::find(before.begin(), before.end(), pNew) == before.end()) {
                EXPECT_EQ(pNew->GetPlotView().GetPlot()->GetName(), strName + ", section 3");
            }
        }
    }
}

} // namespace
