#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A push button, check box, radio button or group box, by its ButtonStyle. Check boxes and radio buttons
/// follow clicks by themselves, also with the styles without "AUTO". The parent hears of a click as
/// BN_CLICKED.
///
/// The widgets and the methods are in qt/controls/Button.cpp.
class TESSARA_API CButton : public CWnd {
    DECLARE_DYNCREATE(CButton)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and ButtonStyle. Radio buttons that are made so, and not by a
    /// dialog's template, form one group with their siblings.
    BOOL Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// 0 clear, 1 set, 2 undecided (BS_AUTO3STATE alone); 0 for a push button or a group box.
    int GetCheck() const;
    /// Any value but 0 sets a button of two states. Setting tells nobody; a radio button that is set clears
    /// those of its group, one that is cleared leaves the group with none.
    void SetCheck(int nCheck);
    /// Makes a push button the default one of its dialog (BS_DEFPUSHBUTTON), or not. Only a push button
    /// looks at it, and its kind does not change.
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);
};
