#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Sync.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/WindowTable.h"

namespace {

constexpr RECT PLACE{10, 20, 210, 120};
constexpr DWORD TOP = WS_OVERLAPPEDWINDOW;

/// Paints a red square and writes down what it is told.
class CSquare : public CWnd {
public:
    std::vector<std::string> m_heard;
    CSize m_size;
    int m_nPaints = 0;

protected:
    void OnPaint() {
        ++m_nPaints;
        CPaintDC dc(this);
        CBrush red(RGB(255, 0, 0));
        const RECT square{10, 10, 30, 30};
        dc.FillRect(&square, &red);
    }
    void OnSize(UINT, int nWidth, int nHeight) { m_size = {nWidth, nHeight}; }
    void OnLButtonDown(UINT nFlags, CPoint point) {
        m_heard.push_back("down " + std::to_string(nFlags) + " " + std::to_string(point.x) + "," +
                          std::to_string(point.y));
    }
    BOOL OnMouseWheel(UINT, short nDelta, CPoint) {
        m_heard.push_back("wheel " + std::to_string(nDelta));
        return TRUE;
    }
    void OnKeyDown(UINT nChar, UINT, UINT) { m_heard.push_back("key " + std::to_string(nChar)); }
    void OnChar(UINT nChar, UINT, UINT) { m_heard.push_back("char " + std::to_string(nChar)); }
    void OnClose() {
        m_heard.push_back("close");
        CWnd::OnClose();
    }
    void OnDestroy() { m_heard.push_back("destroy"); }
    void PostNcDestroy() override { m_heard.push_back("gone"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CSquare, CWnd)
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEWHEEL()
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_CLOSE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

QWidget& WidgetOf(const CWnd& wnd) {
    return tessara::CPeer::Find(wnd.m_hWnd)->GetClient();
}

class WindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_square.Create(nullptr, "Square", TOP | WS_VISIBLE, PLACE, nullptr, 0));
        m_square.UpdateWindow();
    }
    CSquare m_square;
};

TEST_F(WindowTest, ShowsWhatItPaintsAndReadsItBack) {
    EXPECT_EQ(m_square.m_size, (SIZE{200, 100}));
    EXPECT_EQ(m_square.m_nPaints, 1);
    CClientDC dc(&m_square);
    EXPECT_EQ(dc.GetPixel(20, 20), RGB(255, 0, 0));
    const QImage shown = WidgetOf(m_square).grab().toImage();
    EXPECT_EQ(shown.pixelColor(29, 29), QColor(Qt::red));
    EXPECT_NE(shown.pixelColor(31, 31), QColor(Qt::red));
}

TEST_F(WindowTest, AMarkDrawnTwiceByInvertingLeavesEveryPixelAndStaysUntilPainting) {
    const auto fnImage = [&] { return WidgetOf(m_square).grab().toImage(); };
    const QImage before = fnImage();
    const auto fnMark = [&] {
        CDC* pDC = m_square.GetDC();
        pDC->SetROP2(R2_NOTXORPEN);
        CPen pen(PS_SOLID, 3, 0x7F7F7F);
        CPen* pOld = pDC->SelectObject(&pen);
        CClientDC other(&m_square); // a second surface on the same window at the same time
        pDC->MoveTo(0, 0);
        pDC->LineTo(60, 60);
        EXPECT_NE(other.GetPixel(20, 20), RGB(255, 0, 0));
        pDC->SelectObject(pOld);
        m_square.ReleaseDC(pDC);
    };
    fnMark();
    EXPECT_NE(fnImage(), before);
    CDC* const pDC = m_square.GetDC();
    pDC->SetROP2(R2_NOTXORPEN);
    CPen pen(PS_SOLID, 3, 0x7F7F7F);
    CPen* const pOld = pDC->SelectObject(&pen);
    pDC->MoveTo(0, 0);
    pDC->LineTo(60, 60);
    pDC->SelectObject(pOld);
    m_square.ReleaseDC(pDC);
    EXPECT_EQ(fnImage(), before);
    fnMark();
    m_square.Invalidate();
    m_square.UpdateWindow();
    EXPECT_EQ(fnImage(), before);
    EXPECT_EQ(m_square.m_nPaints, 2);
}

TEST_F(WindowTest, TurnsRealInputIntoMessages) {
    QTest::mousePress(&WidgetOf(m_square), Qt::LeftButton, Qt::ControlModifier, QPoint(7, 9));
    QTest::keyClick(&WidgetOf(m_square), Qt::Key_A);
    QTest::keyClick(&WidgetOf(m_square), Qt::Key_F3);
    const QPointF at(5, 5);
    QWheelEvent wheel(at, at, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&WidgetOf(m_square), &wheel);
    const std::vector<std::string> expected = {"down " + std::to_string(MK_LBUTTON | MK_CONTROL) + " 7,9",
                                               "key 65", "char 97", "key " + std::to_string(VK_F3),
                                               "wheel 120"};
    EXPECT_EQ(m_square.m_heard, expected);
}

TEST_F(WindowTest, ClosingDestroysAndTheHandleNamesNothingThen) {
    const HWND hWnd = m_square.m_hWnd;
    WidgetOf(m_square).close();
    EXPECT_EQ(m_square.m_heard, (std::vector<std::string>{"close", "destroy", "gone"}));
    EXPECT_EQ(m_square.m_hWnd, nullptr);
    EXPECT_FALSE(IsWindow(hWnd));
    EXPECT_EQ(CWnd::FromHandle(hWnd), nullptr);
    EXPECT_FALSE(::PostMessage(hWnd, WM_USER, 0, 0));
    CWnd other; // takes the same place in the table
    ASSERT_TRUE(other.Create(nullptr, "", TOP, PLACE, nullptr, 0));
    EXPECT_FALSE(IsWindow(hWnd));
    EXPECT_EQ(m_square.ShowWindow(SW_SHOW), 0);
    CRect rect;
    m_square.GetClientRect(&rect);
    EXPECT_EQ(rect, CRect());
}

TEST_F(WindowTest, AMessagePostedToAWindowThatHasGoneIsDropped) {
    ASSERT_TRUE(m_square.PostMessage(WM_CLOSE));
    m_square.DestroyWindow();
    m_square.m_heard.clear();
    ASSERT_TRUE(m_square.Create(nullptr, "", TOP, PLACE, nullptr, 0)); // in the same place of the table
    QApplication::processEvents();
    EXPECT_TRUE(m_square.m_heard.empty());
    EXPECT_TRUE(IsWindow(m_square.m_hWnd));
}

TEST_F(WindowTest, ChildrenAreFoundPlacedAndGoWithTheirParent) {
    CSquare child;
    ASSERT_TRUE(child.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(5, 6, 55, 46), &m_square, 77));
    EXPECT_EQ(m_square.GetDlgItem(77), &child);
    EXPECT_EQ(child.GetParent(), &m_square);
    EXPECT_TRUE(m_square.IsChild(&child));
    EXPECT_EQ(WidgetOf(child).objectName(), "77");
    CRect rect;
    child.GetWindowRect(&rect);
    m_square.ScreenToClient(&rect);
    EXPECT_EQ(rect, CRect(5, 6, 55, 46));
    const std::size_t nBefore = tessara::CountWindows();
    m_square.DestroyWindow();
    EXPECT_EQ(child.m_hWnd, nullptr);
    EXPECT_EQ(tessara::CountWindows(), nBefore - 2);
}

} // namespace
