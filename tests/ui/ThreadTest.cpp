#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <atomic>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/WindowTable.h"

namespace {

constexpr UINT WM_TEST = WM_USER + 1;
constexpr DWORD LIMIT = 60'000; ///< milliseconds: what does not come fails the test

/// A window that counts what is sent and posted to it and where that was handled.
class CCounter : public CWnd {
public:
    std::atomic<int> m_nHeard = 0;
    std::atomic<DWORD> m_nThread = 0;

protected:
    LRESULT OnTest(WPARAM wParam, LPARAM lParam) {
        ++m_nHeard;
        m_nThread = GetCurrentThreadId();
        return static_cast<LRESULT>(wParam) + lParam;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CCounter, CWnd)
ON_MESSAGE(WM_TEST, OnTest)
END_MESSAGE_MAP()

/// Owns a window, says when it is there, and ends when that is destroyed.
class CWindowThread : public CWinThread {
public:
    explicit CWindowThread(HANDLE hReady) : m_hReady(hReady) {}
    CCounter m_counter;
    std::atomic<int> m_nPosted = 0;

protected:
    BOOL InitInstance() override {
        m_counter.Create(nullptr, "Other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 80, 60), nullptr, 0);
        m_pMainWnd = &m_counter;
        SetEvent(m_hReady);
        return TRUE;
    }
    void OnPosted(WPARAM wParam, LPARAM) { m_nPosted += static_cast<int>(wParam); }
    void OnEnd(WPARAM, LPARAM) { m_counter.DestroyWindow(); }
    DECLARE_MESSAGE_MAP()

private:
    HANDLE m_hReady;
};

BEGIN_MESSAGE_MAP(CWindowThread, CWinThread)
ON_THREAD_MESSAGE(WM_TEST, OnPosted)
ON_THREAD_MESSAGE(WM_TEST + 1, OnEnd)
END_MESSAGE_MAP()

class ThreadTest : public ::testing::Test {
protected:
    ThreadTest()
        : m_hReady(CreateEvent(nullptr, FALSE, FALSE, nullptr)), m_pThread(new CWindowThread(m_hReady)) {
        m_pThread->m_bAutoDelete = FALSE;
        EXPECT_TRUE(m_pThread->CreateThread());
        EXPECT_EQ(WaitForSingleObject(m_hReady, LIMIT), WAIT_OBJECT_0);
    }
    ~ThreadTest() override {
        m_pThread->PostThreadMessage(WM_TEST + 1, 0, 0);
        EXPECT_EQ(WaitForSingleObject(m_pThread->m_hThread, LIMIT), WAIT_OBJECT_0);
        CloseHandle(m_hReady);
    }

