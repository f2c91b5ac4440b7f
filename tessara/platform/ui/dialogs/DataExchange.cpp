#include "tessara/platform/ui/dialogs/DataExchange.h"

#include <algorithm>
#include <vector>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/dialogs/Dialog.h"
#include "tessara/platform/ui/windows/WindowTable.h"

CWnd* CDataExchange::PrepareCtrl(int nID) const {
    CWnd* const pControl = m_pDlgWnd->GetDlgItem(nID);
    if (!pControl) {
        AfxThrowResourceException();
    }
    return pControl;
}

void DDX_Control(CDataExchange* pDX, int nID, CWnd& control) {
    if (!control.GetSafeHwnd()) {
        control.SubclassWindow(pDX->PrepareCtrl(nID)->GetSafeHwnd());
    }
}

void DDX_Text(CDataExchange* pDX, int nID, CString& strValue) {
    CWnd* const pControl = pDX->PrepareCtrl(nID);
    if (pDX->m_bSaveAndValidate) {
        pControl->GetWindowText(strValue);
    } else {
        pControl->SetWindowText(strValue);
    }
}

namespace {

/// Works on a control as on a button, whatever object the program attached to it.
class CButtonView : public CButton {
public:
    explicit CButtonView(const CWnd& wnd) { m_hWnd = wnd.m_hWnd; }
    ~CButtonView() override { m_hWnd = nullptr; }
};

bool IsRadioButton(const CWnd& wnd) {
    const DWORD nKind = wnd.GetStyle() & BS_TYPEMASK;
    return dynamic_cast<const CButton*>(&wnd) && (nKind == BS_RADIOBUTTON || nKind == BS_AUTORADIOBUTTON);
}

/// The radio buttons from a control on to the one before the next with WS_GROUP.
std::vector<const CWnd*> FindRadioGroup(const CWnd& dialog, HWND hFirst) {
    const std::vector<HWND> children = tessara::ChildrenOf(dialog.GetSafeHwnd());
    std::vector<const CWnd*> group;
    for (auto it = std::find(children.begin(), children.end(), hFirst); it != children.end(); ++it) {
        const CWnd* const pControl = CWnd::FromHandle(*it);
        if (!pControl || (*it != hFirst && (pControl->GetStyle() & WS_GROUP))) {
            break;
        }
        if (IsRadioButton(*pControl)) {
            group.push_back(pControl);
        }
    }
    return group;
}

} // namespace

void DDX_Check(CDataExchange* pDX, int nID, int& nValue) {
    CButtonView button(*pDX->PrepareCtrl(nID));
    if (pDX->m_bSaveAndValidate) {
        nValue = button.GetCheck();
    } else {
        button.SetCheck(nValue);
    }
}

void DDX_Radio(CDataExchange* pDX, int nID, int& nValue) {
    int nChecked = -1;
    int nButton = 0;
    for (const CWnd* pControl : FindRadioGroup(*pDX->m_pDlgWnd, pDX->PrepareCtrl(nID)->GetSafeHwnd())) {
        CButtonView button(*pControl);
        if (!pDX->m_bSaveAndValidate) {
            button.SetCheck(nButton == nValue);
        } else if (button.GetCheck()) {
            nChecked = nButton;
        }
        ++nButton;
    }
    if (pDX->m_bSaveAndValidate) {
        nValue = nChecked;
    }
}
