#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>

#include "tessara/platform/ui/dialogs/Dialog.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/WindowEnd.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tests/ui/ClosingPrograms.h"

// Windows are closed from everywhere, by random programs. TESSARA_CLOSING_PROGRAMS says how many,
// TESSARA_CLOSING_SEED where to begin.

namespace {

constexpr UINT TEMPLATE = 21100;
constexpr UINT WM_TURN = WM_USER + 20;
constexpr UINT WM_STEPS = WM_USER + 21;
constexpr DWORD LIMIT = 60'000;

constexpr tessara::CDialogItem ITEMS[] = {{"Button", IDOK, "OK", 7, 7, 40, 14, WS_VISIBLE | WS_TABSTOP}};
constexpr tessara::CDialogTemplate DIALOGS[] = {
    {TEMPLATE, "Closing", 0, 0, 60, 30, WS_POPUP | WS_CAPTION, ITEMS}};

unsigned NumberFrom(const char* pszVariable, unsigned nDefault) {
    const char* const pszValue = std::getenv(pszVariable);
    return pszValue ? static_cast<unsigned>(std::strtoul(pszValue, nullptr, 10)) : nDefault;
}

/// Aborts a program that hangs, and says which.
class CWatchdog {
public:
    explicit CWatchdog(unsigned nSeed) {
        std::snprintf(s_szText, sizeof s_szText, "closing program %u hangs\n", nSeed);
        std::signal(SIGALRM, [](int) {
            [[maybe_unused]] const auto nWritten =
                write(2, s_szText, std::char_traits<char>::length(s_szText));
            std::abort();
        });
        alarm(60);
    }
    ~CWatchdog() { alarm(0); }
    CWatchdog(const CWatchdog&) = delete;
    CWatchdog& operator=(const CWatchdog&) = delete;

private:
    static inline char s_szText[64];
};

class CRealRun;

class CHeardWindow : public CWnd {
public:
    CHeardWindow(CRealRun& run, int nWindow) : m_run(run), m_nWindow(nWindow) {}

protected:
    void OnClose();
    void OnDestroy();
    void OnNcDestroy();
    void PostNcDestroy() override;
    DECLARE_MESSAGE_MAP()

private:
    CRealRun& m_run;
    int m_nWindow;
};

class CHeardDialog : public CDialog {
public:
    CHeardDialog(CRealRun& run, int nWindow) : m_run(run), m_nWindow(nWindow) {}
    int RunOver(CWnd* pOwner) {
        m_nIDTemplate = TEMPLATE;
        m_pParentWnd = pOwner;
        return static_cast<int>(DoModal());
    }

protected:
    BOOL OnInitDialog() override;
    void OnClose();
    void OnDestroy();
    void OnNcDestroy();
    void PostNcDestroy() override;
    LRESULT OnTurn(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    CRealRun& m_run;
    int m_nWindow;
};

/// Runs a program with windows. With several threads each hears in its own, and the notes are kept apart.
class CRealRun : public CClosingRun {
public:
    explicit CRealRun(const CClosingProgram& program);
    void RunHere();
    void RunThreads();
    void RunSteps(int nThread);
    void Do(const CStep& step) override;
    void OnHeard(int nWindow, EHeard eHeard);
    void OnMade(int nWindow, HWND hWnd) { m_places[static_cast<std::size_t>(nWindow)].hWnd = hWnd; }
    /// What each window heard of its end, in order.
    std::vector<std::string> TakeEnds() const;

private:
    struct CPlace {
        std::unique_ptr<CHeardWindow> pWindow;
        std::unique_ptr<CHeardDialog> pDialog;
        std::atomic<HWND> hWnd = nullptr;
        std::atomic<bool> bTried = false;
    };

    CWnd* ParentOf(int nWindow) const;
    void MakeEarly(int nThread);
    void Make(int nWindow);
    void RunDialog(int nWindow);
    void DestroyRest();

