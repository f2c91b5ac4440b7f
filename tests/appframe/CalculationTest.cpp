#include <gmock/gmock.h>

#include <QProgressBar>
#include <stdexcept>

#include "tests/appframe/Calculations.h"

namespace tessara {

std::vector<std::string>* CTestCalculation::s_pTold = nullptr;

BEGIN_MESSAGE_MAP(CCalculatingWnd, CWnd)
ON_MESSAGE(WM_CALCULATION_DONE, OnCalculation)
ON_MESSAGE(WM_PREPARATION_DONE, OnPreparation)
END_MESSAGE_MAP()

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

QProgressBar& Bar(UINT nTemplate = IDD_CALCULATION) {
    return dynamic_cast<QProgressBar&>(ControlOf(nTemplate, IDC_BAR));
}
QWidget& AbortButton() {
    return ControlOf(IDD_CALCULATION, IDCANCEL);
}
std::string Shown(UINT nControl) {
    return TextOf(ControlOf(IDD_CALCULATION, nControl));
}

/// Lets a calculation wait for the test, and counts how far it is.
class CGate {
public:
    void Open() { SetEvent(m_hOpen); }
    void Pass() { WaitForSingleObject(m_hOpen, LIMIT); }
    CGate() = default;
    ~CGate() { CloseHandle(m_hOpen); }
    CGate(const CGate&) = delete;
    CGate& operator=(const CGate&) = delete;

private:
    HANDLE m_hOpen = CreateEvent(nullptr, FALSE, FALSE, nullptr);
};

TEST_F(CalculationTest, ShowsItsProgressAndTellsOfItsEndWhenTheDialogHasGone) {
    CGate gate;
    Start([&](CTestCalculation& calculation) {
        gate.Pass();
        calculation.BeginProgressBar(200);
        for (int i = 0; i < 50; ++i) {
            calculation.StepProgressBar();
        }
        gate.Pass();
        calculation.SetProgressBarPercent(0.75);
        gate.Pass();
        calculation.EndProgressBar();
        return 7;
    });
    ASSERT_TRUE(WaitFor([] { return DialogOf(IDD_CALCULATION); }));
    EXPECT_EQ(DialogOf(IDD_CALCULATION)->windowTitle(), "Calculation");
    EXPECT_EQ(Shown(IDC_PROGRESS_TEXT), "The progam is calculating now.\nPlease wait");
    EXPECT_FALSE(Bar().isVisible());
    gate.Open();
    ASSERT_TRUE(WaitFor([] { return Shown(IDC_PROGRESS_LINE) == "25 % done"; }));
    EXPECT_TRUE(Bar().isVisible());
    EXPECT_EQ(Bar().value(), 50);
    EXPECT_EQ(Bar().maximum(), 200);
    gate.Open();
    ASSERT_TRUE(WaitFor([] { return Bar().value() == 150; }));
    EXPECT_EQ(Title(), "Untitled - Flory");
    EXPECT_THAT(m_wnd.m_ends, IsEmpty());
    gate.Open();
    AwaitEnd();
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(Done(7)));
    EXPECT_EQ(AwaitKilled(), WAIT_OBJECT_0);
}

TEST_F(CalculationTest, AbortChangesTheDialogAndTheResult) {
    CGate gate;
    Start([&](CTestCalculation& calculation) {
        calculation.BeginProgressBar(10);
        calculation.StepProgressBar();
        while (!calculation.IsCalculationAborted()) {
            Sleep(1);
        }
        calculation.StepProgressBar();
        gate.Pass();
        return 7;
    });
    ASSERT_TRUE(WaitFor([] { return DialogOf(IDD_CALCULATION) && Bar().value() == 1; }));
    QTest::mouseClick(&AbortButton(), Qt::LeftButton);
    ASSERT_TRUE(WaitFor([] { return !AbortButton().isEnabled(); }));
    EXPECT_EQ(Shown(IDC_PROGRESS_TEXT), "The program is aborting the calculations now. Please wait.");
    EXPECT_EQ(Shown(IDC_PROGRESS_LINE), "");
    EXPECT_EQ(Bar().value(), 1);
    gate.Open();
    AwaitEnd();
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(Done(-1)));
}

} // namespace

} // namespace tessara
