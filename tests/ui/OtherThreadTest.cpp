#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QTest>
#include <QTimer>
#include <semaphore>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/controls/ListCtrl.h"
#include "tessara/platform/ui/controls/ProgressCtrl.h"
#include "tessara/platform/ui/controls/SpinButtonCtrl.h"
#include "tessara/platform/ui/controls/Static.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/ClientDC.h"

// Windows of another thread whose looks depend on what that thread answers.

namespace {

constexpr DWORD LIMIT = 60'000; ///< milliseconds: what does not come fails the test
constexpr UINT WM_HOLD = WM_USER + 1;
constexpr UINT WM_END = WM_USER + 2;
constexpr COLORREF FIRST = RGB(200, 0, 0);
constexpr COLORREF NEXT = RGB(0, 0, 200);
constexpr int LINE_HEIGHT = 32; ///< whole units of the toolkit at scale 2, too

/// Writes down whether it was asked to paint, and has no handler for that.
class CUnpainted : public CWnd {
public:
    std::atomic<int> m_nAsked = 0;

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override {
        m_nAsked += nMessage == WM_PAINT ? 1 : 0;
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }
};

/// Answers with one colour whatever its widgets and those of its controls want to know.
class CColored : public CWnd {
public:
    enum ECONTROL : UINT { DRAWN = 1, TABLE, LABEL, SPIN, BARE };

    std::atomic<COLORREF> m_color = FIRST;
    std::atomic<int> m_nPaints = 0;
    int m_nChanged = 0;
    CListBox m_drawn;
    CListCtrl m_table;
    CStatic m_label;
    CSpinButtonCtrl m_spin;
    CUnpainted m_bare;

