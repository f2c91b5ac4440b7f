#include "tessara/phasediagram/ReadOutDialog.h"

#include <algorithm>

#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/windows/System.h"
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
    RememberPlaces();
    PutInCorner();
    return TRUE;
}

void CReadOutDialog::PutInCorner() {
    CRect window;
    GetWindowRect(&window);
    SetWindowPos(nullptr, GetSystemMetrics(SM_CXFULLSCREEN) - CORNER_GAP - window.Width(),
                 GetSystemMetrics(SM_CYFULLSCREEN) - CORNER_GAP - window.Height(), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
}

/// The desktop puts a frame around a window when it shows it, to the right and below the place that the
/// program chose.
void CReadOutDialog::PutInCornerOnceFramed() {
    CRect window;
    CRect client;
    GetWindowRect(&window);
    GetClientRect(&client);
    if (!m_bFramed && window.Size() != client.Size()) {
        m_bFramed = true; // from now on the user moves it
        PutInCorner();
    }
}

void CReadOutDialog::OnMove(int nX, int nY) {
    CDialog::OnMove(nX, nY);
    PutInCornerOnceFramed();
}

void CReadOutDialog::OnActivate(UINT nState, CWnd* pOther, BOOL bMinimized) {
    CDialog::OnActivate(nState, pOther, bMinimized);
    PutInCornerOnceFramed();
}

void CReadOutDialog::RememberPlaces() {
    CRect client;
    GetClientRect(&client);
    m_size = client.Size();
    POINT origin{0, 0};
    ClientToScreen(&origin);
    for (const int nID : {static_cast<int>(IDC_STATIC), IDC_LINES, static_cast<int>(IDOK)}) {
        if (const CWnd* const pControl = GetDlgItem(nID)) {
            CRect place;
            pControl->GetWindowRect(&place);
            place.OffsetRect(-origin.x, -origin.y);
            m_placed.push_back({nID, place});
            m_list = nID == IDC_LINES ? place : m_list;
        }
    }
}

/// All controls become wider; the list takes the height, and what is below it moves.
void CReadOutDialog::OnSize(UINT nType, int nWidth, int nHeight) {
    CDialog::OnSize(nType, nWidth, nHeight);
    if (nType == SIZE_MINIMIZED) {
        return;
    }
    const int nWider = nWidth - m_size.cx;
    const int nHigher = std::max<int>(nHeight - m_size.cy, -m_list.Height());
    for (const CPlacedControl& control : m_placed) {
        CWnd* const pControl = GetDlgItem(control.nID);
        if (!pControl) {
            continue;
        }
        const CRect& place = control.place;
        const int nLower = place.top > m_list.top ? nHigher : 0;
        const int nTaller = control.nID == IDC_LINES ? nHigher : 0;
        pControl->MoveWindow(place.left, place.top + nLower, std::max(0, place.Width() + nWider),
                             place.Height() + nTaller);
    }
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
ON_WM_ACTIVATE()
ON_WM_MOVE()
ON_WM_SIZE()
ON_WM_MEASUREITEM()
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

} // namespace tessara
