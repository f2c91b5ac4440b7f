#include "tessara/dialogs/TextImportDialog.h"

#include <algorithm>
#include <string>

#include "tessara/dialogs/CellText.h"
#include "tessara/dialogs/CurveAcceptance.h"
#include "tessara/dialogs/LineFields.h"
#include "tessara/dialogs/TextConversion.h"
#include "tessara/dialogs/TextLines.h"
#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/threads/MessageMap.h"
#include "tessara/platform/ui/windows/WaitCursor.h"

using namespace tessara;

IMPLEMENT_DYNAMIC(CTextImportDialog, CDialog)

namespace {

constexpr int IDC_PREVIEW = 1012;
constexpr int IDC_SEMICOLON = 1013;
constexpr int IDC_COMMA = 1014;
constexpr int IDC_TAB = 1015;
constexpr int IDC_SPACE = 1016;
constexpr int IDC_PROMPT = 1022;

struct CDelimiterButton {
    char cDelimiter;
    int nID;
};
constexpr CDelimiterButton DELIMITERS[] = {
    {';', IDC_SEMICOLON}, {',', IDC_COMMA}, {' ', IDC_SPACE}, {'\t', IDC_TAB}};

} // namespace

CTextImportDialog::CTextImportDialog(CWnd* pParent) : CDialog(TEMPLATE, pParent) {}

void CTextImportDialog::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PREVIEW, m_list);
}

BOOL CTextImportDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    ReadFile();
    if (!m_strTitle.IsEmpty()) {
        SetWindowText(m_strTitle);
    }
    if (!m_strPrompt.IsEmpty()) {
        SetDlgItemText(IDC_PROMPT, m_strPrompt);
    }
    InsertColumns();
    CheckDelimiterButton(m_cDelimiter);
    DisplayReadData();
    return FALSE;
}

void CTextImportDialog::ReadFile() {
    ELinesRead eRead{};
    {
        const CWaitCursor wait;
        eRead = ReadLines(m_strFileName, m_lines);
    }
    if (eRead == ELinesRead::tooLarge) {
        AfxMessageBox("The file is too large to be imported.");
    } else if (eRead == ELinesRead::unreadable) {
        AfxMessageBox(m_strOpenError.IsEmpty() ? "The file cannot be opened." : m_strOpenError);
    }
}

void CTextImportDialog::InsertColumns() {
    constexpr int WIDTH = 60; // pixels of a screen with 96 to the inch
    constexpr int DOTS_PER_INCH = 96;
    CDC* const pDC = GetDC();
    const int nWidth = pDC ? WIDTH * pDC->GetDeviceCaps(LOGPIXELSX) / DOTS_PER_INCH : WIDTH;
    ReleaseDC(pDC);
    m_list.InsertColumn(0, "Line #", LVCFMT_LEFT, nWidth);
    for (int i = 0; i < m_nColumns; ++i) {
        m_list.InsertColumn(i + 1, CString(std::to_string(i)), LVCFMT_LEFT, nWidth);
    }
    m_list.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
}

/// A table that keeps its rows, in a template of the program's own, gets them; the library's asks for what
/// it shows.
void CTextImportDialog::DisplayReadData() {
    m_list.DeleteAllItems();
    if (m_list.SetItemCount(m_lines.GetSize())) {
        return;
    }
    for (int i = 0; i < m_lines.GetSize(); ++i) {
        m_list.InsertItem(i, CellText(i, 0));
        for (int nColumn = 1; nColumn <= m_nColumns; ++nColumn) {
            m_list.SetItemText(i, nColumn, CellText(i, nColumn));
        }
    }
}

CString CTextImportDialog::CellText(int nLine, int nColumn) const {
    CString strText;
    if (nColumn == 0) {
        strText.Format("%03d", nLine);
        return strText;
    }
    constexpr std::size_t MAX_SHOWN = 511;
    CLineFields fields(m_lines[nLine].View(), m_cDelimiter);
    for (int i = 0; i < nColumn; ++i) {
        fields.Next();
    }
    return CString(CutText(fields.Get(), MAX_SHOWN));
}

void CTextImportDialog::OnGetDisplayInfo(NMHDR* pNotice, LRESULT*) {
    LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(pNotice)->item;
    if (item.iItem < m_lines.GetSize()) {
        GiveCellText(item, CellText(item.iItem, item.iSubItem).View());
    }
}

void CTextImportDialog::SelectLine(int nLine) {
    constexpr UINT STATE = LVIS_SELECTED | LVIS_FOCUSED;
    m_list.SetItemState(nLine, STATE, STATE);
    m_list.EnsureVisible(nLine, FALSE);
}

void CTextImportDialog::OnOK() {
    std::optional<int> fault;
    bool bValid = false;
    {
        const CWaitCursor wait;
        fault = ConvertLines(m_lines, m_cDelimiter, m_nColumns, m_curve);
        bValid = !fault && IsCurveValid(m_curve);
    }
    if (fault) {
        AfxMessageBox("The file contains non-numeric text data. Please specify another file and try again.");
        SelectLine(*fault);
    } else if (!bValid) {
        AfxMessageBox("The curve does not satisfy the conditions stated in the manual.\n"
                      "Please read the manual and/or specify another file.");
    } else {
        CDialog::OnOK();
    }
}

int CTextImportDialog::IsCurveValid(CMultiCurve& curve) {
    return IsAcceptable(curve);
}

int CTextImportDialog::GetMaxNumOfLineEntries() {
    std::ptrdiff_t nMost = 1;
    for (int i = 0; i < m_lines.GetSize(); ++i) {
        const std::string_view strLine = m_lines[i].View();
        nMost = std::max(nMost, 1 + std::count(strLine.begin(), strLine.end(), m_cDelimiter));
    }
    return static_cast<int>(nMost);
}

void CTextImportDialog::CheckDelimiterButton(char cDelimiter) {
    for (const CDelimiterButton& entry : DELIMITERS) {
        auto* const pButton = dynamic_cast<CButton*>(GetDlgItem(entry.nID));
        if (pButton && entry.cDelimiter == cDelimiter) {
            pButton->SetCheck(1);
            pButton->SetFocus();
        }
    }
}

void CTextImportDialog::SetDelimiter(char cDelimiter) {
    m_cDelimiter = cDelimiter;
    DisplayReadData();
}

void CTextImportDialog::OnSeparatorSemicolon() {
    SetDelimiter(';');
}

void CTextImportDialog::OnSeparatorComma() {
    SetDelimiter(',');
}

void CTextImportDialog::OnSeparatorSpace() {
    SetDelimiter(' ');
}

void CTextImportDialog::OnSeparatorTab() {
    SetDelimiter('\t');
}

BEGIN_MESSAGE_MAP(CTextImportDialog, CDialog)
ON_BN_CLICKED(IDC_SEMICOLON, OnSeparatorSemicolon)
ON_BN_CLICKED(IDC_COMMA, OnSeparatorComma)
ON_BN_CLICKED(IDC_SPACE, OnSeparatorSpace)
ON_BN_CLICKED(IDC_TAB, OnSeparatorTab)
ON_NOTIFY(LVN_GETDISPINFO, IDC_PREVIEW, OnGetDisplayInfo)
END_MESSAGE_MAP()
