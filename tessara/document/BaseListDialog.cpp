#include "tessara/document/BaseListDialog.h"

#include <algorithm>
#include <iterator>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/DialogControls.h"
#include "tessara/platform/files/File.h"
#include "tessara/platform/ui/controls/ListBox.h"

using namespace tessara;

namespace {

std::vector<ARCHIVEENTRY> VariantsOf(const std::vector<ARCHIVEENTRY>& entries, std::string_view strBase) {
    std::vector<ARCHIVEENTRY> variants;
    std::copy_if(entries.begin(), entries.end(), std::back_inserter(variants),
                 [=](const ARCHIVEENTRY& entry) { return strBase == entry.szBaseName; });
    return variants;
}

} // namespace

CBaseListDialog::CBaseListDialog(UINT nTemplate, const char* pszCaption, CWnd* pParent,
                                 std::vector<ARCHIVEENTRY> entries, const char* lpszBaseName)
    : CDialog(nTemplate, pParent), m_pszCaption(pszCaption), m_entries(std::move(entries)),
      m_strSelected(lpszBaseName ? lpszBaseName : "") {}

CListBox& CBaseListDialog::List() const {
    return dynamic_cast<CListBox&>(*GetDlgItem(IDC_BASES));
}

std::vector<ARCHIVEENTRY> CBaseListDialog::GetChosenVariants() const {
    return VariantsOf(m_entries, GetChosen().szBaseName);
}

BOOL CBaseListDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    CenterWindow();
    Fill(std::move(m_entries));
    return TRUE;
}

/// One line for each Base, which knows its first variant.
void CBaseListDialog::Fill(std::vector<ARCHIVEENTRY> entries) {
    m_entries = std::move(entries);
    CListBox& list = List();
    list.ResetContent();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const char* const pszName = m_entries[i].szBaseName;
        if (i > 0 && std::string_view(pszName) == m_entries[i - 1].szBaseName) {
            continue;
        }
        const int nLine = list.AddString(pszName);
        list.SetItemData(nLine, i);
        if (pszName == m_strSelected) {
            list.SetCurSel(nLine);
        }
    }
}

bool CBaseListDialog::TakeSelection() {
    const int nLine = List().GetCurSel();
    if (nLine < 0) {
        MessageBox("You must select a Base first!", m_pszCaption, MB_OK);
        return false;
    }
    m_nChosen = List().GetItemData(nLine);
    m_strSelected = GetChosen().szBaseName; // the wizard may come back
    return true;
}

void CBaseListDialog::OnNext() {
    if (TakeSelection()) {
        EndDialog(IDOK);
    }
}

BEGIN_MESSAGE_MAP(CBaseListDialog, CDialog)
ON_BN_CLICKED(IDC_NEXT, OnNext)
ON_LBN_DBLCLK(IDC_BASES, OnNext)
END_MESSAGE_MAP()

CSelectBaseDialog::CSelectBaseDialog(CWnd* pParent, std::vector<ARCHIVEENTRY> entries,
                                     const char* lpszBaseName)
    : CBaseListDialog(IDD_SELECT_BASE, "Select Base", pParent, std::move(entries), lpszBaseName) {}

CDeleteBaseDialog::CDeleteBaseDialog(CWnd* pParent, std::vector<ARCHIVEENTRY> entries,
                                     const char* lpszArchiveDirectory, const char* lpszExtension,
                                     const char* lpszBaseName)
    : CBaseListDialog(IDD_DELETE_BASE, "Delete Base", pParent, std::move(entries), lpszBaseName),
      m_strDirectory(lpszArchiveDirectory), m_strExtension(lpszExtension),
      m_strOwnName(lpszBaseName ? lpszBaseName : "") {}

void CDeleteBaseDialog::OnDelete() {
    if (!TakeSelection()) {
        return;
    }
    const bool bOwn = GetChosen().szBaseName == m_strOwnName;
    const char* const pszQuestion =
        bOwn ? "You are trying to delete the Base\n to which the BV you are working with "
               "corresponds.\n Delete the Base anyway ?"
             : "Are you sure you want to delete the selected Base?";
    if (MessageBox(pszQuestion, "Delete Base", MB_YESNO | MB_ICONQUESTION) == IDYES) {
        RemoveChosen();
    }
}

/// Whether the chosen Base has the variants that it had when the user saw it.
bool CDeleteBaseDialog::IsUpToDate(const std::vector<ARCHIVEENTRY>& now) const {
    const std::vector<ARCHIVEENTRY> shown = GetChosenVariants();
    const std::vector<ARCHIVEENTRY> there = VariantsOf(now, GetChosen().szBaseName);
    return std::equal(shown.begin(), shown.end(), there.begin(), there.end(), IsSameVariant);
}

/// What another program has put there meanwhile is not what the user wants to delete.
void CDeleteBaseDialog::RemoveChosen() {
    const CArchiveFolder folder(m_strDirectory.c_str(), m_strExtension.c_str());
    std::vector<ARCHIVEENTRY> now = folder.List();
    if (!IsUpToDate(now)) {
        MessageBox("Another program has changed this Base meanwhile.\nPlease look at the list again.",
                   "Delete Base", MB_OK);
        Fill(std::move(now));
        return;
    }
    try {
        for (const ARCHIVEENTRY& entry : GetChosenVariants()) {
            folder.Remove(entry);
            m_bOwnDeleted = GetChosen().szBaseName == m_strOwnName;
        }
        EndDialog(IDCANCEL);
    } catch (...) {
        Fill(folder.List());
        throw;
    }
}

BEGIN_MESSAGE_MAP(CDeleteBaseDialog, CBaseListDialog)
ON_BN_CLICKED(IDC_DELETE, OnDelete)
END_MESSAGE_MAP()
