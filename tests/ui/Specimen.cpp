#include "tests/ui/Specimen.h"

#include <utility>

#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/ClientDC.h"

namespace {

using namespace tessara;

constexpr DWORD VISIBLE = WS_VISIBLE;
constexpr DWORD STOP = WS_VISIBLE | WS_TABSTOP;
constexpr DWORD LIST = STOP | WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;

constexpr CDialogItem SPECIMEN_ITEMS[] = {
    {CLASS_STATIC, ID_NAME_LABEL, "&Name of the polymer:", 7, 9, 66, 8, VISIBLE},
    {CLASS_EDIT, ID_NAME, "", 76, 7, 70, 12, STOP | WS_BORDER | ES_AUTOHSCROLL},
    {CLASS_STATIC, IDC_STATIC, "Comment", 7, 24, 60, 8, VISIBLE},
    {CLASS_EDIT, ID_COMMENT, "", 7, 34, 139, 28,
     STOP | WS_BORDER | ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL},
    {CLASS_BUTTON, IDC_STATIC, "Si&ze", 7, 66, 68, 50, VISIBLE | WS_GROUP | BS_GROUPBOX},
    {CLASS_BUTTON, ID_SMALL, "&Small", 13, 77, 56, 10, STOP | WS_GROUP | BS_AUTORADIOBUTTON},
    {CLASS_BUTTON, ID_LARGE, "&Large", 13, 89, 56, 10, VISIBLE | BS_AUTORADIOBUTTON},
    {CLASS_BUTTON, ID_HUGE, "&Huge", 13, 101, 56, 10, VISIBLE | BS_AUTORADIOBUTTON},
    {CLASS_BUTTON, ID_LID, "With a li&d", 82, 70, 64, 10, STOP | WS_GROUP | BS_AUTOCHECKBOX},
    {CLASS_BUTTON, ID_UNSURE, "Perhaps", 82, 82, 64, 10, STOP | BS_AUTO3STATE},
    {CLASS_STATIC, IDC_STATIC, "Co&unt:", 82, 100, 28, 8, VISIBLE},
    {CLASS_EDIT, ID_COUNT, "", 110, 98, 36, 12, STOP | WS_BORDER | ES_NUMBER},
    {CLASS_SPIN, ID_SPIN, "", 0, 0, 8, 12,
     VISIBLE | UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS},
    {CLASS_STATIC, IDC_STATIC, "Sorted", 154, 7, 60, 8, VISIBLE},
    {CLASS_LISTBOX, ID_LINES, "", 154, 17, 62, 45, LIST | LBS_SORT},
    {CLASS_STATIC, IDC_STATIC, "Drawn", 222, 7, 60, 8, VISIBLE},
    {CLASS_LISTBOX, ID_DRAWN, "", 222, 17, 62, 45, LIST | LBS_OWNERDRAWFIXED | LBS_DISABLENOSCROLL},
    {CLASS_STATIC, IDC_STATIC, "Checked", 154, 66, 60, 8, VISIBLE},
    {CLASS_LISTBOX, ID_CHECKS, "", 154, 76, 62, 40, LIST | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS},
    {CLASS_ANIMATION, ID_MOVING, "", 222, 80, 28, 28, VISIBLE | ACS_CENTER | ACS_AUTOPLAY},
    {CLASS_ANIMATION, ID_OTHER_MOVING, "", 256, 80, 28, 28, VISIBLE | ACS_CENTER | ACS_AUTOPLAY},
    {CLASS_STATIC, IDC_STATIC, "&Monomers", 7, 120, 60, 8, VISIBLE},
    {CLASS_LISTVIEW, ID_TABLE, "", 7, 130, 139, 56, STOP | WS_BORDER | LVS_REPORT | LVS_SINGLESEL},
    {CLASS_STATIC, IDC_STATIC, "&Amount:", 154, 122, 40, 8, VISIBLE},
    {CLASS_SLIDER, ID_AMOUNT, "", 190, 119, 94, 16, STOP | TBS_AUTOTICKS},
    {CLASS_PROGRESS, ID_PROGRESS, "", 154, 140, 130, 10, VISIBLE},
    {CLASS_STATIC, IDC_STATIC, "In order to add an element, select it in the list and then click the button.",
     154, 154, 130, 18, VISIBLE | SS_CENTER},
    {"Foreign", ID_FOREIGN, "", 154, 174, 130, 12, VISIBLE},
    {CLASS_STATIC, IDC_STATIC, "", 3, 190, 285, 1, VISIBLE | SS_SUNKEN},
    {CLASS_BUTTON, IDOK, "OK", 118, 195, 52, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 175, 195, 52, 14, STOP},
    {CLASS_BUTTON, ID_APPLY, "&Reset All", 232, 195, 52, 14, STOP},
};

constexpr CDialogItem PLAIN_ITEMS[] = {
    {CLASS_STATIC, IDC_STATIC, "&Argument:", 3, 9, 46, 8, VISIBLE},
    {CLASS_EDIT, ID_NAME, "", 54, 7, 38, 12, STOP | WS_BORDER | ES_AUTOHSCROLL},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 20, 25, 60, 14, STOP},
};

constexpr DWORD FRAME = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
constexpr CDialogTemplate DIALOGS[] = {
    {ID_SPECIMEN, "Every control", 0, 0, 291, 214, FRAME, SPECIMEN_ITEMS},
    {ID_PLAIN, "Plain", 10, 10, 100, 44, FRAME, PLAIN_ITEMS},
};

} // namespace

void AddSpecimenResources() {
    static const bool s_bAdded = [] {
        AddResources({DIALOGS, {}});
        return true;
    }();
    static_cast<void>(s_bAdded);
}