    void Make() {
        Create(nullptr, "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 400, 300), nullptr, 0);
        constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
        m_drawn.Create(CHILD | LBS_OWNERDRAWFIXED, CRect(10, 10, 110, 110), this, DRAWN);
        m_drawn.AddString("x");
        m_table.Create(CHILD | LVS_REPORT | LVS_OWNERDATA, CRect(120, 10, 390, 110), this, TABLE);
        m_table.InsertColumn(0, "Colour", LVCFMT_LEFT, 200);
        m_table.SetItemCount(1);
        m_label.Create("Label", CHILD, CRect(10, 120, 110, 140), this, LABEL);
        m_spin.Create(CHILD, CRect(10, 150, 40, 190), this, SPIN);
        m_bare.Create(nullptr, "", CHILD, CRect(60, 150, 90, 190), this, BARE);
    }

protected:
    void OnPaint() {
        ++m_nPaints;
        CPaintDC dc(this);
        CBrush brush(m_color);
        const RECT all{0, 0, 400, 300};
        dc.FillRect(&all, &brush);
    }
    void OnMeasureItem(int, LPMEASUREITEMSTRUCT pMeasure) { pMeasure->itemHeight = LINE_HEIGHT; }
    void OnDrawItem(int, LPDRAWITEMSTRUCT pDraw) {
        CBrush brush(m_color);
        pDraw->pDC->FillRect(&pDraw->rcItem, &brush);
    }
    HBRUSH OnCtlColor(CDC* pDC, CWnd*, UINT) {
        pDC->SetTextColor(m_color);
        return nullptr;
    }
    void OnGetDispInfo(NMHDR* pHeader, LRESULT*) {
        LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(pHeader)->item;
        std::snprintf(item.pszText, static_cast<std::size_t>(item.cchTextMax), "%u", unsigned{m_color});
    }
    void OnChanged(NMHDR*, LRESULT*) { ++m_nChanged; }
    void OnDelta(NMHDR* pHeader, LRESULT* pResult) {
        auto& step = *reinterpret_cast<NMUPDOWN*>(pHeader);
        step.iDelta *= 5;
        *pResult = step.iPos >= 10;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CColored, CWnd)
ON_WM_PAINT()
ON_WM_MEASUREITEM()
ON_WM_DRAWITEM()
ON_WM_CTLCOLOR()
ON_NOTIFY(LVN_GETDISPINFO, TABLE, OnGetDispInfo)
ON_NOTIFY(LVN_ITEMCHANGED, TABLE, OnChanged)
ON_NOTIFY(UDN_DELTAPOS, SPIN, OnDelta)
END_MESSAGE_MAP()

class COwnerThread : public CWinThread {
public:
    CColored m_window;
    HANDLE m_hReady = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    std::atomic<bool> m_bHeld = false;
    std::binary_semaphore m_release{0};

protected:
    BOOL InitInstance() override {
        m_window.Make();
        m_pMainWnd = &m_window;
        SetEvent(m_hReady);
        return TRUE;
    }
    /// Answers nobody, until it is released or the test has plainly gone wrong.
    void OnHold(WPARAM, LPARAM) {
        m_bHeld = true;
        static_cast<void>(m_release.try_acquire_for(std::chrono::seconds(5)));
        m_bHeld = false;
    }
    void OnEnd(WPARAM, LPARAM) { m_window.DestroyWindow(); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(COwnerThread, CWinThread)
ON_THREAD_MESSAGE(WM_HOLD, OnHold)
ON_THREAD_MESSAGE(WM_END, OnEnd)
END_MESSAGE_MAP()

class OtherThread : public ::testing::Test {
protected:
    OtherThread() {
        m_thread.m_bAutoDelete = FALSE;
        EXPECT_TRUE(m_thread.CreateThread());
        EXPECT_EQ(WaitForSingleObject(m_thread.m_hReady, LIMIT), WAIT_OBJECT_0);
    }
    ~OtherThread() override {
        m_thread.PostThreadMessage(WM_END, 0, 0);
        EXPECT_EQ(WaitForSingleObject(m_thread.m_hThread, LIMIT), WAIT_OBJECT_0);
        CloseHandle(m_thread.m_hReady);
    }

    void Hold() {
        m_thread.PostThreadMessage(WM_HOLD, 0, 0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return m_thread.m_bHeld.load(); }, LIMIT));
    }
    QWidget& WidgetOf(const CWnd& wnd) { return tessara::CPeer::Find(wnd.m_hWnd)->GetWidget(); }
    /// What is seen now: the colours of the ground and of a line, the text of a cell, the label's colour.
    std::string Look() {
        const QImage shown = WidgetOf(m_window).grab().toImage();
        const auto* const pTable = static_cast<const QAbstractItemView*>(&WidgetOf(m_window.m_table));
        const QString strCell = pTable->model()->index(0, 0).data().toString();
        const QColor label = WidgetOf(m_window.m_label).palette().color(QPalette::WindowText);
        return (shown.pixelColor(395, 295).name() + ' ' + shown.pixelColor(30, 10 + LINE_HEIGHT - 5).name() +
                ' ' + strCell + ' ' + label.name())
            .toStdString();
    }
    void Outdate() {
        CWnd* const windows[] = {&m_window, &m_window.m_drawn, &m_window.m_table, &m_window.m_label,
                                 &m_window.m_bare};
        for (CWnd* const pWindow : windows) {
            pWindow->Invalidate();
        }
    }
    void OnItsThread(const std::function<void()>& fnRun) {
        tessara::FindWindow(m_window.m_hWnd)->pOwner->Call(fnRun);
    }

    COwnerThread m_thread;
    CColored& m_window = m_thread.m_window;
};

constexpr const char FIRST_LOOK[] = "#c80000 #c80000 200 #c80000";
constexpr const char NEXT_LOOK[] = "#0000c8 #0000c8 13107200 #0000c8";

TEST_F(OtherThread, IsNotWaitedForWhenItsWindowsArePaintedAndTheLastAnswersAreShownUntilItComes) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return Look() == FIRST_LOOK; }, LIMIT)) << Look();
    Hold();
    const int nPaints = m_window.m_nPaints;
    m_window.m_color = NEXT;
    for (int i = 0; i < 10; ++i) {
        Outdate();
        EXPECT_EQ(Look(), FIRST_LOOK);
        QApplication::processEvents();
    }
    EXPECT_TRUE(m_thread.m_bHeld) << "the main thread went on only after it";
    m_thread.m_release.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Look() == NEXT_LOOK; }, LIMIT)) << Look();
    EXPECT_EQ(m_window.m_nPaints, nPaints + 1) << "questions that wait are one";
    EXPECT_EQ(m_window.m_bare.m_nAsked, 0);
}

