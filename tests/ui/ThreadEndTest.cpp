#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <future>
#include <thread>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/dialogs/Dialog.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/windows/WindowTable.h"

namespace {

constexpr DWORD LIMIT = 60'000;      ///< milliseconds: what does not come fails the test
constexpr DWORD SHORT_LIMIT = 5'000; ///< the same where a fault is mended afterwards, so that the test ends
constexpr UINT TEMPLATE = 21200;
constexpr DWORD TOP = WS_OVERLAPPEDWINDOW;
const CRect PLACE(0, 0, 90, 60);

constexpr tessara::CDialogTemplate DIALOGS[] = {{TEMPLATE, "Ended", 0, 0, 60, 30, WS_POPUP | WS_CAPTION, {}}};

void AddTemplates() {
    static const bool s_bAdded = (tessara::AddResources({DIALOGS, {}}), true);
    (void)s_bAdded;
}

/// What a thread does with its life, and what a test finds of it.
class CEndingThread : public CWinThread {
public:
    explicit CEndingThread(const std::string& strThrows, CWnd* pOwner)
        : m_strThrows(strThrows), m_pOwner(pOwner) {
        m_bAutoDelete = FALSE;
    }
    std::string m_strDone;
    HWND m_hOwned = nullptr;

protected:
    BOOL InitInstance() override {
        m_window.Create(nullptr, "", TOP, PLACE, m_pOwner, 0);
        m_hOwned = m_window.m_hWnd;
        Do("init");
        return m_strThrows != "none";
    }
    int Run() override {
        Do("run");
        return 0;
    }
    int ExitInstance() override {
        Do("exit");
        return 0;
    }
    LRESULT ProcessWndProcException(const std::exception&, const MSG*) override {
        m_strDone += "heard ";
        return 0;
    }

private:
    void Do(const std::string& strStep) {
        m_strDone += strStep + ' ';
        if (m_strThrows == strStep) {
            AfxThrowResourceException();
        }
    }

