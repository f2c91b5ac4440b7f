#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/frames/CmdUI.h"
#include "tessara/platform/ui/frames/FrameSeam.h"
#include "tessara/platform/ui/frames/StatusBar.h"
#include "tessara/platform/ui/frames/ToolBar.h"
#include "tessara/platform/ui/resources/StandardStrings.h"

IMPLEMENT_DYNAMIC(CStatusBar, CWnd)
IMPLEMENT_DYNAMIC(CToolBar, CWnd)

namespace {

/// One pane, for handlers of ON_UPDATE_COMMAND_UI.
class CPaneUI : public CCmdUI {
public:
    CPaneUI(UINT nID, HWND hBar, int nPane) : CCmdUI(nID), m_hBar(hBar), m_nPane(nPane) {}
    void Enable(BOOL bOn) override {
        CCmdUI::Enable(bOn);
        tessara::EnablePane(m_hBar, m_nPane, bOn != 0);
    }
    void SetText(const char* pszText) override { tessara::SetPaneText(m_hBar, m_nPane, pszText); }

private:
    HWND m_hBar;
    int m_nPane;
};

} // namespace

BOOL CStatusBar::Create(CWnd* pFrame, DWORD dwStyle, UINT nID) {
    const UINT nSeparator = ID_SEPARATOR;
    return CreateEx(0, tessara::STATUS_BAR_CLASS, "", dwStyle, CRect(), pFrame, nID) &&
           SetIndicators(&nSeparator, 1);
}

BOOL CStatusBar::SetIndicators(const UINT* pIndicators, int nCount) {
    if (!IsWindow(m_hWnd)) {
        return FALSE;
    }
    m_indicators.assign(pIndicators, pIndicators + nCount);
    std::vector<CString> texts;
    for (const UINT nID : m_indicators) {
        texts.push_back(nID == ID_SEPARATOR ? CString() : tessara::StandardStringLine(nID, 0));
    }
    tessara::SetPanes(m_hWnd, texts);
    SetPaneText(0, tessara::StandardStringLine(AFX_IDS_IDLEMESSAGE, 0));
    return TRUE;
}

BOOL CStatusBar::SetPaneText(int nPane, const char* pszText, BOOL) {
    return tessara::SetPaneText(m_hWnd, nPane, pszText);
}

CString CStatusBar::GetPaneText(int nPane) const {
    return tessara::GetPaneText(m_hWnd, nPane);
}

void CStatusBar::UpdatePanes(CCmdTarget& target) {
    for (int i = 0; i < GetCount(); ++i) {
        const UINT nID = m_indicators[static_cast<std::size_t>(i)];
        if (nID != ID_SEPARATOR) {
            CPaneUI pane(nID, m_hWnd, i);
            pane.DoUpdate(target, FALSE);
        }
    }
}

BOOL CToolBar::Create(CWnd* pFrame, DWORD dwStyle, UINT nID) {
    return CreateEx(0, tessara::TOOL_BAR_CLASS, "", dwStyle, CRect(), pFrame, nID);
}

BOOL CToolBar::LoadToolBar(UINT nIDResource) {
    const tessara::CToolBarResource* const pResource = tessara::FindToolBarResource(nIDResource);
    if (!pResource) {
        AfxThrowResourceException();
    }
    tessara::SetToolButtons(m_hWnd, pResource->buttons);
    return IsWindow(m_hWnd);
}
