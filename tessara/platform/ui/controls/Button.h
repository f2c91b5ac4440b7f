#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A push button, check box, radio button or group box, by its ButtonStyle. Check boxes and radio buttons
/// follow clicks by themselves, also with the styles without "AUTO".
class TESSARA_API CButton : public CWnd {
    DECLARE_DYNCREATE(CButton)

public:
    using CWnd::Create;
    BOOL Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// 0 clear, 1 set, 2 undecided. Setting tells nobody; a radio button that is set clears those of its
    /// group.
    int GetCheck() const;
    void SetCheck(int nCheck);
    /// Makes a push button the default one of its dialog (BS_DEFPUSHBUTTON), or not.
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);
};
