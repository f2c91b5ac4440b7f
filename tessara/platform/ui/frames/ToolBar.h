#pragma once

#include <span>

#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/resources/MenuResources.h"
#include "tessara/platform/ui/windows/Wnd.h"

/// A bar of buttons at a frame's upper edge. The buttons are asked about by ON_UPDATE_COMMAND_UI when the
/// program is idle.
class TESSARA_API CToolBar : public CWnd {
    DECLARE_DYNAMIC(CToolBar)

public:
    CToolBar() = default;

    BOOL Create(CWnd* pFrame, DWORD dwStyle = WS_CHILD | WS_VISIBLE, UINT nID = AFX_IDW_TOOLBAR);
    using CWnd::Create;
    /// Takes the buttons of a resource in place of its own. Throws CResourceException.
    BOOL LoadToolBar(UINT nIDResource);
};
