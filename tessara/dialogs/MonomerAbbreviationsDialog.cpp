#include "tessara/dialogs/MonomerAbbreviationsDialog.h"

#include <string>
#include <utility>
#include <vector>

#include "tessara/dialogs/AddAbbreviationDialog.h"
#include "tessara/dialogs/CellText.h"
#include "tessara/dialogs/ExchangeOrder.h"
#include "tessara/dialogs/MonomerFile.h"
#include "tessara/platform/gdi/Geometry.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/threads/MessageMap.h"

using namespace tessara;

IMPLEMENT_DYNAMIC(CMonomerAbbreviationsDialog, CDialog)

namespace {

constexpr int IDC_DELETE = 3;
constexpr int IDC_ABBREVIATIONS = 1030;
constexpr int IDC_ADD = 1031;
constexpr int IDC_EDIT = 1032;
constexpr UINT IDS_SELECT_FIRST = 16393;
constexpr UINT IDS_DELETE = 16394;
constexpr int NAME_COLUMN = 1;

} // namespace

CMonomerAbbreviation::~CMonomerAbbreviation() = default;

CMonomerAbbreviationsDialog::CMonomerAbbreviationsDialog(CWnd* pParent) : CDialog(TEMPLATE, pParent) {}

void CMonomerAbbreviationsDialog::AddAbbreviation(const char* lpszShortName, const char* lpszFullName) {
    m_abbreviations.Add(CMonomerAbbreviation(lpszShortName, lpszFullName));
}

void CMonomerAbbreviationsDialog::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_ABBREVIATIONS, m_list);
}

BOOL CMonomerAbbreviationsDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    InsertColumns();
    ReadTable();
    DisplayAbbreviations();
    return TRUE;
}

void CMonomerAbbreviationsDialog::InsertColumns() {
    CRect client;
    m_list.GetClientRect(&client);
    m_list.InsertColumn(0, "Abbreviation", LVCFMT_LEFT, client.Width() / 3);
    m_list.InsertColumn(NAME_COLUMN, "Name", LVCFMT_LEFT, 2 * client.Width() / 3);
    m_list.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
}

void CMonomerAbbreviationsDialog::ReadTable() {
    const CMonomerFile file = CMonomerFile::OfProgram();
    try {
        m_bSortByName = file.Read(m_abbreviations);
    } catch (const CFileException& exception) {
        AfxMessageBox(("The abbreviations cannot be read.\n" + std::string(exception.what())).c_str());
    }
}

void CMonomerAbbreviationsDialog::SortAbbreviations(int bByName) {
    const int nCount = m_abbreviations.GetSize();
    std::vector<std::string_view> keys;
    for (int i = 0; i < nCount; ++i) {
        const CMonomerAbbreviation& entry = m_abbreviations[i];
        keys.push_back((bByName ? entry.m_strFullName : entry.m_strShortName).View());
    }
    std::vector<CMonomerAbbreviation> sorted;
    for (const std::size_t nEntry : ExchangeOrder(keys)) {
        sorted.push_back(std::as_const(m_abbreviations)[static_cast<int>(nEntry)]);
    }
    for (int i = 0; i < nCount; ++i) {
        m_abbreviations[i] = std::move(sorted[static_cast<std::size_t>(i)]);
    }
}

/// A table that keeps its rows, in a template of the program's own, gets them; the library's asks for what
/// it shows.
void CMonomerAbbreviationsDialog::DisplayAbbreviations() {
    SortAbbreviations(m_bSortByName);
    m_list.DeleteAllItems();
    if (m_list.SetItemCount(m_abbreviations.GetSize())) {
        return;
    }
    for (int i = 0; i < m_abbreviations.GetSize(); ++i) {
        m_list.InsertItem(i, CellText(i, 0));
        m_list.SetItemText(i, NAME_COLUMN, CellText(i, NAME_COLUMN));
    }
}

const CString& CMonomerAbbreviationsDialog::CellText(int nEntry, int nColumn) const {
    const CMonomerAbbreviation& entry = m_abbreviations[nEntry];
    return nColumn == NAME_COLUMN ? entry.m_strFullName : entry.m_strShortName;
}