    HANDLE m_hReady;
    std::unique_ptr<CWindowThread> m_pThread;
};

TEST_F(ThreadTest, MessagesAreHandledByTheThreadThatOwnsTheWindow) {
    EXPECT_EQ(m_pThread->m_counter.SendMessage(WM_TEST, 40, 2), 42);
    EXPECT_EQ(m_pThread->m_counter.m_nThread, m_pThread->m_nThreadID);
    for (int i = 0; i < 100; ++i) {
        EXPECT_TRUE(m_pThread->m_counter.PostMessage(WM_TEST));
        EXPECT_TRUE(m_pThread->PostThreadMessage(WM_TEST, 1, 0));
    }
    m_pThread->m_counter.SendMessage(WM_NULL);
    // A message that is dropped must fail the test, not hold it.
    for (int i = 0; i < 10000 && (m_pThread->m_nPosted < 100 || m_pThread->m_counter.m_nHeard < 101); ++i) {
        Sleep(1);
    }
    EXPECT_EQ(m_pThread->m_nPosted, 100);
    EXPECT_EQ(m_pThread->m_counter.m_nHeard, 101);
}

TEST_F(ThreadTest, WidgetsOfAnotherThreadLiveOnTheMainOneAndMayBeDrawnOnFromThere) {
    tessara::CPeer* const pPeer = tessara::CPeer::Find(m_pThread->m_counter.m_hWnd);
    ASSERT_NE(pPeer, nullptr);
    EXPECT_EQ(pPeer->GetWidget().thread(), QApplication::instance()->thread());
    m_pThread->m_counter.UpdateWindow(); // the first paint, which is not to come after what is drawn
    CClientDC dc(&m_pThread->m_counter);
    const COLORREF nGround = dc.GetPixel(30, 30);
    constexpr COLORREF DRAWN = 0x1F7AC4;
    ASSERT_NE(nGround, DRAWN);
    CBrush brush(DRAWN);
    const RECT rect{10, 10, 20, 20};
    dc.FillRect(&rect, &brush);
    EXPECT_EQ(dc.GetPixel(10, 10), DRAWN);
    EXPECT_EQ(dc.GetPixel(30, 30), nGround);
    const QPoint seen[] = {{15, 15}, {30, 30}};
    const QImage shown = pPeer->GetClient().grab().toImage();
    EXPECT_EQ(shown.pixelColor(seen[0]), QColor(0xC4, 0x7A, 0x1F)) << "and the widget shows it";
    EXPECT_NE(shown.pixelColor(seen[1]), QColor(0xC4, 0x7A, 0x1F));
}

TEST(MainWait, AConditionThatThrowsEndsTheWaitWhenItIsFirstAskedAndWithinTheLoop) {
    const auto fnCountWaiting = [] {
        const std::lock_guard lock(tessara::SharedLock());
        return tessara::CMailbox::CountWaiting();
    };
    const std::size_t nBefore = fnCountWaiting();
    for (const int nThrowing : {1, 2, 4}) { // the third time through the toolkit, which does not allow that
        int nAsked = 0;
        // True for the one time that the event loop asks, which then ends.
        const auto fnCondition = [&] {
            if (++nAsked == nThrowing) {
                throw CInvalidArgException();
            }
            return nAsked == 3;
        };
        EXPECT_THROW(tessara::CMailbox::OfThisThread()->WaitUntil(fnCondition), CInvalidArgException);
        EXPECT_EQ(nAsked, nThrowing);
        EXPECT_EQ(fnCountWaiting(), nBefore) << nThrowing;
    }
    Sleep(1); // a loop within no other, which nobody else's condition ends
}

UINT SendBack(void* pParam) {
    auto* const pCounter = static_cast<CCounter*>(pParam);
    for (int i = 0; i < 1000; ++i) {
        pCounter->SendMessage(WM_TEST, 1, 2);
    }
    return 0;
}

TEST_F(ThreadTest, TwoThreadsThatCallEachOtherBothGetTheirAnswer) {
    CCounter here;
    ASSERT_TRUE(here.Create(nullptr, "", WS_OVERLAPPEDWINDOW, CRect(0, 0, 9, 9), nullptr, 0));
    auto pSender = std::make_unique<CWinThread>(&SendBack, &here);
    pSender->m_bAutoDelete = FALSE;
    ASSERT_TRUE(pSender->CreateThread());
    for (int i = 0; i < 1000; ++i) {
        m_pThread->m_counter.SendMessage(WM_TEST, 1, 2);
    }
    EXPECT_EQ(WaitForSingleObject(pSender->m_hThread, LIMIT), WAIT_OBJECT_0);
    EXPECT_EQ(here.m_nHeard, 1000);
    EXPECT_EQ(m_pThread->m_counter.m_nHeard, 1000);
}

TEST(Wait, EndsByItsSignalItsTimeOrTheEndOfItsHandle) {
    const HANDLE hManual = CreateEvent(nullptr, TRUE, TRUE, nullptr);
    EXPECT_EQ(WaitForSingleObject(hManual, 0), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(hManual, 0), WAIT_OBJECT_0);
    const HANDLE hOnce = CreateEvent(nullptr, FALSE, TRUE, nullptr);
    EXPECT_EQ(WaitForSingleObject(hOnce, 0), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(hOnce, 5), WAIT_TIMEOUT);
    EXPECT_TRUE(SetEvent(hOnce));
    EXPECT_EQ(WaitForSingleObject(hOnce, INFINITE), WAIT_OBJECT_0);
    bool bServed = false;
    QTimer::singleShot(0, [&] { bServed = true; });
    EXPECT_EQ(WaitForSingleObject(hOnce, 0), WAIT_TIMEOUT);
    EXPECT_FALSE(bServed) << "a wait of no time is a question";
    QApplication::processEvents();
    EXPECT_TRUE(CloseHandle(hOnce));
    EXPECT_TRUE(CloseHandle(hManual));
    EXPECT_FALSE(SetEvent(hOnce));
    EXPECT_EQ(WaitForSingleObject(hOnce, INFINITE), WAIT_FAILED);
}

} // namespace
