#include <algorithm>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/frames/PrintSeam.h"
#include "tessara/platform/ui/frames/View.h"
#include "tessara/platform/ui/threads/WinThread.h"

// How a view prints and shows its pages.

CPrintInfo::CPrintInfo() = default;

CPrintInfo::~CPrintInfo() = default;

void CView::OnPrepareDC(CDC*, CPrintInfo* pInfo) {
    if (pInfo && pInfo->GetMaxPage() == CPrintInfo::UNKNOWN_PAGE) {
        pInfo->m_bContinuePrinting = pInfo->m_nCurPage == 1;
    }
}

BOOL CView::OnPreparePrinting(CPrintInfo* pInfo) {
    return DoPreparePrinting(pInfo);
}

BOOL CView::DoPreparePrinting(CPrintInfo* pInfo) {
    pInfo->m_nFromPage = pInfo->m_nMinPage;
    pInfo->m_nToPage = pInfo->m_nMaxPage;
    if (pInfo->m_bPreview) {
        return TRUE;
    }
    pInfo->m_pTarget = tessara::MakePrintTarget(pInfo->m_strFileName);
    return pInfo->m_bDirect || pInfo->m_pTarget->Ask(*pInfo, m_hWnd);
}

void CView::OnBeginPrinting(CDC*, CPrintInfo*) {}

void CView::OnPrint(CDC* pDC, CPrintInfo*) {
    OnDraw(pDC);
}

void CView::OnEndPrinting(CDC*, CPrintInfo*) {}

void CView::PrintEachPage(CDC& dc, CPrintInfo& info) {
    const int nFirstState = dc.SaveDC();
    const CRect area = info.m_rectDraw;
    for (info.m_nCurPage = info.GetFromPage(); info.m_nCurPage <= info.GetToPage(); ++info.m_nCurPage) {
        OnPrepareDC(&dc, &info);
        if (!info.m_bContinuePrinting ||
            (info.m_nCurPage != info.GetFromPage() && !info.m_pTarget->NewPage())) {
            return;
        }
        info.m_rectDraw = area;
        OnPrint(&dc, &info);
        dc.RestoreDC(nFirstState);
        dc.SaveDC();
    }
}

void CView::PrintPages(CPrintInfo& info) {
    CString strTitle;
    if (m_pDocument) {
        strTitle = m_pDocument->GetTitle();
    } else if (const CWnd* const pTop = GetTopLevelParent()) {
        pTop->GetWindowText(strTitle);
    }
    auto pSink = info.m_pTarget->Start(strTitle);
    const SIZE size = pSink->GetCaps().size;
    info.m_rectDraw = CRect(0, 0, size.cx, size.cy);
    info.m_bContinuePrinting = TRUE;
    {
        CDC dc(std::move(pSink));
        dc.SetBkMode(TRANSPARENT);
        OnBeginPrinting(&dc, &info);
        PrintEachPage(dc, info);
        OnEndPrinting(&dc, &info);
    }
    info.m_pTarget->Finish();
}

void CView::OnFilePrint() {
    CPrintInfo info;
    if (!OnPreparePrinting(&info) || !info.m_pTarget) {
        return;
    }
    try {
        PrintPages(info);
    } catch (const CFileException& exception) {
        AfxMessageBox(exception.what(), MB_OK | MB_ICONEXCLAMATION);
    }
}

void CView::OnFilePrintPreview() {
    CPrintInfo info;
    info.m_bPreview = TRUE;
    if (!OnPreparePrinting(&info)) {
        return;
    }
    tessara::ShowPreview(m_hWnd, [&](std::unique_ptr<tessara::CPrintTarget> pTarget) {
        info.m_pTarget = std::move(pTarget);
        PrintPages(info);
        info.m_pTarget.reset();
    });
}
