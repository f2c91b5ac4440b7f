#include <gtest/gtest.h>

#include <QApplication>
#include <thread>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/threads/Sync.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/System.h"

// What a surface on a window knows of text, also where a unit of Qt is two pixels.

namespace {

class WindowSurface : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_wnd.Create(nullptr, "", WS_OVERLAPPEDWINDOW, CRect(0, 0, 300, 160), nullptr, 0));
        ASSERT_TRUE(m_button.Create("Wg", WS_CHILD | WS_VISIBLE, CRect(0, 0, 80, 30), &m_wnd, 1));
    }
    static QWidget& WidgetOf(const CWnd& wnd) { return tessara::CPeer::Find(wnd.m_hWnd)->GetWidget(); }
    /// The height of a line as the widget's own texts have it, in pixels.
    static double LineOf(const CWnd& wnd) {
        return QFontMetricsF(WidgetOf(wnd).font()).height() * WidgetOf(wnd).devicePixelRatioF();
    }

    CWnd m_wnd;
    CButton m_button;
};

TEST_F(WindowSurface, MeasuresTextAsHighAsTheWindowsControlsDrawIt) {
    CClientDC client(&m_wnd);
    CWindowDC window(&m_wnd);
    CPaintDC paint(&m_button);
    for (const CDC* const pDC :
         {static_cast<CDC*>(&client), static_cast<CDC*>(&window), static_cast<CDC*>(&paint)}) {
        EXPECT_NEAR(static_cast<double>(pDC->GetTextExtent("Wg", 2).cy), LineOf(m_wnd), 0.1 * LineOf(m_wnd));
    }
}

TEST_F(WindowSurface, HasTheFontThatTheProgramGaveTheWindowExactly) {
    CFont font;
    LOGFONT description = tessara::MakeLogFont(-37, "Liberation Sans");
    description.lfItalic = 1;
    font.CreateFontIndirect(&description);
    m_wnd.SetFont(&font);
    EXPECT_EQ(m_wnd.GetFont()->GetLogFont(), description);
    CClientDC dc(&m_wnd);
    const CSize own = dc.GetTextExtent("Wg", 2);
    CFont* const pOwn = dc.SelectObject(&font);
    EXPECT_EQ(dc.GetTextExtent("Wg", 2), own);
    EXPECT_EQ(dc.SelectObject(pOwn), &font);
    EXPECT_EQ(pOwn->GetLogFont(), description);
    const LOGFONT desktop = tessara::WindowFont(nullptr);
    m_wnd.SetFont(nullptr);
    EXPECT_EQ(m_wnd.GetFont()->GetLogFont(), desktop);
    m_wnd.DestroyWindow();
    EXPECT_EQ(m_wnd.GetFont()->GetLogFont(), desktop); // also without a window
}

TEST_F(WindowSurface, TellsAnotherThreadTheSame) {
    CClientDC here(&m_wnd);
    CSize there;
    HANDLE const hDone = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    std::thread worker([&] {
        CClientDC dc(&m_wnd);
        there = dc.GetTextExtent("Wg", 2);
        SetEvent(hDone);
    });
    EXPECT_EQ(WaitForSingleObject(hDone, 10'000), WAIT_OBJECT_0);
    worker.join();
    CloseHandle(hDone);
    EXPECT_EQ(there, here.GetTextExtent("Wg", 2));
}

TEST_F(WindowSurface, ItsClipBoxIsTheClientAreaInLogicalUnits) {
    CClientDC dc(&m_wnd);
    CRect client;
    m_wnd.GetClientRect(&client);
    CRect box;
    EXPECT_EQ(dc.GetClipBox(&box), SIMPLEREGION);
    EXPECT_EQ(box, client);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(2, -2);
    dc.SetViewportOrg(0, client.bottom);
    EXPECT_EQ(dc.GetClipBox(&box), SIMPLEREGION);
    EXPECT_EQ(box, CRect(0, 0, client.right / 2, client.bottom / 2)); // also where y grows upward
    m_button.MoveWindow(0, 0, 0, 0);
    CClientDC nothing(&m_button);
    EXPECT_EQ(nothing.GetClipBox(&box), NULLREGION);
    EXPECT_TRUE(box.IsRectEmpty());
    m_wnd.DestroyWindow();
    EXPECT_EQ(dc.GetClipBox(&box), NULLREGION);
}

} // namespace
