#include <atomic>

#include "tessara/appframe/AbortCalculationsThread.h"
#include "tests/appframe/Calculations.h"
#include "tests/appframe/ProgressTitleModel.h"

namespace tessara {

namespace {

using models::CProgressPrograms;
using models::CProgressTitleModel;
using enum CProgressPrograms::EDo;

/// The dialog's thread, which tells when it has done all that was posted to it.
class CWatchedThread : public CAbortCalculationsThread {
public:
    static constexpr UINT WM_SETTLE = WM_USER + 500;

    CWatchedThread(HWND hParent, int nMode, std::atomic<int>& nSettled, std::atomic<bool>& bGone)
        : CAbortCalculationsThread(hParent, nMode), m_nSettled(nSettled), m_bGone(bGone) {}
    ~CWatchedThread() override { m_bGone = true; }

protected:
    void OnSettle(WPARAM, LPARAM) {
        if (m_nMode == 0) {
            m_calculationDialog.ShowProgress();
        } else {
            m_preparationsDialog.ShowProgress();
        }
        ++m_nSettled;
    }
    DECLARE_MESSAGE_MAP()

private:
    std::atomic<int>& m_nSettled;
    std::atomic<bool>& m_bGone;
};
BEGIN_MESSAGE_MAP(CWatchedThread, CAbortCalculationsThread)
ON_THREAD_MESSAGE(CWatchedThread::WM_SETTLE, OnSettle)
END_MESSAGE_MAP()

class ProgressTitleModel : public CalculationTest {
protected:
    /// Runs a program on a real dialog and on the model; both are compared whenever the window changes and
    /// at the end.
    void Try(int nMode, const std::vector<CProgressPrograms::CStep>& steps) {
        CProgressTitleModel model;
        model.strApplication = "Flory";
        model.strTitle = Title();
        std::atomic<bool> bGone = false;
        auto* const pThread = new CWatchedThread(m_wnd.m_hWnd, nMode, m_nSettled, bGone);
        ASSERT_TRUE(pThread->CreateThread());
        ASSERT_TRUE(WaitFor([=] { return DialogOf(nMode == 0 ? IDD_CALCULATION : IDD_PREPARATIONS); }));
        for (const auto& [eDo, nCount] : steps) {
            if (eDo == Minimise || eDo == Normal || eDo == Abort) {
                Settle(*pThread, model);
            }
            Do(*pThread, model, eDo, nCount);
        }
        Settle(*pThread, model);
        pThread->PostThreadMessage(WM_PROGRESS_CLOSE, 0, 0);
        EXPECT_TRUE(WaitFor([&] { return bGone.load(); }));
    }

private:
    void Do(CWatchedThread& thread, CProgressTitleModel& model, CProgressPrograms::EDo eDo, int nCount) {
        switch (eDo) {
        case Begin:
            thread.PostThreadMessage(WM_PROGRESS_BEGIN, static_cast<WPARAM>(nCount), 0);
            return model.Begin(nCount);
        case Step:
            thread.PostThreadMessage(WM_PROGRESS_STEP, 0, 0);
            return model.Step();
        case SetPercent:
            thread.PostThreadMessage(WM_PROGRESS_SETPERCENT, 0, reinterpret_cast<LPARAM>(new double(0.25)));
            return model.SetPercent();
        case End:
            thread.PostThreadMessage(WM_PROGRESS_END, 0, 0);
            return model.End();
        case Minimise:
        case Normal:
            model.bMinimised = eDo == Minimise;
            m_wnd.ShowWindow(model.bMinimised ? SW_MINIMIZE : SW_RESTORE);
            EXPECT_TRUE(WaitFor([&] { return (m_wnd.IsIconic() != 0) == model.bMinimised; }));
            return;
        case Abort:
            QTest::mouseClick(&ControlOf(IDD_CALCULATION, IDCANCEL), Qt::LeftButton);
            EXPECT_TRUE(WaitFor([] { return !ControlOf(IDD_CALCULATION, IDCANCEL).isEnabled(); }));
            return model.Abort();
        }
    }

    void Settle(CWatchedThread& thread, const CProgressTitleModel& model) {
        const int nBefore = m_nSettled;
        thread.PostThreadMessage(CWatchedThread::WM_SETTLE, 0, 0);
        EXPECT_TRUE(WaitFor([&] { return m_nSettled > nBefore; }));
        EXPECT_EQ(Title(), model.strTitle);
    }

    std::atomic<int> m_nSettled = 0;
};

TEST_F(ProgressTitleModel, IsTheSameWhileTheWindowIsMinimisedAndRestored) {
    const char* const pszPrograms = std::getenv("TESSARA_PROGRESS_PROGRAMS");
    const int nPrograms = pszPrograms ? std::atoi(pszPrograms) : 4;
    for (int i = 0; i < nPrograms && !HasFailure(); ++i) {
        SCOPED_TRACE(testing::Message() << "program " << i);
        const int nMode = i % 2;
        Try(nMode, CProgressPrograms(static_cast<unsigned>(i)).Next(nMode == 0, i % 3 == 0 ? 2 : 1));
        m_wnd.ShowWindow(SW_RESTORE);
        m_wnd.SetWindowText(("Variant " + std::to_string(i) + " - Flory").c_str());
    }
}

} // namespace

} // namespace tessara
