#include "tessara/appframe/WelcomeDialog.h"

#include "tessara/appframe/FrameControls.h"
#include "tessara/platform/ui/frames/WinApp.h"

IMPLEMENT_DYNAMIC(CWelcomeDialog, CDialog)

CWelcomeDialog::CWelcomeDialog(CWnd* pParent) : CDialog(tessara::IDD_WELCOME, pParent) {}

int CWelcomeDialog::DoModal(unsigned short wOptions) {
    m_wOptions = wOptions;
    return CDialog::DoModal();
}

BOOL CWelcomeDialog::OnInitDialog() {
    m_nAction = m_wOptions & hasLast ? loadLast : m_wOptions & hasVariants ? loadExisting : createNew;
    CDialog::OnInitDialog();
    CenterWindow();
    const CWinApp* const pApp = AfxGetApp();
    CString strCaption;
    strCaption.Format("Welcome to %s program", pApp ? pApp->m_pszAppName : "");
    SetWindowText(strCaption);
    GetDlgItem(tessara::IDC_EXISTING_VARIANT)->EnableWindow((m_wOptions & hasVariants) != 0);
    GetDlgItem(tessara::IDC_LAST_VARIANT)->EnableWindow((m_wOptions & hasLast) != 0);
    // The keyboard begins at what is chosen.
    constexpr UINT CHOICES[] = {tessara::IDC_NEW_VARIANT, tessara::IDC_LAST_VARIANT,
                                tessara::IDC_EXISTING_VARIANT};
    GetDlgItem(static_cast<int>(CHOICES[m_nAction]))->SetFocus();
    return FALSE;
}

void CWelcomeDialog::OnCancel() {
    UpdateData(TRUE); // the check box counts all the same
    CDialog::OnCancel();
}

void CWelcomeDialog::DoDataExchange(CDataExchange* pDX) {
    DDX_Radio(pDX, tessara::IDC_NEW_VARIANT, m_nAction);
    DDX_Check(pDX, tessara::IDC_DONT_SHOW, m_bDontShow);
}
