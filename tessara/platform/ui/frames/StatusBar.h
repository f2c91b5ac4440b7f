#pragma once

#include <span>
#include <vector>

#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/windows/Wnd.h"

/// The bar at a frame's lower edge: a wide pane for messages and panes for states. While a menu item is
/// highlighted the first shows the item's string resource.
class TESSARA_API CStatusBar : public CWnd {
    DECLARE_DYNAMIC(CStatusBar)

public:
    CStatusBar() = default;

    /// Makes the bar with one pane, which says that the program is ready.
    BOOL Create(CWnd* pFrame, DWORD dwStyle = WS_CHILD | WS_VISIBLE, UINT nID = AFX_IDW_STATUS_BAR);
    using CWnd::Create;
    /// Makes a pane for each number: the text of that string resource, which also gives the width; nothing
    /// for ID_SEPARATOR. ON_UPDATE_COMMAND_UI of the number changes the pane.
    BOOL SetIndicators(const UINT* pIndicators, int nCount);
    BOOL SetPaneText(int nPane, const char* pszText, BOOL bUpdate = TRUE);
    CString GetPaneText(int nPane) const;
    int GetCount() const { return static_cast<int>(m_indicators.size()); }

    void UpdatePanes(CCmdTarget& target);

private:
    std::vector<UINT> m_indicators;
};
