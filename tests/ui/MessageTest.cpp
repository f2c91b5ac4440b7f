#include <gtest/gtest.h>

#include "tessara/platform/ui/windows/Wnd.h"

namespace {

/// Two levels of maps: what the derived class does not take goes to the base.
class CBaseWindow : public CWnd {
public:
    std::string m_strHeard;

protected:
    void OnOne() { m_strHeard += "base 1;"; }
    void OnRange(UINT nID) { m_strHeard += "range " + std::to_string(nID) + ";"; }
    BOOL OnSetCursor(CWnd*, UINT, UINT) {
        m_strHeard += "base cursor;";
        return TRUE;
    }
    void OnChanged() { m_strHeard += "changed;"; }
    void OnNotified(NMHDR* pHeader, LRESULT* pResult) {
        m_strHeard += "notified " + std::to_string(pHeader->idFrom) + ";";
        *pResult = 5;
    }
    DECLARE_MESSAGE_MAP()
};

class CDerivedWindow : public CBaseWindow {
protected:
    void OnOne() { m_strHeard += "derived 1;"; }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return FALSE; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBaseWindow, CWnd)
ON_COMMAND(1, OnOne)
ON_COMMAND_RANGE(10, 19, OnRange)
ON_WM_SETCURSOR()
ON_EN_CHANGE(30, OnChanged)
ON_NOTIFY(LVN_COLUMNCLICK, 31, OnNotified)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CDerivedWindow, CBaseWindow)
ON_COMMAND(1, OnOne)
ON_WM_SETCURSOR()
END_MESSAGE_MAP()

TEST(MessageMap, FindsTheHandlerOfTheMostDerivedClassThatTakesTheMessage) {
    CDerivedWindow window;
    ASSERT_TRUE(window.Create(nullptr, "", WS_OVERLAPPEDWINDOW, CRect(0, 0, 50, 50), nullptr, 0));
    window.SendMessage(WM_COMMAND, 1);
    window.SendMessage(WM_COMMAND, 10);
    window.SendMessage(WM_COMMAND, 19);
    window.SendMessage(WM_COMMAND, 20);
    EXPECT_EQ(window.SendMessage(WM_SETCURSOR), 1);
    window.SendMessage(WM_COMMAND, MAKEWPARAM(30, EN_CHANGE));
    window.SendMessage(WM_COMMAND, MAKEWPARAM(30, EN_KILLFOCUS));
    NMHDR header{nullptr, 31, LVN_COLUMNCLICK};
    EXPECT_EQ(window.SendMessage(WM_NOTIFY, 31, reinterpret_cast<LPARAM>(&header)), 5);
    EXPECT_EQ(window.m_strHeard, "derived 1;range 10;range 19;base cursor;changed;notified 31;");
}

} // namespace