    std::string m_strThrows;
    CWnd* m_pOwner;
    CWnd m_window;
};

TEST(ThreadEnd, RunsExitInstanceAndTakesItsWindowsAlongWhateverIsThrown) {
    CWnd owner;
    ASSERT_TRUE(owner.Create(nullptr, "", TOP, PLACE, nullptr, 0));
    const std::size_t nWindows = tessara::CountWindows();
    const struct {
        const char* pszThrows;
        const char* pszDone;
    } cases[] = {{"none", "init exit "},
                 {"init", "init heard exit "},
                 {"run", "init run heard exit "},
                 {"exit", "init run exit heard "}};
    for (const auto& [pszThrows, pszDone] : cases) {
        CEndingThread thread(pszThrows, &owner);
        ASSERT_TRUE(thread.CreateThread());
        ASSERT_EQ(WaitForSingleObject(thread.m_hThread, LIMIT), WAIT_OBJECT_0);
        EXPECT_EQ(thread.m_strDone, pszDone);
        EXPECT_NE(thread.m_hOwned, nullptr);
        EXPECT_FALSE(IsWindow(thread.m_hOwned)) << pszThrows;
        EXPECT_EQ(tessara::CountWindows(), nWindows) << pszThrows;
    }
}

TEST(ThreadEnd, LeavesTheWindowsOfAThreadOfAnotherKindToTheMainThread) {
    CWnd window; // outlives the thread, which forgets it
    const HANDLE hMade = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    std::thread maker([&] {
        EXPECT_TRUE(window.Create(nullptr, "", TOP, PLACE, nullptr, 0));
        SetEvent(hMade);
    });
    EXPECT_EQ(WaitForSingleObject(hMade, LIMIT), WAIT_OBJECT_0);
    CloseHandle(hMade);
    const HWND hWnd = window.m_hWnd;
    maker.join();
    for (DWORD i = 0; i < SHORT_LIMIT && IsWindow(hWnd); ++i) {
        Sleep(1);
    }
    EXPECT_FALSE(IsWindow(hWnd));
    EXPECT_EQ(window.m_hWnd, nullptr);
}

/// A modal dialog that another thread ends.
class CAwaitedDialog : public CDialog {
public:
    CAwaitedDialog() : CDialog(TEMPLATE) { AddTemplates(); }
    ~CAwaitedDialog() override {
        CloseHandle(m_hShown);
        CloseHandle(m_hReturned);
    }
    int RunHere() {
        const int nResult = static_cast<int>(DoModal());
        SetEvent(m_hReturned);
        return nResult;
    }
    /// Whether it returns without another message.
    bool EndFromAfar() {
        EXPECT_EQ(WaitForSingleObject(m_hShown, LIMIT), WAIT_OBJECT_0);
        Sleep(20); // its loop has nothing to do by now
        EndDialog(77);
        const bool bReturned = WaitForSingleObject(m_hReturned, SHORT_LIMIT) == WAIT_OBJECT_0;
        PostMessage(WM_NULL);
        return bReturned;
    }
    int m_nResult = 0;

protected:
    BOOL OnInitDialog() override {
        SetEvent(m_hShown);
        return TRUE;
    }

private:
    HANDLE m_hShown = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    HANDLE m_hReturned = CreateEvent(nullptr, TRUE, FALSE, nullptr);
};

UINT EndDialogFromAfar(void* pDialog) {
    EXPECT_TRUE(static_cast<CAwaitedDialog*>(pDialog)->EndFromAfar());
    return 0;
}

UINT RunDialogHere(void* pDialog) {
    auto* const pAwaited = static_cast<CAwaitedDialog*>(pDialog);
    pAwaited->m_nResult = pAwaited->RunHere();
    return 0;
}

TEST(EndDialog, FromAnotherThreadEndsTheLoopWithoutAnotherMessage) {
    CAwaitedDialog here;
    CWinThread ender(&EndDialogFromAfar, &here);
    ender.m_bAutoDelete = FALSE;
    ASSERT_TRUE(ender.CreateThread());
    EXPECT_EQ(here.RunHere(), 77);
    EXPECT_EQ(WaitForSingleObject(ender.m_hThread, LIMIT), WAIT_OBJECT_0);

    CAwaitedDialog there;
    CWinThread runner(&RunDialogHere, &there);
    runner.m_bAutoDelete = FALSE;
    ASSERT_TRUE(runner.CreateThread());
    EXPECT_TRUE(there.EndFromAfar());
    EXPECT_EQ(WaitForSingleObject(runner.m_hThread, LIMIT), WAIT_OBJECT_0);
    EXPECT_EQ(there.m_nResult, 77);
}

/// Fails to come to life, or to die quietly.
class CTroubled : public CWnd {
public:
    enum class ETrouble { refuses, throwsAtOnce, destroysItself, throwsAtItsEnd };
    explicit CTroubled(ETrouble eTrouble) : m_eTrouble(eTrouble) {}
    std::string m_strHeard;

protected:
    int OnCreate(LPCREATESTRUCT) {
        if (m_eTrouble == ETrouble::throwsAtOnce) {
            AfxThrowResourceException();
        }
        if (m_eTrouble == ETrouble::destroysItself) {
            DestroyWindow();
        }
        return m_eTrouble == ETrouble::refuses ? -1 : 0;
    }
    void OnDestroy() {
        m_strHeard += "destroy ";
        if (m_eTrouble == ETrouble::throwsAtItsEnd) {
            AfxThrowResourceException();
        }
    }
    void OnNcDestroy() { m_strHeard += "ncdestroy "; }
    void PostNcDestroy() override { m_strHeard += "gone"; }
    DECLARE_MESSAGE_MAP()

private:
    ETrouble m_eTrouble;
};

BEGIN_MESSAGE_MAP(CTroubled, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

TEST(WindowEnd, IsCompleteWhenAWindowCannotBeMadeOrAHandlerThrows) {
    CWnd owner;
    ASSERT_TRUE(owner.Create(nullptr, "", TOP, PLACE, nullptr, 0));
    const std::size_t nWindows = tessara::CountWindows();
    const struct {
        CTroubled::ETrouble eTrouble;
        DWORD dwStyle;
        CWnd* pParent;
        const char* pszHeard;
    } cases[] = {{CTroubled::ETrouble::refuses, TOP, &owner, "destroy ncdestroy gone"},
                 {CTroubled::ETrouble::destroysItself, TOP, &owner, "destroy ncdestroy gone"},
                 {CTroubled::ETrouble::throwsAtOnce, TOP, &owner, "destroy ncdestroy "},
                 {CTroubled::ETrouble::throwsAtItsEnd, TOP, &owner, "destroy ncdestroy gone"},
                 {CTroubled::ETrouble::refuses, WS_CHILD, nullptr, "gone"}};
    for (const auto& [eTrouble, dwStyle, pParent, pszHeard] : cases) {
        CTroubled window(eTrouble);
        bool bMade = false;
        bool bThrown = false;
        try {
            bMade = window.Create(nullptr, "", dwStyle, PLACE, pParent, 1) != 0;
            window.DestroyWindow();
        } catch (const CResourceException&) {
            bThrown = true;
        }
        EXPECT_EQ(bMade, eTrouble == CTroubled::ETrouble::throwsAtItsEnd);
        EXPECT_EQ(bThrown, bMade || eTrouble == CTroubled::ETrouble::throwsAtOnce);
        EXPECT_EQ(window.m_strHeard, pszHeard);
        EXPECT_EQ(window.m_hWnd, nullptr);
        EXPECT_EQ(tessara::CountWindows(), nWindows);
    }
}

TEST(MessageBox, EndsWithTheWindowItIsOver) {
    CWnd owner;
    ASSERT_TRUE(owner.Create(nullptr, "", TOP | WS_VISIBLE, PLACE, nullptr, 0));
    owner.SetForegroundWindow();
    for (DWORD i = 0; i < SHORT_LIMIT && !QApplication::activeWindow(); ++i) {
        Sleep(1);
    }
    ASSERT_NE(QApplication::activeWindow(), nullptr);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { owner.DestroyWindow(); });
    timer.start(20);
    EXPECT_EQ(AfxMessageBox("The owner goes.", MB_YESNO), IDCANCEL);
    EXPECT_EQ(owner.m_hWnd, nullptr);
}

/// A program that ends as soon as it has begun.
class CShortApp : public CWinApp {
public:
    CShortApp() : CWinApp("short") {}
    ~CShortApp() override { tessara::CMailbox::OfMainThread()->SetLoopEnded(false); } // for the next test

protected:
    BOOL InitInstance() override { return FALSE; }
};

TEST(ApplicationEnd, CallsToTheMainThreadAreDroppedWhileItDoesNotWait) {
    CWnd window;
    ASSERT_TRUE(window.Create(nullptr, "there", TOP, PLACE, nullptr, 0));
    CShortApp app;
    char szName[] = "short";
    char* arguments[] = {szName, nullptr};
    EXPECT_EQ(AfxRunApplication(1, arguments), 0);
    CWnd late;
    ASSERT_TRUE(late.Create(nullptr, "late", TOP, PLACE, nullptr, 0));
    const auto fnLength = [&] { return late.GetWindowTextLength(); };
    auto nLength = std::async(std::launch::async, fnLength);
    // This waits without serving anybody, as joining a thread does.
    const bool bAnswered =
        nLength.wait_for(std::chrono::milliseconds(SHORT_LIMIT)) == std::future_status::ready;
    EXPECT_TRUE(bAnswered);
    for (DWORD i = 0;
         i < LIMIT && nLength.wait_for(std::chrono::milliseconds(0)) != std::future_status::ready; ++i) {
        Sleep(1); // serves
    }
    EXPECT_EQ(nLength.get(), bAnswered ? 0 : 4);
    EXPECT_EQ(fnLength(), 4);
}

} // namespace
