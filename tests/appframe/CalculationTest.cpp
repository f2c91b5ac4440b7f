#include <gmock/gmock.h>

#include <QProgressBar>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <thread>

#include "tests/appframe/Calculations.h"

namespace tessara {

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

/// Steps through a calculation of 200 steps while the application's window is minimised.
struct CTitleCase {
    const char* pszName;
    void (*pfnLeave)(CTestCalculation& calculation); ///< the way out of Calculate
};

TEST_F(CalculationTest, TellsInTheMinimisedTitleHowFarItIsAndGivesItBackOnEveryWayOut) {
    std::vector<std::string> told;
    CTestCalculation::s_pTold = &told;
    const CTitleCase cases[] = {
        {"end of the bar", [](CTestCalculation& calculation) { calculation.EndProgressBar(); }},
        {"no end of the bar", [](CTestCalculation&) {}},
        {"a second beginning", [](CTestCalculation& calculation) { calculation.BeginProgressBar(0); }},
        {"exception", [](CTestCalculation&) { throw std::runtime_error("no solution"); }},
        {"abort", [](CTestCalculation& calculation) {
             while (!calculation.IsCalculationAborted()) {
                 Sleep(1);
             }
         }}};
    std::size_t nEnds = 0;
    for (const CTitleCase& entry : cases) {
        CGate gate;
        m_wnd.ShowWindow(SW_MINIMIZE);
        Start([&](CTestCalculation& calculation) {
            calculation.BeginProgressBar(200);
            for (int i = 0; i < 50; ++i) {
                calculation.StepProgressBar();
            }
            gate.Pass();
            entry.pfnLeave(calculation);
            return 1;
        });
        ASSERT_TRUE(WaitFor([&] { return Title() == "25% complete - Flory"; })) << entry.pszName << Title();
        gate.Open();
        if (entry.pszName == std::string("abort")) {
            ASSERT_TRUE(WaitFor([] { return DialogOf(IDD_CALCULATION); }));
            QTest::keyClick(DialogOf(IDD_CALCULATION), Qt::Key_Escape);
        }
        AwaitEnd(++nEnds);
        EXPECT_EQ(Title(), "Untitled - Flory") << entry.pszName;
        m_wnd.ShowWindow(SW_RESTORE);
    }
    EXPECT_THAT(told, ElementsAre("no solution"));
}

TEST_F(CalculationTest, TheTitleComesBackWithTheFirstStepAfterTheWindow) {
    CGate gate;
    m_wnd.ShowWindow(SW_MINIMIZE);
    Start([&](CTestCalculation& calculation) {
        calculation.BeginProgressBar(8);
        calculation.StepProgressBar();
        gate.Pass();
        calculation.StepProgressBar();
        gate.Pass();
        calculation.BeginProgressBar(0); // of no known length: nothing to tell
        calculation.StepProgressBar();
        gate.Pass();
        return 1;
    });
    ASSERT_TRUE(WaitFor([&] { return Title() == "12% complete - Flory"; }));
    m_wnd.ShowWindow(SW_RESTORE);
    gate.Open();
    ASSERT_TRUE(WaitFor([&] { return Title() == "Untitled - Flory"; }));
    m_wnd.ShowWindow(SW_MINIMIZE);
    gate.Open();
    ASSERT_TRUE(WaitFor([] { return Bar().value() == 0; }));
    EXPECT_EQ(Title(), "Untitled - Flory");
    gate.Open();
    AwaitEnd();
}

TEST_F(CalculationTest, PreparationsHaveNoAbort) {
    CGate gate;
    Start(
        [&](CTestCalculation& calculation) {
            calculation.BeginProgressBar(4);
            calculation.StepProgressBar();
            gate.Pass();
            return 5;
        },
        2);
    ASSERT_TRUE(WaitFor([] { return DialogOf(IDD_PREPARATIONS) && Bar(IDD_PREPARATIONS).value() == 1; }));
    QWidget& dialog = *DialogOf(IDD_PREPARATIONS);
    EXPECT_EQ(dialog.windowTitle(), "Preparations");
    EXPECT_FALSE(dialog.findChild<QAbstractButton*>());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QTest::keyClick(&dialog, Qt::Key_Return);
    dialog.close();
    QApplication::processEvents();
    EXPECT_TRUE(dialog.isVisible());
    gate.Open();
    AwaitEnd();
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(CCalculatingWnd::CEnd{WM_PREPARATION_DONE, 1005, false}));
}

TEST_F(CalculationTest, AnExceptionIsShownAndThenToldAsAFailure) {
    std::string strText;
    AnswerMessage(strText);
    Start([](CTestCalculation&) -> int { throw std::runtime_error("The matrix is singular."); });
    AwaitEnd();
    EXPECT_EQ(strText, "The matrix is singular.");
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(Done(-1)));
}

TEST_F(CalculationTest, NothingIsShownOfAnExceptionAfterAnAbort) {
    std::vector<std::string> told;
    CTestCalculation::s_pTold = &told;
    Start([](CTestCalculation& calculation) -> int {
        while (!calculation.IsCalculationAborted()) {
            Sleep(1);
        }
        throw std::runtime_error("aborted");
    });
    ASSERT_TRUE(WaitFor([] { return DialogOf(IDD_CALCULATION); }));
    DialogOf(IDD_CALCULATION)->close(); // as a window manager asks for it
    AwaitEnd();
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(Done(-1)));
}

