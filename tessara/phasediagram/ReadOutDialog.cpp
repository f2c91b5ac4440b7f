#include "tessara/phasediagram/ReadOutDialog.h"

#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/ui/ListBox.h"
#include "tessara/platform/ui/System.h"
#include "tessara/plot/ValueListItem.h"

namespace tessara {

namespace {

constexpr int IDC_LINES = 1008;
constexpr int CORNER_GAP = 10; ///< pixels to the screen's corner

} // namespace

bool CReadOutDialog::CreateFor(CPhaseDiagramOutput& owner, CWnd* pParent) {
    if (!Create(m_nIDTemplate, pParent)) {
        return false;
    }
    m_pOwner = &owner;
    return true;
}

void CReadOutDialog::SetSymbols(const CString& strAbscissa, const CString& strOrdinate) {
    m_symbols[0] = strAbscissa;
    m_symbols[1] = strOrdinate;
}

CListBox* CReadOutDialog::GetList() const {
    return dynamic_cast<CListBox*>(GetDlgItem(IDC_LINES));
}

void CReadOutDialog::ShowLines(const CStringArray& lines) {
    CListBox* const pList = GetList();
    if (!pList) {
        return;
    }
    pList->ResetContent();
    for (int i = 0; i < lines.GetSize(); ++i) {
        pList->AddString(lines.GetAt(i));
    }
}

BOOL CReadOutDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    CRect window;
    GetWindowRect(&window);
    SetWindowPos(nullptr, GetSystemMetrics(SM_CXFULLSCREEN) - CORNER_GAP - window.Width(),
                 GetSystemMetrics(SM_CYFULLSCREEN) - CORNER_GAP - window.Height(), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
    return TRUE;
}

void CReadOutDialog::OnCancel() {
    if (m_pOwner) {
        m_pOwner->HideMark();
    }
    CDialog::OnCancel();
}

void CReadOutDialog::OnShowWindow(BOOL bShow, UINT nStatus) {
    CListBox* const pList = GetList();
    if (bShow && pList) {
        pList->ResetContent();
    }
    CDialog::OnShowWindow(bShow, nStatus);
}

void CReadOutDialog::OnMeasureItem(int nID, LPMEASUREITEMSTRUCT pMeasure) {
    if (nID == IDC_LINES) {
        MeasureValueListItem(*this, *pMeasure);
    }
}

void CReadOutDialog::OnDrawItem(int nID, LPDRAWITEMSTRUCT pDraw) {
    if (nID == IDC_LINES) {
        DrawValueListItem(*pDraw);
    }
}

BEGIN_MESSAGE_MAP(CReadOutDialog, CDialog)
ON_WM_SHOWWINDOW()
ON_WM_MEASUREITEM()
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

} // namespace tessara