    bool m_bThreads = false;
    std::vector<CPlace> m_places;
    mutable std::mutex m_lock; ///< of what the base has, while there are threads
    static inline thread_local int s_nThread = 0;
};

CRealRun::CRealRun(const CClosingProgram& program) : CClosingRun(program), m_places(program.windows.size()) {
    static const bool s_bAdded = (tessara::AddResources({DIALOGS, {}}), true);
    (void)s_bAdded;
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        if (program.windows[i].bDialog) {
            m_places[i].pDialog = std::make_unique<CHeardDialog>(*this, static_cast<int>(i));
        } else {
            m_places[i].pWindow = std::make_unique<CHeardWindow>(*this, static_cast<int>(i));
        }
    }
}

void CRealRun::OnHeard(int nWindow, EHeard eHeard) {
    if (!m_bThreads) {
        Hear(nWindow, eHeard);
        return;
    }
    std::vector<CStep> steps;
    {
        const std::lock_guard lock(m_lock);
        const auto it = m_handlers.find({nWindow, eHeard});
        if (it != m_handlers.end()) {
            steps = std::move(it->second);
            m_handlers.erase(it);
        }
        Hear(nWindow, eHeard);
    }
    for (const CStep& step : steps) {
        Do(step);
    }
}

void CRealRun::MakeEarly(int nThread) {
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        const CPlannedWindow& planned = m_program.windows[i];
        if (!planned.bLate && !m_places[i].bTried && planned.nThread == nThread) {
            Make(static_cast<int>(i));
        }
    }
}

/// An object for the handle of the parent, which another thread may be ending.
CWnd* CRealRun::ParentOf(int nWindow) const {
    const int nParent = m_program.windows[static_cast<std::size_t>(nWindow)].nParent;
    if (nParent < 0) {
        return nullptr;
    }
    thread_local CWnd t_parent;
    t_parent.m_hWnd = m_places[static_cast<std::size_t>(nParent)].hWnd;
    return &t_parent;
}

void CRealRun::Make(int nWindow) {
    CPlace& place = m_places[static_cast<std::size_t>(nWindow)];
    place.bTried = true;
    CWnd* const pParent = ParentOf(nWindow);
    const CWnd* const pThere = pParent && IsWindow(pParent->m_hWnd) ? pParent : nullptr;
    const bool bChild = m_program.windows[static_cast<std::size_t>(nWindow)].bChild;
    const DWORD dwStyle = bChild ? WS_CHILD | WS_VISIBLE : WS_OVERLAPPEDWINDOW;
    if (place.pWindow->Create(nullptr, "", dwStyle, CRect(5, 5, 50, 40), const_cast<CWnd*>(pThere),
                              static_cast<UINT>(nWindow + 1))) {
        OnMade(nWindow, place.pWindow->m_hWnd);
    }
    if (pParent) {
        pParent->m_hWnd = nullptr;
    }
}

void CRealRun::RunDialog(int nWindow) {
    CPlace& place = m_places[static_cast<std::size_t>(nWindow)];
    place.bTried = true;
    CWnd owner;
    if (const CWnd* const pParent = ParentOf(nWindow)) {
        owner.m_hWnd = IsWindow(pParent->m_hWnd) ? pParent->m_hWnd : nullptr;
        const_cast<CWnd*>(pParent)->m_hWnd = nullptr;
    }
    const int nResult = place.pDialog->RunOver(&owner);
    owner.m_hWnd = nullptr;
    const std::lock_guard lock(m_lock);
    Note(nWindow, "returned " + std::to_string(nResult));
}

void CRealRun::Do(const CStep& step) {
    CPlace& place = m_places[static_cast<std::size_t>(step.nWindow)];
    const bool bHere = m_program.windows[static_cast<std::size_t>(step.nWindow)].nThread == s_nThread;
    switch (step.eDo) {
    case EDo::destroy:
        tessara::DestroyTree(place.hWnd);
        break;
    case EDo::sendClose:
        SendMessage(place.hWnd, WM_CLOSE, 0, 0);
        break;
    case EDo::postClose:
        PostMessage(place.hWnd, WM_CLOSE, 0, 0);
        break;
    case EDo::make:
        if (place.pWindow && bHere && !place.bTried) {
            Make(step.nWindow);
        }
        break;
    case EDo::runDialog:
        if (place.pDialog && bHere && !place.bTried) {
            RunDialog(step.nWindow);
        }
        break;
    case EDo::endDialog:
        if (place.pDialog && IsWindow(place.hWnd)) {
            place.pDialog->EndDialog(1000 + step.nWindow);
        }
        break;
    case EDo::quit:
        PostQuitMessage(0);
        break;
    }
}