TEST_F(OtherThread, HasItsOwnAnswersAtOnce) {
    // Not in the middle of its first painting, which serves calls.
    ASSERT_TRUE(QTest::qWaitFor([&] { return Look() == FIRST_LOOK; }, LIMIT)) << Look();
    OnItsThread([&] {
        EXPECT_EQ(m_window.m_drawn.GetItemHeight(0), LINE_HEIGHT);
        EXPECT_EQ(m_window.m_table.GetItemText(0, 0), "200");
        m_window.m_table.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
        EXPECT_EQ(m_window.m_nChanged, 1);
        m_window.m_color = NEXT;
        const int nPaints = m_window.m_nPaints;
        m_window.Invalidate();
        m_window.UpdateWindow();
        EXPECT_GT(m_window.m_nPaints, nPaints);
        CClientDC dc(&m_window);
        EXPECT_EQ(dc.GetPixel(395, 295), NEXT);
    });
    const std::string strPicture = ::testing::TempDir() + "other-thread.png";
    m_window.SaveImage(strPicture.c_str());
    const QImage picture(QString::fromStdString(strPicture));
    EXPECT_EQ(picture.pixelColor(395, 295), QColor(0, 0, 200));
    EXPECT_EQ(picture.pixelColor(30, 10 + LINE_HEIGHT - 5), QColor(0, 0, 200));
}

TEST_F(OtherThread, DecidesOnAStepOfASpinButtonWhenItHasTime) {
    auto* const pUp = WidgetOf(m_window.m_spin).findChild<QAbstractButton*>();
    Hold();
    for (int i = 0; i < 4; ++i) {
        pUp->click();
    }
    EXPECT_EQ(m_window.m_spin.GetPos(), 0);
    EXPECT_TRUE(m_thread.m_bHeld);
    m_thread.m_release.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_window.m_spin.GetPos() == 10; }, LIMIT));
    OnItsThread([] {}); // the other steps were forbidden
    EXPECT_EQ(m_window.m_spin.GetPos(), 10);
}

/// Does something once while it paints; has a bar in it.
class CBusyPainter : public CWnd {
public:
    CProgressCtrl m_bar;
    std::function<void()> m_fnPaint;
    bool m_bPainted = false;

    void Make() {
        Create(nullptr, "", WS_OVERLAPPEDWINDOW, CRect(0, 0, 200, 100), nullptr, 0);
        m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 190, 30), this, 1);
    }

protected:
    void OnPaint() {
        if (std::function<void()> fnPaint = std::exchange(m_fnPaint, nullptr)) {
            fnPaint();
            m_bPainted = true;
        }
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBusyPainter, CWnd)
ON_WM_PAINT()
END_MESSAGE_MAP()

int g_nWarnings = 0;

/// A window that is being painted must not be painted a second time; the toolkit warns of it, or worse.
class PaintThat : public ::testing::Test {
protected:
    PaintThat() {
        g_nWarnings = 0;
        m_pfnPrevious =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& strText) {
                g_nWarnings += strText.contains(QStringLiteral("propagateSizeHints")) ? 0 : 1;
            });
        m_window.Make();
    }
    ~PaintThat() override { qInstallMessageHandler(m_pfnPrevious); }

    void PaintDoing(std::function<void()> fnPaint) {
        m_window.m_fnPaint = std::move(fnPaint);
        m_window.ShowWindow(SW_SHOW);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_window.m_bPainted; }, LIMIT));
        QApplication::processEvents(); // it is painted anew
        EXPECT_TRUE(tessara::CPeer::Find(m_window.m_hWnd)->GetWidget().updatesEnabled());
        EXPECT_EQ(g_nWarnings, 0);
    }

    CBusyPainter m_window;
    QtMessageHandler m_pfnPrevious;
};

TEST_F(PaintThat, WaitsServesTheThreadThatItWaitsFor) {
    CBusyPainter& window = m_window;
    static HANDLE s_hStart = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    static HANDLE s_hMoved = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    CWinThread worker(
        [](void* pParam) -> UINT {
            WaitForSingleObject(s_hStart, LIMIT);
            for (int i = 0; i < 5; ++i) {
                static_cast<CBusyPainter*>(pParam)->m_bar.StepIt();
            }
            SetEvent(s_hMoved);
            return 0;
        },
        &window);
    worker.m_bAutoDelete = FALSE;
    ASSERT_TRUE(worker.CreateThread());
    PaintDoing([] {
        SetEvent(s_hStart);
        EXPECT_EQ(WaitForSingleObject(s_hMoved, LIMIT), WAIT_OBJECT_0);
    });
    EXPECT_EQ(window.m_bar.GetPos(), 50);
    EXPECT_EQ(WaitForSingleObject(worker.m_hThread, LIMIT), WAIT_OBJECT_0);
}

TEST_F(PaintThat, OpensAMessageBoxIsNotRepeatedBehindIt) {
    PaintDoing([&] {
        QTimer::singleShot(0, [&] {
            m_window.m_bar.StepIt();
            QApplication::activeModalWidget()->close();
        });
        EXPECT_EQ(AfxMessageBox("The disk is full."), IDOK);
    });
}

} // namespace