BOOL CSpecimen::OnInitDialog() {
    CDialog::OnInitDialog();
    auto& lines = static_cast<CListBox&>(*GetDlgItem(ID_LINES));
    for (const char* pszLine : {"styrene", "Butadiene", "isoprene", "acrylate", "Vinyl", "ethylene"}) {
        lines.AddString(pszLine);
    }
    for (const char* pszLine : m_drawn) {
        static_cast<CListBox&>(*GetDlgItem(ID_DRAWN)).AddString(pszLine);
    }
    for (const char* pszLine : {"Chain length", "Interaction", "Temperature"}) {
        m_checks.SetCheck(m_checks.AddString(pszLine), 1);
    }
    CRect client;
    m_table.GetClientRect(&client);
    m_table.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
    m_table.InsertColumn(0, "Abbreviation", LVCFMT_LEFT, client.Width() / 2);
    m_table.InsertColumn(1, "Name", LVCFMT_LEFT, client.Width() / 2);
    m_table.SetItemText(m_table.InsertItem(0, "St"), 1, "styrene");
    m_table.SetItemText(m_table.InsertItem(1, "Bu"), 1, "butadiene");
    m_amount.SetRange(0, 100);
    m_amount.SetTicFreq(10);
    m_amount.SetPos(30);
    m_progress.SetPos(40);
    static_cast<CSpinButtonCtrl&>(*GetDlgItem(ID_SPIN)).SetPos(12);
    m_moving.Open(134);
    m_otherMoving.Open(135);
    SetDlgItemText(ID_COMMENT, "Several lines\nof text");
    m_strHeard.Empty();
    return TRUE;
}

void CSpecimen::DoDataExchange(CDataExchange* pDX) {
    DDX_Control(pDX, ID_CHECKS, m_checks);
    DDX_Control(pDX, ID_TABLE, m_table);
    DDX_Control(pDX, ID_AMOUNT, m_amount);
    DDX_Control(pDX, ID_PROGRESS, m_progress);
    DDX_Control(pDX, ID_MOVING, m_moving);
    DDX_Control(pDX, ID_OTHER_MOVING, m_otherMoving);
    DDX_Text(pDX, ID_NAME, m_strName);
    DDX_Radio(pDX, ID_SMALL, m_nSize);
    DDX_Check(pDX, ID_LID, m_nLid);
}

BOOL CSpecimen::OnCommand(WPARAM wParam, LPARAM lParam) {
    CString strOne;
    strOne.Format("%d:%d ", LOWORD(wParam), HIWORD(wParam));
    m_strHeard += strOne;
    return CDialog::OnCommand(wParam, lParam);
}

BOOL CSpecimen::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
    const auto* const pNotice = reinterpret_cast<const NMLISTVIEW*>(lParam);
    CString strOne;
    if (pNotice->hdr.code == UDN_DELTAPOS) {
        const auto* const pStep = reinterpret_cast<const NMUPDOWN*>(lParam);
        strOne.Format("spin %d%+d ", pStep->iPos, pStep->iDelta);
        *pResult = pStep->iPos == 13; // there it shall stay
    } else {
        strOne.Format("table %d:%d,%d %u ", -static_cast<int>(pNotice->hdr.code), pNotice->iItem,
                      pNotice->iSubItem, pNotice->uNewState);
    }
    m_strHeard += strOne;
    return TRUE;
}

HBRUSH CSpecimen::OnCtlColor(CDC* pDC, CWnd* pControl, UINT nKind) {
    if (pControl->GetDlgCtrlID() != ID_LINES) {
        return CDialog::OnCtlColor(pDC, pControl, nKind);
    }
    pDC->SetTextColor(RGB(128, 0, 0));
    return m_ground;
}

void CSpecimen::OnHScroll(UINT nCode, UINT, CScrollBar* pControl) {
    CString strOne;
    if (reinterpret_cast<CWnd*>(pControl) == &m_amount) {
        strOne.Format("scroll %u at %d ", nCode, m_amount.GetPos());
    }
    m_strHeard += strOne;
}

void CSpecimen::OnMeasureItem(int nID, LPMEASUREITEMSTRUCT pMeasure) {
    if (nID == ID_DRAWN) {
        CClientDC dc(this);
        pMeasure->itemHeight = static_cast<UINT>(dc.GetDeviceCaps(LOGPIXELSY) * 22 / 96);
    }
}

void CSpecimen::OnDrawItem(int nID, LPDRAWITEMSTRUCT pDraw) {
    if (nID != ID_DRAWN) {
        return;
    }
    const bool bSelected = pDraw->itemState & ODS_SELECTED;
    CBrush brush(bSelected ? RGB(0, 0, 160) : RGB(255, 255, 255));
    pDraw->pDC->FillRect(&pDraw->rcItem, &brush);
    pDraw->pDC->SetTextColor(bSelected ? RGB(255, 255, 255) : RGB(0, 0, 0));
    pDraw->pDC->SetBkMode(TRANSPARENT);
    CFont font;
    const LOGFONT logFont = MakeLogFont(-12 * pDraw->pDC->GetDeviceCaps(LOGPIXELSY) / 72, "Times New Roman");
    font.CreateFontIndirect(&logFont);
    CFont* const pOld = pDraw->pDC->SelectObject(&font);
    pDraw->pDC->TextOut(4, pDraw->rcItem.top + 2, reinterpret_cast<const char*>(pDraw->itemData));
    pDraw->pDC->SelectObject(pOld);
}

BEGIN_MESSAGE_MAP(CSpecimen, CDialog)
ON_WM_CTLCOLOR()
ON_WM_HSCROLL()
ON_WM_MEASUREITEM()
ON_WM_DRAWITEM()
END_MESSAGE_MAP()
