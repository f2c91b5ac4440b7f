#include "tessara/document/VariantListDialog.h"

#include <cstring>

#include "tessara/document/DialogControls.h"
#include "tessara/platform/ui/controls/ListBox.h"

using namespace tessara;

std::string tessara::VariantLine(const ARCHIVEENTRY& entry) {
    std::string strLine = std::to_string(entry.nVariantNumber + 1) + " " + entry.szVariantName;
    if (*entry.szBaseTag) {
        strLine += std::string(" (") + entry.szBaseTag + ")";
    }
    return strLine;
}

CVariantListDialog::CVariantListDialog(UINT nTemplate, const char* pszCaption, CWnd* pParent,
                                       const char* lpszArchiveDirectory, const char* lpszExtension)
    : CDialog(nTemplate, pParent), m_pszCaption(pszCaption), m_folder(lpszArchiveDirectory, lpszExtension) {}

CListBox& CVariantListDialog::List() const {
    return dynamic_cast<CListBox&>(*GetDlgItem(IDC_VARIANTS));
}

BOOL CVariantListDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    CenterWindow();
    for (const ARCHIVEENTRY& entry : m_entries) {
        List().AddString(VariantLine(entry).c_str());
    }
    SetDlgItemText(IDC_BASE_NAME, m_entries.front().szBaseName);
    OnSelection();
    return TRUE;
}

void CVariantListDialog::OnPrevious() {
    EndDialog(IDPREVIOUS);
}

/// Shows the comment of the selected variant, or of the first, which is then selected.
void CVariantListDialog::OnSelection() {
    CListBox& list = List();
    if (list.GetCurSel() < 0) {
        list.SetCurSel(0);
    }
    const int nLine = list.GetCurSel();
    if (nLine < 0) {
        return;
    }
    if (const auto comment = m_folder.ReadComment(m_entries[static_cast<std::size_t>(nLine)].szFileTitle)) {
        SetDlgItemText(IDC_COMMENT, comment->empty() ? NO_COMMENT : comment->c_str());
    }
}

bool CVariantListDialog::TakeSelection(const char* pszSelectFirst) {
    const int nLine = List().GetCurSel();
    if (nLine < 0) {
        MessageBox(pszSelectFirst, m_pszCaption, MB_OK);
        return false;
    }
    m_nChosen = static_cast<std::size_t>(nLine);
    return IsStillThere();
}

bool CVariantListDialog::IsStillThere() {
    if (m_folder.Anew().Has(Chosen())) {
        return true;
    }
    MessageBox("Another program has deleted or replaced this variant meanwhile.", m_pszCaption, MB_OK);
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(m_nChosen));
    List().DeleteString(static_cast<UINT>(m_nChosen));
    OnSelection();
    return false;
}

BEGIN_MESSAGE_MAP(CVariantListDialog, CDialog)
ON_BN_CLICKED(IDC_PREVIOUS, OnPrevious)
ON_LBN_SELCHANGE(IDC_VARIANTS, OnSelection)
END_MESSAGE_MAP()

CLoadVariantDialog::CLoadVariantDialog(CWnd* pParent, const char* lpszArchiveDirectory,
                                       const char* lpszExtension)
    : CVariantListDialog(IDD_LOAD_VARIANT, "Load Variant", pParent, lpszArchiveDirectory, lpszExtension) {}

void CLoadVariantDialog::OnOK() {
    if (TakeSelection("You must select a variant!")) {
        EndDialog(IDOK);
    }
}

BEGIN_MESSAGE_MAP(CLoadVariantDialog, CVariantListDialog)
ON_LBN_DBLCLK(IDC_VARIANTS, OnOK)
END_MESSAGE_MAP()

CDeleteVariantDialog::CDeleteVariantDialog(CWnd* pParent, const char* lpszArchiveDirectory,
                                           const char* lpszExtension, const char* lpszBaseName,
                                           int nCurrentNumber)
    : CVariantListDialog(IDD_DELETE_VARIANT, "Delete Variant", pParent, lpszArchiveDirectory, lpszExtension),
      m_strOwnName(lpszBaseName ? lpszBaseName : ""), m_nOwnNumber(nCurrentNumber) {}

void CDeleteVariantDialog::OnDelete() {
    if (!TakeSelection("You must select a variant first!")) {
        return;
    }
    const bool bOwn = Chosen().szBaseName == m_strOwnName && Chosen().nVariantNumber == m_nOwnNumber;
    const char* const pszQuestion =
        bOwn ? "You are trying to delete the Base Variant\nyou are working with. Delete anyway?"
             : "Are you sure you want to delete selected Base Variant?";
    if (MessageBox(pszQuestion, GetCaption(), MB_YESNO | MB_ICONQUESTION) == IDYES && IsStillThere()) {
        m_bOwn = bOwn;
        Chosen().bDeleted = 1;
        EndDialog(IDOK);
    }
}

BEGIN_MESSAGE_MAP(CDeleteVariantDialog, CVariantListDialog)
ON_BN_CLICKED(IDC_DELETE, OnDelete)
END_MESSAGE_MAP()