void CRealRun::RunSteps(int nThread) {
    s_nThread = nThread;
    for (const CStep& step : m_program.steps[static_cast<std::size_t>(nThread)]) {
        Do(step);
    }
}

/// Handles all that is posted to the main thread.
void DrainPosted() {
    const auto fnPosted = [] {
        const std::lock_guard lock(tessara::SharedLock());
        return tessara::CMailbox::OfMainThread()->HasPosted();
    };
    tessara::TakeExitCode();
    while (fnPosted()) {
        tessara::RunLoopUntil([&] { return !fnPosted(); });
        tessara::TakeExitCode();
    }
}

/// Until none is left: handlers make some more.
void CRealRun::DestroyRest() {
    const auto fnIsThere = [](const CPlace& place) { return IsWindow(place.hWnd) != 0; };
    while (std::any_of(m_places.begin(), m_places.end(), fnIsThere)) {
        for (const CPlace& place : m_places) {
            tessara::DestroyTree(place.hWnd);
        }
    }
    DrainPosted();
}

void CRealRun::RunHere() {
    MakeEarly(0);
    RunSteps(0);
    DrainPosted();
    DestroyRest();
}

/// A thread of a program: makes its windows, and closes when it is told to.
class CClosingThread : public CWinThread {
public:
    CClosingThread(CRealRun& run, int nThread, std::function<void()> fnMake)
        : m_run(run), m_nThread(nThread), m_fnMake(std::move(fnMake)) {
        m_bAutoDelete = FALSE;
    }
    const HANDLE m_hReady = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    ~CClosingThread() override { CloseHandle(m_hReady); }

protected:
    BOOL InitInstance() override {
        m_fnMake();
        SetEvent(m_hReady);
        return TRUE;
    }
    void OnSteps(WPARAM, LPARAM) { m_run.RunSteps(m_nThread); }
    DECLARE_MESSAGE_MAP()

private:
    CRealRun& m_run;
    int m_nThread;
    std::function<void()> m_fnMake;
};

BEGIN_MESSAGE_MAP(CClosingThread, CWinThread)
ON_THREAD_MESSAGE(WM_STEPS, OnSteps)
END_MESSAGE_MAP()

void CRealRun::RunThreads() {
    m_bThreads = true;
    s_nThread = 0;
    MakeEarly(0);
    std::vector<std::unique_ptr<CClosingThread>> threads;
    for (int i = 1; i < static_cast<int>(m_program.steps.size()); ++i) {
        threads.push_back(std::make_unique<CClosingThread>(*this, i, [this, i] {
            s_nThread = i;
            MakeEarly(i);
        }));
        ASSERT_TRUE(threads.back()->CreateThread());
        ASSERT_EQ(WaitForSingleObject(threads.back()->m_hReady, LIMIT), WAIT_OBJECT_0);
    }
    for (const auto& pThread : threads) {
        pThread->PostThreadMessage(WM_STEPS, 0, 0);
    }
    RunSteps(0);
    DrainPosted();
    for (const auto& pThread : threads) {
        pThread->PostThreadMessage(WM_QUIT, 0, 0);
        ASSERT_EQ(WaitForSingleObject(pThread->m_hThread, LIMIT), WAIT_OBJECT_0);
    }
    DrainPosted();
    DestroyRest();
}

