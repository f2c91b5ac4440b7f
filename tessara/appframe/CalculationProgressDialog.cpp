#include "tessara/appframe/CalculationProgressDialog.h"

#include "tessara/appframe/FrameControls.h"

IMPLEMENT_DYNAMIC(CCalculationProgressDialog, CDialog)

BOOL CCalculationProgressDialog::Open(HWND hParent) {
    return CreateOwnedBy(tessara::IDD_CALCULATION, hParent);
}

BOOL CCalculationProgressDialog::OnInitDialog() {
    CProgressDialog::OnInitDialog();
    m_bAborting = FALSE;
    m_right.Open(tessara::IDA_RIGHT);
    m_left.Open(tessara::IDA_LEFT);
    return TRUE;
}

void CCalculationProgressDialog::DoDataExchange(CDataExchange* pDX) {
    CProgressDialog::DoDataExchange(pDX);
    DDX_Control(pDX, tessara::IDC_ANIMATION_LEFT, m_left);
    DDX_Control(pDX, tessara::IDC_ANIMATION_RIGHT, m_right);
}

void CCalculationProgressDialog::Step() {
    if (m_bAborting) {
        RestoreTitle();
    } else {
        CProgressDialog::Step();
    }
}

void CCalculationProgressDialog::OnCancel() {
    m_bAborted = true; // first: nothing that is shown may keep the calculation waiting
    m_bAborting = TRUE;
    StopShowing();
    CString strText;
    strText.LoadString(tessara::IDS_ABORTING);
    SetDlgItemText(tessara::IDC_PROGRESS_TEXT, strText);
    if (CWnd* const pAbort = GetDlgItem(IDCANCEL)) {
        pAbort->EnableWindow(FALSE);
    }
}
