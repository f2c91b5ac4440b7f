#include "tessara/appframe/BaseVariantViewBase.h"

#include <algorithm>

#include "tessara/appframe/StructureLayout.h"
#include "tessara/document/BaseVariant.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/System.h"

IMPLEMENT_DYNCREATE(CBaseVariantViewBase, CView)

namespace {

constexpr UINT ID_INPUT = 16384;
constexpr UINT ID_OUTPUT = 16385;
constexpr UINT ID_BACK = 16386;

constexpr COLORREF COLOR_TITLE = RGB(255, 128, 128);
constexpr COLORREF COLOR_INPUT = RGB(255, 255, 128);
constexpr COLORREF COLOR_OUTPUT = RGB(128, 255, 255);

constexpr int NO_PAGE = -1;

void Add(CListBox& list, const char* lpszName, int nInformation) {
    const CString strText = nInformation == NO_PAGE ? CString(lpszName) : CString(lpszName) + " >>";
    list.SetItemData(list.AddString(strText), static_cast<std::uintptr_t>(nInformation));
}

/// Lists what is switched on. The line that was selected stays selected.
template <class ADD>
void Refill(CListBox& list, const CInterfaceItemArray& items, ADD fnAdd) {
    const int nSelected = list.GetCurSel();
    list.ResetContent();
    for (int i = 0; i < items.GetSize(); ++i) {
        if (items[i].m_bSelected) {
            fnAdd(items[i].m_strName, items[i].m_nInformation);
        }
    }
    list.SetCurSel(std::min(nSelected, list.GetCount() - 1));
}

/// Selects in a list the line beside the other one's selected line.
void GoBeside(CListBox& list, const CListBox& other) {
    list.SetCurSel(std::min(other.GetCurSel(), list.GetCount() - 1));
    list.SetFocus();
}

} // namespace

int CBaseVariantViewBase::OnCreate(LPCREATESTRUCT pCreate) {
    if (CView::OnCreate(pCreate) == -1) {
        return -1;
    }
    m_brushTitle.CreateSolidBrush(COLOR_TITLE);
    m_brushInput.CreateSolidBrush(COLOR_INPUT);
    m_brushOutput.CreateSolidBrush(COLOR_OUTPUT);
    const CClientDC dc(this);
    m_nTextHeight = static_cast<int>(dc.GetTextExtent("Wg").cy);
    const CSize roundText(32, 10);
    m_sizeBack = dc.GetTextExtent("<< Back");
    m_sizeBack.cx += roundText.cx;
    m_sizeBack.cy += roundText.cy;
    CreateControls();
    return 0;
}

void CBaseVariantViewBase::CreateControls() {
    constexpr DWORD HEADING = WS_CHILD | WS_VISIBLE | SS_CENTER;
    m_staticTitle.Create("Base Variant Structure", HEADING, CRect(), this);
    m_staticInput.Create("Input Information", HEADING, CRect(), this);
    m_staticOutput.Create("Output Information", HEADING, CRect(), this);
    constexpr DWORD LIST =
        WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
    m_listInput.Create(LIST, CRect(), this, ID_INPUT);
    m_listOutput.Create(LIST, CRect(), this, ID_OUTPUT);
    m_btnBack.Create("<< Back", WS_CHILD | WS_TABSTOP | BS_DEFPUSHBUTTON, CRect(), this, ID_BACK);
    m_listInput.SetCurSel(0);
    m_listInput.SetFocus();
}

void CBaseVariantViewBase::OnDestroy() {
    CView::OnDestroy();
    m_brushTitle.DeleteObject();
    m_brushInput.DeleteObject();
    m_brushOutput.DeleteObject();
}

void CBaseVariantViewBase::OnSize(UINT nType, int cx, int cy) {
    CView::OnSize(nType, cx, cy);
    const tessara::CStructureLayout layout(m_nTextHeight, CSize(cx, cy));
    m_staticTitle.MoveWindow(layout.GetTitle());
    m_staticInput.MoveWindow(layout.GetInputHeading());
    m_staticOutput.MoveWindow(layout.GetOutputHeading());
    m_listInput.MoveWindow(layout.GetInputList());
    m_listOutput.MoveWindow(layout.GetOutputList());
    m_btnBack.MoveWindow(layout.GetButton(m_sizeBack));
}

HBRUSH CBaseVariantViewBase::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nKind) {
    const CBrush* pBrush = nullptr;
    if (pWnd == &m_staticTitle) {
        pBrush = &m_brushTitle;
    } else if (pWnd == &m_staticInput || pWnd == &m_listInput) {
        pBrush = &m_brushInput;
    } else if (pWnd == &m_staticOutput || pWnd == &m_listOutput) {
        pBrush = &m_brushOutput;
    } else {
        return CView::OnCtlColor(pDC, pWnd, nKind);
    }
    pDC->SetBkColor(pBrush->GetLogBrush().lbColor);
    return pBrush;
}

void CBaseVariantViewBase::OnDraw(CDC* pDC) {
    CRect client;
    GetClientRect(&client);
    if (m_nInformation == NO_PAGE) {
        DrawSeparators(*pDC, client);
        return;
    }
    CBrush face(GetSysColor(COLOR_BTNFACE));
    pDC->FillRect(&client, &face);
    pDC->SetTextColor(GetSysColor(COLOR_BTNTEXT)); // what can be read on that ground
    OnDrawInformation(pDC, client, m_nInformation);
}

