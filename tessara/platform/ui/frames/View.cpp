#include "tessara/platform/ui/frames/View.h"

#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/frames/FrameSeam.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/windows/ClientDC.h"

IMPLEMENT_DYNAMIC(CView, CWnd)

CView::~CView() {
    if (m_pDocument) {
        m_pDocument->RemoveView(this);
    }
}

BOOL CView::Create(const char* pszClassName, const char* pszText, DWORD dwStyle, const RECT& rect,
                   CWnd* pParent, UINT nID) {
    return CreateEx(0, pszClassName ? pszClassName : tessara::VIEW_CLASS, pszText, dwStyle, rect, pParent,
                    nID);
}

BOOL CView::PreCreateWindow(CREATESTRUCT& cs) {
    return (cs.style & WS_CHILD) != 0;
}

void CView::PostNcDestroy() {
    delete this;
}

BOOL CView::OnCmdMsg(UINT nID, UINT nCode, void* pExtra) {
    return CWnd::OnCmdMsg(nID, nCode, pExtra) || (m_pDocument && m_pDocument->OnCmdMsg(nID, nCode, pExtra));
}

int CView::OnCreate(LPCREATESTRUCT pCreate) {
    const auto* const pContext = static_cast<const CCreateContext*>(pCreate->lpCreateParams);
    if (pContext && pContext->m_pCurrentDoc) {
        pContext->m_pCurrentDoc->AddView(this);
    }
    return CWnd::OnCreate(pCreate);
}

void CView::OnDestroy() {
    CFrameWnd* const pFrame = GetParentFrame();
    if (pFrame && pFrame->GetActiveView() == this) {
        pFrame->SetActiveView(nullptr);
    }
    CWnd::OnDestroy();
}

void CView::OnSetFocus(CWnd* pPrevious) {
    if (CFrameWnd* const pFrame = GetParentFrame()) {
        pFrame->SetActiveView(this);
    }
    CWnd::OnSetFocus(pPrevious);
}

void CView::OnInitialUpdate() {
    OnUpdate(nullptr, 0, nullptr);
}

void CView::OnUpdate(CView*, LPARAM, CObject*) {
    Invalidate();
}

void CView::OnActivateView(BOOL bActivate, CView* pActivateView, CView*) {
    if (bActivate && pActivateView == this && !IsChild(GetFocus())) {
        SetFocus();
    }
}

void CView::OnPaint() {
    CPaintDC dc(this);
    dc.SetBkMode(TRANSPARENT);
    OnPrepareDC(&dc);
    OnDraw(&dc);
}

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SETFOCUS()
ON_WM_PAINT()
END_MESSAGE_MAP()
