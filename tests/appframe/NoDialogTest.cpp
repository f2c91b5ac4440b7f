// What a calculation does where its dialog, or the thread of it, cannot be made. A program of its own: it
// hides the library's template, and stands between the library and the system.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>

#include "tessara/platform/ui/resources/Resources.h"
#include "tests/appframe/Calculations.h"

namespace {

std::atomic<int> g_nRefuseFrom = 0; ///< how many threads may still be made until none is; 0: no limit

} // namespace

extern "C" int pthread_create(pthread_t* pThread, const pthread_attr_t* pAttributes, void* (*pfnStart)(void*),
                              void* pArgument) {
    if (g_nRefuseFrom > 0 && --g_nRefuseFrom == 0) {
        g_nRefuseFrom = 1;
        return EAGAIN;
    }
    static const auto s_pfnReal =
        reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return s_pfnReal(pThread, pAttributes, pfnStart, pArgument);
}

namespace tessara {

namespace {

using ::testing::ElementsAre;

int ComputeUnseen(CTestCalculation& calculation) {
    calculation.BeginProgressBar(10);
    calculation.StepProgressBar();
    calculation.SetProgressBarPercent(0.5); // nobody takes the number over
    calculation.EndProgressBar();
    EXPECT_EQ(calculation.IsCalculationAborted(), 0);
    EXPECT_FALSE(DialogOf(IDD_CALCULATION));
    return 7;
}

class NoDialog : public CalculationTest {};

TEST_F(NoDialog, ACalculationRunsWithoutTheThreadOfItsDialog) {
    g_nRefuseFrom = 2; // its own is the first
    Start(&ComputeUnseen);
    AwaitEnd();
    g_nRefuseFrom = 0;
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(Done(7)));
}

TEST_F(NoDialog, ACalculationThatCannotStartStaysWithItsProgram) {
    g_nRefuseFrom = 1;
    auto* const pCalculation = new CTestCalculation(m_wnd.m_hWnd, 0, &ComputeUnseen);
    EXPECT_FALSE(pCalculation->CreateThread());
    g_nRefuseFrom = 0;
    delete pCalculation;
    EXPECT_EQ(AwaitKilled(), WAIT_OBJECT_0);
}

/// Last: the template stays hidden.
TEST_F(NoDialog, ACalculationRunsWithoutItsDialog) {
    static constexpr CDialogTemplate BROKEN[] = {
        {IDD_CALCULATION, "Calculation", 0, 0, 10, 10, WS_POPUP, {}}};
    AddResources({BROKEN, {}});
    for (std::size_t i = 1; i <= 3; ++i) {
        Start(&ComputeUnseen);
        AwaitEnd(i);
    }
    EXPECT_THAT(m_wnd.m_ends, ElementsAre(Done(7), Done(7), Done(7)));
}

} // namespace

} // namespace tessara