void CBaseVariantViewBase::DrawSeparators(CDC& dc, const CRect& client) const {
    const tessara::CStructureLayout layout(m_nTextHeight, client.Size());
    CBrush face(GetSysColor(COLOR_BTNFACE));
    for (const CRect& band : layout.GetBands()) {
        dc.FillRect(&band, &face);
    }
    for (const tessara::CEtching& etching : layout.GetEtchings()) {
        CPen pen(PS_SOLID, 1, GetSysColor(etching.nSystemColor));
        CPen* const pOld = dc.SelectObject(&pen);
        for (const tessara::CEtchedLine& line : etching.lines) {
            dc.MoveTo(line.from);
            dc.LineTo(line.GetLast());
        }
        dc.SelectObject(pOld);
    }
}

void CBaseVariantViewBase::OnDrawInformation(CDC*, CRect&, int) {}

BOOL CBaseVariantViewBase::PreTranslateMessage(MSG* pMsg) {
    return CView::PreTranslateMessage(pMsg);
}

void CBaseVariantViewBase::OnKeyDown(UINT nKey, UINT nRepeat, UINT nFlags) {
    CView::OnKeyDown(nKey, nRepeat, nFlags);
}

void CBaseVariantViewBase::OnShowWindow(BOOL bShow, UINT nStatus) {
    CView::OnShowWindow(bShow, nStatus);
    if (bShow) {
        FillLists();
    }
}

/// A frame shows the next document in the view that it has.
void CBaseVariantViewBase::OnInitialUpdate() {
    CView::OnInitialUpdate();
    FillLists();
    if (m_nInformation != NO_PAGE) {
        OnBack();
    }
}

void CBaseVariantViewBase::FillLists() {
    const auto* const pVariant = dynamic_cast<const CBaseVariant*>(GetDocument());
    if (!pVariant) {
        return;
    }
    Refill(m_listInput, pVariant->m_inputItems, [this](auto... item) { AddInputItem(item...); });
    Refill(m_listOutput, pVariant->m_outputItems, [this](auto... item) { AddOutputItem(item...); });
    if (m_listInput.GetCurSel() == LB_ERR && m_listOutput.GetCurSel() == LB_ERR) {
        m_listInput.SetCurSel(0); // there was none to select when the view was made
    }
}

void CBaseVariantViewBase::AddInputItem(const char* lpszName, int nInformation) {
    Add(m_listInput, lpszName, nInformation);
}

void CBaseVariantViewBase::AddOutputItem(const char* lpszName, int nInformation) {
    Add(m_listOutput, lpszName, nInformation);
}

CListBox& CBaseVariantViewBase::GetFocusedList() {
    return GetFocus() == &m_listInput ? m_listInput : m_listOutput;
}

void CBaseVariantViewBase::OnTab() {
    if (m_nInformation != NO_PAGE) {
        return;
    }
    if (GetFocus() != &m_listInput) {
        GoBeside(m_listInput, m_listOutput);
    } else {
        GoBeside(m_listOutput, m_listInput);
    }
}

void CBaseVariantViewBase::OnEnter() {
    if (m_nInformation == NO_PAGE) {
        OpenPage();
    } else {
        OnBack();
    }
}

void CBaseVariantViewBase::OpenPage() {
    const CListBox& list = GetFocusedList();
    const int nCurrent = list.GetCurSel();
    if (nCurrent == LB_ERR) {
        return;
    }
    m_nInformation = static_cast<int>(list.GetItemData(nCurrent));
    if (m_nInformation != NO_PAGE) {
        const bool bOutput = &list == &m_listOutput;
        SwitchVisibleState();
        m_btnBack.SetFocus();
        m_bOutputLast =
            bOutput; // of the lists one was hidden first, and the other had the keyboard for a moment
    }
}

void CBaseVariantViewBase::OnBack() {
    m_nInformation = NO_PAGE;
    SwitchVisibleState();
    (m_bOutputLast ? m_listOutput : m_listInput).SetFocus();
}

void CBaseVariantViewBase::SwitchVisibleState() {
    const bool bLists = m_nInformation == NO_PAGE;
    for (CWnd* const pWnd : std::initializer_list<CWnd*>{&m_staticTitle, &m_staticInput, &m_staticOutput,
                                                         &m_listInput, &m_listOutput}) {
        pWnd->ShowWindow(bLists ? SW_SHOW : SW_HIDE);
    }
    m_btnBack.ShowWindow(bLists ? SW_HIDE : SW_SHOW);
    Invalidate();
    UpdateWindow();
}

void CBaseVariantViewBase::OnDblclkInput() {
    OpenPage();
}

void CBaseVariantViewBase::OnDblclkOutput() {
    OpenPage();
}

/// Whoever gives the keyboard to the view means its lists.
void CBaseVariantViewBase::OnSetFocus(CWnd* pPrevious) {
    CView::OnSetFocus(pPrevious);
    if (m_nInformation == NO_PAGE) {
        (m_bOutputLast ? m_listOutput : m_listInput).SetFocus();
    }
}

void CBaseVariantViewBase::OnSetfocusInput() {
    m_bOutputLast = false;
    m_listOutput.SetCurSel(-1);
}

void CBaseVariantViewBase::OnSetfocusOutput() {
    m_bOutputLast = true;
    m_listInput.SetCurSel(-1);
}

BEGIN_MESSAGE_MAP(CBaseVariantViewBase, CView)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_CTLCOLOR()
ON_WM_DESTROY()
ON_WM_KEYDOWN()
ON_WM_SETFOCUS()
ON_WM_SHOWWINDOW()
ON_LBN_DBLCLK(ID_INPUT, OnDblclkInput)
ON_LBN_SETFOCUS(ID_INPUT, OnSetfocusInput)
ON_LBN_DBLCLK(ID_OUTPUT, OnDblclkOutput)
ON_LBN_SETFOCUS(ID_OUTPUT, OnSetfocusOutput)
ON_BN_CLICKED(ID_BACK, OnBack)
END_MESSAGE_MAP()
