#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/String.h"

class CDialog;
class CWnd;

/// The direction of an exchange between a dialog's members and its controls.
class TESSARA_API CDataExchange {
public:
    CDataExchange(CDialog* pDialog, BOOL bSaveAndValidate)
        : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDialog) {}

    BOOL m_bSaveAndValidate; ///< nonzero: from the controls to the members
    CDialog* m_pDlgWnd;

    /// The control of that number. Throws CResourceException when there is none.
    CWnd* PrepareCtrl(int nID) const;
};

/// Attaches a member to its control, once.
TESSARA_API void DDX_Control(CDataExchange* pDX, int nID, CWnd& control);
TESSARA_API void DDX_Text(CDataExchange* pDX, int nID, CString& strValue);
TESSARA_API void DDX_Check(CDataExchange* pDX, int nID, int& nValue);
/// The number, from 0, of the radio button that is set in the group that begins with nID; -1 for none.
TESSARA_API void DDX_Radio(CDataExchange* pDX, int nID, int& nValue);
