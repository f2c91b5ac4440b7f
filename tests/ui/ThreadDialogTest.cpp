#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

#include "tessara/platform/ui/controls/ProgressCtrl.h"
#include "tessara/platform/ui/dialogs/Dialog.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/WindowTable.h"

namespace {

constexpr UINT TEMPLATE = 21000;
constexpr UINT PROGRESS = 1000;
constexpr DWORD LIMIT = 60'000; ///< milliseconds: what does not come fails the test
constexpr UINT WM_STEP = WM_USER + 10;
constexpr UINT WM_FINISH = WM_USER + 11;

constexpr tessara::CDialogItem ITEMS[] = {
    {"Static", 0xFFFF, "Working", 7, 7, 80, 8, WS_VISIBLE},
    {"msctls_progress32", PROGRESS, "", 7, 20, 100, 10, WS_VISIBLE},
    {"Button", IDCANCEL, "Abort", 40, 36, 40, 14, WS_VISIBLE | WS_TABSTOP}};
constexpr tessara::CDialogTemplate DIALOGS[] = {
    {TEMPLATE, "Progress", 0, 0, 120, 56, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, ITEMS}};

void AddTemplates() {
    static const bool s_bAdded = (tessara::AddResources({DIALOGS, {}}), true);
    (void)s_bAdded;
}

/// Shows a dialog from a thread of its own, as a long calculation does, and tells of an abort.
class CProgressThread : public CWinThread {
public:
    std::atomic<bool> m_bAborted = false;
    std::atomic<int> m_nSteps = 0;

protected:
    BOOL InitInstance() override {
        if (m_dialog.Create(TEMPLATE)) {
            m_dialog.m_pThread = this;
            m_pMainWnd = &m_dialog;
        }
        return TRUE;
    }

private:
    class CProgressDialog : public CDialog {
    public:
        CProgressThread* m_pThread = nullptr;

    protected:
        void OnCancel() override {
            m_pThread->m_bAborted = true;
            GetDlgItem(IDCANCEL)->EnableWindow(FALSE);
        }
    };

    void OnStep(WPARAM wParam, LPARAM) {
        auto* const pBar = dynamic_cast<CProgressCtrl*>(m_dialog.GetDlgItem(PROGRESS));
        ASSERT_NE(pBar, nullptr);
        pBar->SetPos(static_cast<int>(wParam));
        CString strText;
        strText.Format("%d", pBar->GetPos());
        m_dialog.SetWindowText(strText);
        ++m_nSteps;
    }
    void OnFinish(WPARAM, LPARAM) { m_dialog.DestroyWindow(); }
    DECLARE_MESSAGE_MAP()

    CProgressDialog m_dialog;
};

BEGIN_MESSAGE_MAP(CProgressThread, CWinThread)
ON_THREAD_MESSAGE(WM_STEP, OnStep)
ON_THREAD_MESSAGE(WM_FINISH, OnFinish)
END_MESSAGE_MAP()

/// Presses the Abort button of the dialog that is shown, with the main thread's event loop.
class CAbortPresser : public QObject {
public:
    CAbortPresser() { startTimer(1); }
    void timerEvent(QTimerEvent*) override {
        for (QWidget* const pWidget : QApplication::topLevelWidgets()) {
            QWidget* const pAbort = pWidget->findChild<QWidget*>(QString::number(IDCANCEL));
            if (pWidget->isVisible() && pAbort && pAbort->isEnabled()) {
                QMetaObject::invokeMethod(pAbort, "click");
            }
        }
    }
};

TEST(ThreadDialog, AnswersTheMouseWhileTheMainThreadWaits) {
    AddTemplates();
    auto* const pThread = new CProgressThread;
    pThread->m_bAutoDelete = FALSE;
    ASSERT_TRUE(pThread->CreateThread());
    CAbortPresser presser;
    for (int i = 1; i <= 5; ++i) {
        ASSERT_TRUE(pThread->PostThreadMessage(WM_STEP, static_cast<WPARAM>(i), 0));
    }
    for (DWORD i = 0; i < LIMIT && !pThread->m_bAborted; ++i) {
        Sleep(1);
    }
    EXPECT_TRUE(pThread->m_bAborted);
    EXPECT_EQ(pThread->m_nSteps, 5);
    pThread->PostThreadMessage(WM_FINISH, 0, 0);
    EXPECT_EQ(WaitForSingleObject(pThread->m_hThread, LIMIT), WAIT_OBJECT_0);
    delete pThread;
}

/// How many widgets there are, without those that wait to be deleted.
int CountWidgets() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return static_cast<int>(QApplication::allWidgets().size());
}

TEST(ThreadDialog, StartsAndEndsLeaveNothingBehind) {
    AddTemplates();
    const char* const pszRounds = std::getenv("TESSARA_THREAD_ROUNDS");
    const int nRounds = pszRounds ? std::atoi(pszRounds) : 100;
    const std::size_t nWindows = tessara::CountWindows();
    const int nWidgets = CountWidgets();
    for (int i = 0; i < nRounds; ++i) {
        auto* const pThread = new CProgressThread;
        pThread->m_bAutoDelete = FALSE;
        ASSERT_TRUE(pThread->CreateThread());
        pThread->PostThreadMessage(WM_STEP, 1, 0);
        pThread->PostThreadMessage(WM_FINISH, 0, 0);
        ASSERT_EQ(WaitForSingleObject(pThread->m_hThread, LIMIT), WAIT_OBJECT_0);
        delete pThread;
    }
    EXPECT_EQ(tessara::CountWindows(), nWindows);
    EXPECT_EQ(CountWidgets(), nWidgets);
    std::printf("%d threads with a dialog: %zu windows, %d widgets before and after\n", nRounds,
                tessara::CountWindows(), CountWidgets());
}

} // namespace
