#include "tessara/curveplot/GetValueDialog.h"

#include "tessara/curveplot/OutputCurve.h"
#include "tessara/platform/base/Number.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/plot/ValueListItem.h"

IMPLEMENT_DYNAMIC(CGetValueDialog, CDialog)

namespace {

constexpr UINT IDC_LABEL = 138;
constexpr UINT IDC_ARGUMENT = 144;
constexpr UINT IDC_VALUES = 183;
constexpr UINT IDC_GET_VALUE = 10;

} // namespace

void CGetValueDialog::SetArgumentLabel(const char* name) {
    SetDlgItemText(IDC_LABEL, CString(name) + ":");
}

void CGetValueDialog::SetArgument(double x) {
    SetDlgItemText(IDC_ARGUMENT, tessara::FormatValue(m_pPlot->GetArgumentFormat(), x).c_str());
}

void CGetValueDialog::SetValueLines(CStringArray& lines) {
    auto* const pList = dynamic_cast<CListBox*>(GetDlgItem(IDC_VALUES));
    if (!pList) {
        return;
    }
    pList->ResetContent();
    for (int i = 0; i < lines.GetSize(); ++i) {
        pList->AddString(lines.GetAt(i));
    }
}

BOOL CGetValueDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    return TRUE;
}

void CGetValueDialog::OnCancel() {
    CDialog::OnCancel();
    if (m_pPlot) {
        m_pPlot->ShowGetValue(FALSE);
    }
}

void CGetValueDialog::OnGetValue() {
    CString strArgument;
    GetDlgItemText(IDC_ARGUMENT, strArgument);
    if (!IsDouble(strArgument, 0)) {
        AfxMessageBox("Please check the value you have entered !");
        return;
    }
    m_pPlot->DisplayValues(*tessara::ParseNumber(strArgument));
}

void CGetValueDialog::OnMeasureItem(int nID, LPMEASUREITEMSTRUCT pMeasure) {
    if (nID == IDC_VALUES) {
        tessara::MeasureValueListItem(*this, *pMeasure);
    }
}

void CGetValueDialog::OnDrawItem(int nID, LPDRAWITEMSTRUCT pDraw) {
    if (nID == IDC_VALUES) {
        tessara::DrawValueListItem(*pDraw);
    }
}

BEGIN_MESSAGE_MAP(CGetValueDialog, CDialog)
ON_BN_CLICKED(IDC_GET_VALUE, OnGetValue)
ON_WM_MEASUREITEM()
ON_WM_DRAWITEM()
END_MESSAGE_MAP()