TEST_F(CalculationTest, AWaitForItsEndOnTheMainThreadIsAnswered) {
    Start([](CTestCalculation& calculation) {
        calculation.BeginProgressBar(1000);
        for (int i = 0; i < 1000; ++i) {
            calculation.StepProgressBar();
        }
        calculation.EndProgressBar();
        return 3;
    });
    EXPECT_EQ(AwaitKilled(), WAIT_OBJECT_0);
    AwaitEnd();
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(Done(3)));
}

TEST_F(CalculationTest, TheEndOfItsWindowIsAnAbort) {
    for (const bool bWithDialog : {true, false}) {
        CGate begun;
        Start([&](CTestCalculation& calculation) {
            begun.Open();
            while (!calculation.IsCalculationAborted()) {
                calculation.StepProgressBar();
                Sleep(1);
            }
            return 1;
        });
        if (bWithDialog) {
            ASSERT_TRUE(WaitFor([] { return DialogOf(IDD_CALCULATION); }));
        } else {
            begun.Pass();
        }
        m_wnd.DestroyWindow();
        EXPECT_EQ(AwaitKilled(), WAIT_OBJECT_0);
        EXPECT_THAT(m_wnd.m_ends, IsEmpty());
        Open();
    }
}

TEST_F(CalculationTest, ManySmallStepsDoNotKeepTheUserWaiting) {
    CGate gate;
    Start([&](CTestCalculation& calculation) {
        calculation.BeginProgressBar(1'000'000);
        for (int i = 0; i < 200'000 && !calculation.IsCalculationAborted(); ++i) {
            calculation.StepProgressBar();
            calculation.SetProgressBarPercent(i / 1e6);
        }
        for (const double dOdd : {-1.0, 2.0, std::nan(""), 1e300, 0.25}) {
            calculation.SetProgressBarPercent(dOdd);
        }
        gate.Pass();
        return 1;
    });
    ASSERT_TRUE(WaitFor([] { return DialogOf(IDD_CALCULATION) && Bar().value() == 250'000; }));
    gate.Open();
    AwaitEnd();
}

/// Calculations that a user aborts, or whose window he closes, at any moment; each is followed by the next at
/// once.
class CHurriedUser {
public:
    explicit CHurriedUser(unsigned nSeed) : m_random(nSeed) {}
    int Draw(int nBelow) { return static_cast<int>(m_random() % static_cast<unsigned>(nBelow)); }
    /// Presses the button of the dialog that is there.
    static bool Abort() {
        if (!DialogOf(IDD_CALCULATION) || !AbortButton().isEnabled()) {
            return false;
        }
        dynamic_cast<QAbstractButton&>(AbortButton()).click();
        return true;
    }

private:
    std::mt19937 m_random;
};

std::size_t CountThreads() {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}));
}

TEST_F(CalculationTest, HurriedUsersLeaveNothingBehind) {
    const char* const pszRounds = std::getenv("TESSARA_CALCULATION_ROUNDS");
    const std::size_t nRounds = pszRounds ? static_cast<std::size_t>(std::atoi(pszRounds)) : 40;
    CHurriedUser user(7);
    std::vector<double> waits; // milliseconds from an abort to the word of the end
    const CWork work = [&](CTestCalculation& calculation) {
        calculation.BeginProgressBar(100);
        while (!calculation.IsCalculationAborted()) {
            calculation.StepProgressBar();
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        return 1;
    };
    const auto play = [&](bool bClose) {
        const std::size_t nEnds = m_wnd.m_ends.size();
        Start(work);
        QTest::qWait(user.Draw(6));
        if (bClose) {
            m_wnd.DestroyWindow();
            EXPECT_EQ(AwaitKilled(), WAIT_OBJECT_0);
            EXPECT_EQ(m_wnd.m_ends.size(), nEnds);
            Open();
            return;
        }
        ASSERT_TRUE(WaitFor([] { return CHurriedUser::Abort(); }));
        const auto aborted = std::chrono::steady_clock::now();
        m_wnd.m_fnOnEnd = [&] {
            waits.push_back(
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - aborted)
                    .count());
        };
        AwaitEnd(nEnds + 1);
        m_wnd.m_fnOnEnd = nullptr;
        EXPECT_EQ(m_wnd.m_ends.back(), Done(-1));
    };
    play(false);
    play(true);
    const std::size_t nWindows = CountWindows();
    const auto nWidgets = QApplication::allWidgets().size();
    ASSERT_TRUE(WaitFor([] {
        return WaitForSingleObject(CBaseCalculationThread::m_hEventCalculationThreadKilled, 50) ==
               WAIT_TIMEOUT;
    }));
    const std::size_t nThreads = CountThreads();
    waits.clear();
    m_wnd.m_ends.clear();
    for (std::size_t i = 0; i < nRounds; ++i) {
        play(user.Draw(5) == 0);
    }
    EXPECT_EQ(m_wnd.m_ends.size(), waits.size()) << "one word of each end";
    EXPECT_TRUE(WaitFor([&] { return CountThreads() <= nThreads; }));
    EXPECT_EQ(CountWindows(), nWindows);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QApplication::allWidgets().size(), nWidgets);
    std::sort(waits.begin(), waits.end());
    std::printf("%zu calculations, %zu aborted: end told within %.1f ms (99th percentile), %.1f ms (all)\n",
                nRounds, waits.size(), waits[waits.size() * 99 / 100], waits.back());
}

} // namespace

} // namespace tessara