void CMonomerAbbreviationsDialog::OnGetDisplayInfo(NMHDR* pNotice, LRESULT*) {
    LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(pNotice)->item;
    if (item.iItem < m_abbreviations.GetSize()) {
        GiveCellText(item, CellText(item.iItem, item.iSubItem).View());
    }
}

void CMonomerAbbreviationsDialog::OnColumnclickAbbreviations(NMHDR* pNotice, LRESULT*) {
    m_bSortByName = reinterpret_cast<NMLISTVIEW*>(pNotice)->iSubItem == NAME_COLUMN;
    DisplayAbbreviations();
}

/// Shows the table with an entry of it in view, where the arrow keys go on.
void CMonomerAbbreviationsDialog::DisplayWith(const CMonomerAbbreviation& abbreviation) {
    DisplayAbbreviations();
    for (int i = 0; i < m_abbreviations.GetSize(); ++i) {
        if (m_abbreviations[i].m_strShortName == abbreviation.m_strShortName &&
            m_abbreviations[i].m_strFullName == abbreviation.m_strFullName) {
            m_list.SetItemState(i, LVIS_FOCUSED, LVIS_FOCUSED);
            m_list.EnsureVisible(i, FALSE);
            return;
        }
    }
}

void CMonomerAbbreviationsDialog::OnAdd() {
    CAddAbbreviationDialog dialog(this, {});
    if (dialog.DoModal() == IDOK) {
        m_abbreviations.Add(dialog.m_abbreviation);
        DisplayWith(dialog.m_abbreviation);
    }
}

int CMonomerAbbreviationsDialog::AskForSelected() {
    const int nEntry = m_list.GetNextItem(-1, LVNI_SELECTED);
    if (nEntry < 0 || nEntry >= m_abbreviations.GetSize()) {
        AfxMessageBox(IDS_SELECT_FIRST);
        return -1;
    }
    return nEntry;
}

void CMonomerAbbreviationsDialog::OnEdit() {
    const int nEntry = AskForSelected();
    if (nEntry < 0) {
        return;
    }
    CAddAbbreviationDialog dialog(this, m_abbreviations[nEntry]);
    if (dialog.DoModal() == IDOK) {
        m_abbreviations[nEntry] = dialog.m_abbreviation;
        DisplayWith(dialog.m_abbreviation);
    }
}

void CMonomerAbbreviationsDialog::OnDblclkAbbreviations(NMHDR*, LRESULT*) {
    OnEdit();
}

void CMonomerAbbreviationsDialog::OnDelete() {
    const int nEntry = AskForSelected();
    if (nEntry >= 0 && AfxMessageBox(IDS_DELETE, MB_YESNO | MB_ICONQUESTION) == IDYES) {
        m_abbreviations.RemoveAt(nEntry);
        DisplayAbbreviations();
    }
}

void CMonomerAbbreviationsDialog::OnOK() {
    try {
        CMonomerFile::OfProgram().Write(m_bSortByName != 0, m_abbreviations);
    } catch (const CFileException& exception) {
        AfxMessageBox(("The abbreviations cannot be saved.\n" + std::string(exception.what())).c_str());
        return;
    }
    CDialog::OnOK();
}

BEGIN_MESSAGE_MAP(CMonomerAbbreviationsDialog, CDialog)
ON_BN_CLICKED(IDC_ADD, OnAdd)
ON_BN_CLICKED(IDC_EDIT, OnEdit)
ON_BN_CLICKED(IDC_DELETE, OnDelete)
ON_NOTIFY(NM_DBLCLK, IDC_ABBREVIATIONS, OnDblclkAbbreviations)
ON_NOTIFY(LVN_COLUMNCLICK, IDC_ABBREVIATIONS, OnColumnclickAbbreviations)
ON_NOTIFY(LVN_GETDISPINFO, IDC_ABBREVIATIONS, OnGetDisplayInfo)
END_MESSAGE_MAP()
