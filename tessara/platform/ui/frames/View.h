#pragma once

#include "tessara/platform/ui/frames/Document.h"
#include "tessara/platform/ui/frames/PrintInfo.h"
#include "tessara/platform/ui/windows/Wnd.h"

/// A child of a frame that shows a document. A program derives its own and draws in OnDraw, on the screen and
/// on paper.
///
/// The ground is white, whatever the desktop's colours, and text on the surfaces that OnPrepareDC, OnDraw and
/// OnPrint are given has a transparent background, as plots want it. A view is made with new and deletes
/// itself with its window.
class TESSARA_API CView : public CWnd {
    DECLARE_DYNAMIC(CView)

public:
    ~CView() override;

    /// A null class name is the view's own.
    BOOL Create(const char* pszClassName, const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent,
                UINT nID) override;
    CDocument* GetDocument() const { return m_pDocument; }

    BOOL OnCmdMsg(UINT nID, UINT nCode, void* pExtra) override;

    /// Called once the document has its content. The default calls OnUpdate.
    virtual void OnInitialUpdate();

    void OnFilePrint();
    void OnFilePrintPreview();

protected:
    CView() = default;

    /// Draws the document. On paper pDC->IsPrinting is true.
    virtual void OnDraw(CDC* pDC) = 0;
    /// The document has changed. The default paints the view anew.
    virtual void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint);
    /// The view becomes or ceases to be the active one.
    virtual void OnActivateView(BOOL bActivate, CView* pActivateView, CView* pDeactiveView);
    /// Called before OnDraw and before each page; sets up the mapping. The default ends printing after the
    /// first page where the number of pages is not known.
    virtual void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo = nullptr);

    // Printing: the default prints one page through OnDraw.

    /// Says which pages there are and calls DoPreparePrinting; zero cancels. The default only calls it.
    virtual BOOL OnPreparePrinting(CPrintInfo* pInfo);
    BOOL DoPreparePrinting(CPrintInfo* pInfo);
    virtual void OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo);
    virtual void OnPrint(CDC* pDC, CPrintInfo* pInfo);
    virtual void OnEndPrinting(CDC* pDC, CPrintInfo* pInfo);

    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;

    int OnCreate(LPCREATESTRUCT pCreate);
    void OnPaint();
    void OnSetFocus(CWnd* pPrevious);
    void OnDestroy();

    DECLARE_MESSAGE_MAP()

    CDocument* m_pDocument = nullptr;

private:
    friend class CDocument;
    friend class CFrameWnd;
    void PrintPages(CPrintInfo& info);
    void PrintEachPage(CDC& dc, CPrintInfo& info);
};
