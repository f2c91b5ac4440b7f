#include "tessara/dialogs/AddAbbreviationDialog.h"

#include <utility>

#include "tessara/dialogs/MonomerFile.h"
#include "tessara/platform/ui/controls/Edit.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"

IMPLEMENT_DYNAMIC(CAddAbbreviationDialog, CDialog)

namespace {

constexpr int IDC_FULL_NAME = 1032;
constexpr int IDC_SHORT_NAME = 1033;
constexpr UINT IDS_NO_FULL_NAME = 16391;
constexpr UINT IDS_NO_SHORT_NAME = 16392;

} // namespace

CAddAbbreviationDialog::CAddAbbreviationDialog(CWnd* pParent, CMonomerAbbreviation abbreviation)
    : CDialog(TEMPLATE, pParent), m_abbreviation(std::move(abbreviation)) {}

void CAddAbbreviationDialog::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_FULL_NAME, m_abbreviation.m_strFullName);
    DDX_Text(pDX, IDC_SHORT_NAME, m_abbreviation.m_strShortName);
}

BOOL CAddAbbreviationDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    for (const int nID : {IDC_FULL_NAME, IDC_SHORT_NAME}) {
        if (auto* const pEdit = dynamic_cast<CEdit*>(GetDlgItem(nID))) {
            pEdit->LimitText(tessara::CMonomerFile::MAX_VALUE); // more would be lost by the next reading
        }
    }
    return TRUE;
}

void CAddAbbreviationDialog::OnOK() {
    UpdateData();
    if (m_abbreviation.m_strFullName.IsEmpty()) {
        AfxMessageBox(IDS_NO_FULL_NAME);
    } else if (m_abbreviation.m_strShortName.IsEmpty()) {
        AfxMessageBox(IDS_NO_SHORT_NAME);
    } else {
        EndDialog(IDOK);
    }
}
