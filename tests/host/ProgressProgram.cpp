// A program with a long calculation: a frame, a worker, and a thread with the progress window. The tests run
// it on several platforms and scales. Arguments: how many milliseconds the progress window's thread is busy
// at the end.
//
// It ends with 1 when the window system has warned of anything, and with 2 when the main thread stood still
// while the progress window's thread was busy.

#include <QAbstractButton>
#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "tessara/tessara.h"

namespace {

using CClock = std::chrono::steady_clock;

constexpr UINT DIALOG = 20000;
constexpr UINT BAR = 1000;
constexpr UINT LEFT = 1011;
constexpr UINT RIGHT = 1013;
constexpr UINT WM_STEP = WM_USER + 1; ///< to the progress window's thread
constexpr UINT WM_BUSY = WM_USER + 2;
constexpr UINT WM_END = WM_USER + 3;
constexpr UINT WM_PROBE = WM_USER + 4; ///< to the frame; the clock when it was posted
constexpr UINT WM_ABORT = WM_USER + 5; ///< the user presses the button
constexpr UINT WM_DONE = WM_USER + 6;
constexpr int STEPS = 300;
constexpr int TURNS = 20; ///< that the main thread makes while the other one is busy
constexpr std::chrono::seconds LIMIT(20);

constexpr tessara::CDialogItem ITEMS[] = {
    {"Static", IDC_STATIC, "The program is calculating now.\nPlease wait", 40, 7, 120, 18,
     WS_VISIBLE | SS_CENTER},
    {"SysAnimate32", LEFT, "", 7, 7, 28, 28, WS_VISIBLE | ACS_CENTER | ACS_AUTOPLAY},
    {"SysAnimate32", RIGHT, "", 165, 7, 28, 28, WS_VISIBLE | ACS_CENTER | ACS_AUTOPLAY},
    {"msctls_progress32", BAR, "", 40, 30, 120, 10, WS_VISIBLE},
    {"Button", IDCANCEL, "Abort", 75, 46, 50, 14, WS_VISIBLE | WS_TABSTOP}};
constexpr tessara::CDialogTemplate DIALOGS[] = {
    {DIALOG, "Calculation", 0, 0, 200, 66, WS_POPUP | WS_CAPTION | WS_VISIBLE, ITEMS}};

std::atomic<int> g_nWarnings = 0;
std::atomic<int> g_nTurns = 0;  ///< probes that the main thread has answered
std::atomic<int> g_nPaints = 0; ///< of the progress window
std::atomic<bool> g_bBusy = false;
std::atomic<bool> g_bStoodStill = false;
std::atomic<bool> g_bAborted = false;
std::vector<double> g_answers; ///< milliseconds until the main thread answered each probe of the busy time

void HearMessage(QtMsgType, const QMessageLogContext&, const QString& strText) {
    if (!strText.contains(QStringLiteral("propagateSizeHints"))) { // the offscreen platform's own
        ++g_nWarnings;
        std::fprintf(stderr, "%s\n", qPrintable(strText));
    }
}

class CProgressDialog : public CDialog {
public:
    void StepIt() { m_bar.StepIt(); }

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        CenterWindow();
        m_left.Open(134);
        m_right.Open(135);
        m_bar.SetRange(0, STEPS);
        m_bar.SetStep(1);
        return TRUE;
    }
    void DoDataExchange(CDataExchange* pDX) override {
        DDX_Control(pDX, BAR, m_bar);
        DDX_Control(pDX, LEFT, m_left);
        DDX_Control(pDX, RIGHT, m_right);
    }
    void OnCancel() override {
        GetDlgItem(IDCANCEL)->EnableWindow(FALSE);
        g_bAborted = true;
    }
    /// Empty, but one that wants to be asked.
    void OnPaint() { CPaintDC dc(this); }
    DECLARE_MESSAGE_MAP()

private:
    CProgressCtrl m_bar;
    CAnimateCtrl m_left;
    CAnimateCtrl m_right;
};

BEGIN_MESSAGE_MAP(CProgressDialog, CDialog)
ON_WM_PAINT()
END_MESSAGE_MAP()

