#include "tessara/dialogs/ChooseCurvesDialog.h"

#include <algorithm>
#include <limits>
#include <string>

#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/threads/MessageMap.h"

IMPLEMENT_DYNAMIC(CChooseCurvesDialog, CDialog)

namespace {

constexpr int IDC_HINT_ADD = 25;
constexpr int IDC_HINT_REMOVE = 27;
constexpr int IDC_COMPUTED = 100;
constexpr int IDC_DISPLAYED = 150;
constexpr int IDC_CLEAR = 400;
constexpr int IDC_ADD = 1014;
constexpr int IDC_REMOVE = 1015;
constexpr int IDC_COMPUTED_LABEL = 1016;
constexpr int IDC_DISPLAYED_LABEL = 1017;

} // namespace

CChooseCurvesDialog::CChooseCurvesDialog(CWnd* pParent) : CDialog(TEMPLATE, pParent) {}

void CChooseCurvesDialog::LoadResourceString(UINT nID) {
    CString strAll;
    if (!strAll.LoadString(nID)) {
        return;
    }
    for (CString* const pText : {&m_strTitle, &m_strComputedLabel, &m_strDisplayedLabel, &m_strAddButton,
                                 &m_strRemoveButton, &m_strClearButton, &m_strHintAdd}) {
        const int nEnd = strAll.Find('\n');
        *pText = strAll.Left(std::max(nEnd, 0));
        strAll = strAll.Mid(nEnd + 1);
    }
    m_strHintRemove = strAll;
}

void CChooseCurvesDialog::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_DISPLAYED, m_listDisplayed);
    DDX_Control(pDX, IDC_COMPUTED, m_listComputed);
}

BOOL CChooseCurvesDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    FillLists();
    SetTexts();
    return TRUE;
}

void CChooseCurvesDialog::FillLists() {
    for (int i = 0; i < m_computedNames.GetSize(); ++i) {
        m_listComputed.AddString(m_computedNames[i]);
    }
    const int nKnown = m_displayedIndices.GetSize();
    m_displayedIndices.SetSize(m_displayedNames.GetSize());
    for (int i = 0; i < m_displayedNames.GetSize(); ++i) {
        m_listDisplayed.AddString(m_displayedNames[i]);
        if (i >= nKnown) {
            m_displayedIndices[i] = ComputedIndexOf(m_displayedNames[i]);
        }
    }
}

DWORD CChooseCurvesDialog::ComputedIndexOf(const CString& strName) const {
    CString strLine;
    for (int i = 0; i < m_listComputed.GetCount(); ++i) {
        m_listComputed.GetText(i, strLine);
        if (strLine == strName) {
            return static_cast<DWORD>(i);
        }
    }
    return std::numeric_limits<DWORD>::max();
}

void CChooseCurvesDialog::SetTexts() {
    if (!m_strTitle.IsEmpty()) {
        SetWindowText(m_strTitle);
    }
    const struct {
        int nID;
        const CString& strText;
    } texts[] = {{IDC_COMPUTED_LABEL, m_strComputedLabel},
                 {IDC_DISPLAYED_LABEL, m_strDisplayedLabel},
                 {IDC_ADD, m_strAddButton},
                 {IDC_REMOVE, m_strRemoveButton},
                 {IDC_CLEAR, m_strClearButton},
                 {IDC_HINT_ADD, m_strHintAdd},
                 {IDC_HINT_REMOVE, m_strHintRemove}};
    for (const auto& [nID, strText] : texts) {
        if (!strText.IsEmpty()) {
            SetDlgItemText(nID, strText);
        }
    }
}

bool CChooseCurvesDialog::IsDisplayed(const CString& strName) const {
    CString strLine;
    for (int i = 0; i < m_listDisplayed.GetCount(); ++i) {
        m_listDisplayed.GetText(i, strLine);
        if (strLine == strName) {
            return true;
        }
    }
    return false;
}

void CChooseCurvesDialog::TellFull() {
    CString strList = m_strDisplayedLabel;
    if (strList.IsEmpty()) {
        GetDlgItemText(IDC_DISPLAYED_LABEL, strList);
    }
    CString strText;
    strText.Format("The %s is full", static_cast<const char*>(strList));
    AfxMessageBox(strText);
}

void CChooseCurvesDialog::OnAddToList() {
    const int nLine = m_listComputed.GetCurSel();
    if (nLine < 0) {
        return;
    }
    if (m_listDisplayed.GetCount() >= m_nMaxDisplayed) {
        TellFull();
        return;
    }
    CString strName;
    m_listComputed.GetText(nLine, strName);
    if (!IsDisplayed(strName)) {
        m_listDisplayed.AddString(strName);
        m_displayedNames.Add(strName);
        m_displayedIndices.Add(static_cast<DWORD>(nLine));
    }
}

void CChooseCurvesDialog::OnRemove() {
    const int nLine = m_listDisplayed.GetCurSel();
    if (nLine >= 0) {
        m_listDisplayed.DeleteString(static_cast<UINT>(nLine));
        m_displayedNames.RemoveAt(nLine);
        m_displayedIndices.RemoveAt(nLine);
    }
}

void CChooseCurvesDialog::OnClearList() {
    m_listDisplayed.ResetContent();
    m_displayedNames.RemoveAll();
    m_displayedIndices.RemoveAll();
}

void CChooseCurvesDialog::OnDblclkComputedList() {
    OnAddToList();
}

void CChooseCurvesDialog::OnDblclkDisplayedList() {
    OnRemove();
}

void CChooseCurvesDialog::OnOK() {
    if (m_listDisplayed.GetCount() > 0) {
        CDialog::OnOK();
    }
}

BEGIN_MESSAGE_MAP(CChooseCurvesDialog, CDialog)
ON_BN_CLICKED(IDC_ADD, OnAddToList)
ON_BN_CLICKED(IDC_REMOVE, OnRemove)
ON_BN_CLICKED(IDC_CLEAR, OnClearList)
ON_LBN_DBLCLK(IDC_COMPUTED, OnDblclkComputedList)
ON_LBN_DBLCLK(IDC_DISPLAYED, OnDblclkDisplayedList)
END_MESSAGE_MAP()