std::vector<std::string> CRealRun::TakeEnds() const {
    std::vector<std::string> ends(m_places.size());
    for (const std::string& strLine : m_log) {
        const auto nWindow = static_cast<std::size_t>(std::atoi(strLine.c_str()));
        const std::string strWord = strLine.substr(strLine.find(' ') + 1);
        if (strWord == "destroy" || strWord == "ncdestroy" || strWord == "gone") {
            ends[nWindow] += strWord + ' ';
        } else if (strWord == "close" && !ends[nWindow].empty() &&
                   ends[nWindow].find("gone") != std::string::npos) {
            ends[nWindow] += "close after the end ";
        }
    }
    return ends;
}

void CHeardWindow::OnClose() {
    m_run.OnHeard(m_nWindow, EHeard::close);
    CWnd::OnClose();
}
void CHeardWindow::OnDestroy() {
    m_run.OnHeard(m_nWindow, EHeard::destroy);
}
void CHeardWindow::OnNcDestroy() {
    m_run.OnHeard(m_nWindow, EHeard::ncDestroy);
}
void CHeardWindow::PostNcDestroy() {
    m_run.OnHeard(m_nWindow, EHeard::gone);
}

BEGIN_MESSAGE_MAP(CHeardWindow, CWnd)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

BOOL CHeardDialog::OnInitDialog() {
    m_run.OnMade(m_nWindow, m_hWnd);
    PostMessage(WM_TURN);
    m_run.OnHeard(m_nWindow, EHeard::init);
    return TRUE;
}
void CHeardDialog::OnClose() {
    m_run.OnHeard(m_nWindow, EHeard::close);
    CDialog::OnClose();
}
void CHeardDialog::OnDestroy() {
    m_run.OnHeard(m_nWindow, EHeard::destroy);
}
void CHeardDialog::OnNcDestroy() {
    m_run.OnHeard(m_nWindow, EHeard::ncDestroy);
}
void CHeardDialog::PostNcDestroy() {
    m_run.OnHeard(m_nWindow, EHeard::gone);
}
LRESULT CHeardDialog::OnTurn(WPARAM, LPARAM) {
    m_run.OnHeard(m_nWindow, EHeard::turn);
    EndDialog(2000 + m_nWindow);
    return 0;
}

BEGIN_MESSAGE_MAP(CHeardDialog, CDialog)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_NCDESTROY()
ON_MESSAGE(WM_TURN, OnTurn)
END_MESSAGE_MAP()

/// How many widgets there are, without those that wait to be deleted.
int CountWidgets() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return static_cast<int>(QApplication::allWidgets().size());
}

class Closing : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(CWnd().Create(nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    }
    template <class FUNCTION>
    void ForPrograms(int nThreads, FUNCTION fnRun) {
        const unsigned nFirst = NumberFrom("TESSARA_CLOSING_SEED", 1);
        const unsigned nCount = NumberFrom("TESSARA_CLOSING_PROGRAMS", 300);
        const std::size_t nWindows = tessara::CountWindows();
        const int nWidgets = CountWidgets();
        for (unsigned i = nFirst; i < nFirst + nCount && !HasFailure(); ++i) {
            const CWatchdog watchdog(i);
            fnRun(MakeClosingProgram(i, nThreads), i);
            EXPECT_EQ(tessara::CountWindows(), nWindows) << i;
            EXPECT_EQ(CountWidgets(), nWidgets) << i;
        }
    }
};

TEST_F(Closing, FromEverywhereTellsEachWindowWhatTheRulesSay) {
    ForPrograms(1, [](const CClosingProgram& program, unsigned nSeed) {
        CClosingModel model(program);
        model.Run();
        CRealRun run(program);
        run.RunHere();
        EXPECT_EQ(run.GetLog(), model.GetLog()) << nSeed;
    });
}

TEST_F(Closing, FromThreeThreadsEndsEachWindowOnce) {
    ForPrograms(3, [](const CClosingProgram& program, unsigned nSeed) {
        CRealRun run(program);
        run.RunThreads();
        for (const std::string& strEnd : run.TakeEnds()) {
            EXPECT_TRUE(strEnd.empty() || strEnd == "gone " || strEnd == "destroy ncdestroy gone ")
                << nSeed << ": " << strEnd;
        }
    });
}

} // namespace