/// Owns the progress window.
class CProgressThread : public CWinThread {
public:
    CProgressThread(HWND hParent, int nBusy) : m_hParent(hParent), m_busy(nBusy) {}
    HWND GetDialog() const { return m_hDialog; }

protected:
    BOOL InitInstance() override {
        if (m_dialog.Create(DIALOG, CWnd::FromHandle(m_hParent))) {
            m_pMainWnd = &m_dialog;
            m_hDialog = m_dialog.m_hWnd;
        }
        return TRUE;
    }

private:
    void OnStep(WPARAM, LPARAM) { m_dialog.StepIt(); }
    /// Answers nobody until its time is over and the main thread has gone on, or plainly does not.
    void OnBusy(WPARAM, LPARAM) {
        const auto start = CClock::now();
        const int nTurns = g_nTurns;
        const int nPaints = g_nPaints;
        g_bBusy = true;
        const auto fnGoesOn = [&] { return g_nTurns - nTurns >= TURNS && g_nPaints - nPaints >= TURNS; };
        while (CClock::now() - start < m_busy || !fnGoesOn()) {
            if (CClock::now() - start > m_busy + LIMIT) {
                g_bStoodStill = true;
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        std::printf("busy: %d turns and %d paints of the main thread\n", g_nTurns - nTurns,
                    g_nPaints - nPaints);
        g_bBusy = false;
        ::PostMessage(m_hParent, WM_ABORT, 0, 0);
    }
    void OnEnd(WPARAM, LPARAM) { m_dialog.DestroyWindow(); }
    DECLARE_MESSAGE_MAP()

    HWND m_hParent;
    std::chrono::milliseconds m_busy;
    CProgressDialog m_dialog;
    std::atomic<HWND> m_hDialog = nullptr;
};

BEGIN_MESSAGE_MAP(CProgressThread, CWinThread)
ON_THREAD_MESSAGE(WM_STEP, OnStep)
ON_THREAD_MESSAGE(WM_BUSY, OnBusy)
ON_THREAD_MESSAGE(WM_END, OnEnd)
END_MESSAGE_MAP()

/// Calculates, and tells the progress window how far it is.
class CCalculation : public CWinThread {
public:
    CCalculation(HWND hFrame, int nBusy) : m_hFrame(hFrame), m_nBusy(nBusy) { m_bAutoDelete = FALSE; }

protected:
    BOOL InitInstance() override { return TRUE; }
    int Run() override {
        auto pProgress = std::make_unique<CProgressThread>(m_hFrame, m_nBusy);
        pProgress->m_bAutoDelete = FALSE;
        pProgress->CreateThread();
        for (int i = 0; i < STEPS; ++i) {
            pProgress->PostThreadMessage(WM_STEP, 0, 0);
            Sleep(i % 3 == 0 ? 1 : 0);
        }
        pProgress->PostThreadMessage(WM_BUSY, 0, 0);
        while (!g_bAborted) {
            ::PostMessage(m_hFrame, WM_PROBE, reinterpret_cast<WPARAM>(pProgress->GetDialog()),
                          CClock::now().time_since_epoch().count());
            Sleep(5);
        }
        pProgress->PostThreadMessage(WM_END, 0, 0);
        WaitForSingleObject(pProgress->m_hThread, INFINITE);
        ::PostMessage(m_hFrame, WM_DONE, 0, 0);
        return 0;
    }

private:
    HWND m_hFrame;
    int m_nBusy;
};

class CMainFrame : public CFrameWnd {
protected:
    /// Answers a probe, while the user drags the progress window's border.
    LRESULT OnProbe(WPARAM wParam, LPARAM lParam) {
        const CClock::time_point posted{CClock::duration(lParam)};
        const std::chrono::duration<double, std::milli> answer = CClock::now() - posted;
        if (g_bBusy) {
            ++g_nTurns;
            g_answers.push_back(answer.count());
            CRect place;
            CWnd* const pDialog = CWnd::FromHandle(reinterpret_cast<HWND>(wParam));
            pDialog->GetWindowRect(&place);
            pDialog->SetWindowPos(nullptr, 0, 0, place.Width() + (g_nTurns % 2 ? 8 : -8), place.Height(),
                                  SWP_NOMOVE | SWP_NOZORDER);
            pDialog->Invalidate();
        }
        return 0;
    }
    LRESULT OnAbort(WPARAM, LPARAM) {
        for (QWidget* const pWidget : QApplication::topLevelWidgets()) {
            if (auto* const pButton = pWidget->findChild<QAbstractButton*>(QString::number(IDCANCEL))) {
                pButton->click();
            }
        }
        return 0;
    }
    LRESULT OnDone(WPARAM, LPARAM) {
        DestroyWindow();
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
ON_MESSAGE(WM_PROBE, OnProbe)
ON_MESSAGE(WM_ABORT, OnAbort)
ON_MESSAGE(WM_DONE, OnDone)
END_MESSAGE_MAP()

/// Counts how often the progress window is painted.
class CPaintCounter : public QObject {
public:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override {
        if (pEvent->type() == QEvent::Paint && pWatched->objectName() == QString::number(DIALOG)) {
            ++g_nPaints;
        }
        return false;
    }
};

class CProgressApp : public CWinApp {
public:
    CProgressApp() : CWinApp("Progress") {}

protected:
    BOOL InitInstance() override {
        qInstallMessageHandler(&HearMessage);
        qApp->installEventFilter(&m_counter);
        tessara::AddResources({DIALOGS, {}});
        m_pFrame = new CMainFrame; // deletes itself
        m_pFrame->Create(nullptr, "Calculation");
        m_pMainWnd = m_pFrame;
        m_pFrame->ShowWindow(SW_SHOW);
        m_pCalculation = std::make_unique<CCalculation>(m_pFrame->m_hWnd, std::atoi(m_lpCmdLine));
        return m_pCalculation->CreateThread();
    }
    int Run() override {
        const int nCode = CWinApp::Run();
        WaitForSingleObject(m_pCalculation->m_hThread, INFINITE);
        return nCode;
    }

private:
    CPaintCounter m_counter;
    CMainFrame* m_pFrame = nullptr;
    std::unique_ptr<CCalculation> m_pCalculation;
};

CProgressApp theApp;

} // namespace

int main(int argc, char** argv) {
    const int nCode = AfxRunApplication(argc, argv);
    if (!g_answers.empty()) {
        std::sort(g_answers.begin(), g_answers.end());
        std::printf("the main thread answered within %.1f ms (99th percentile of %zu)\n",
                    g_answers[g_answers.size() * 99 / 100], g_answers.size());
    }
    if (g_nWarnings > 0 || g_bStoodStill) {
        return g_nWarnings > 0 ? 1 : 2;
    }
    return nCode;
}
