#pragma once

#include <memory>
#include <vector>

#include "cli/view/ViewerPlotCommands.h"
#include "cli/view/ViewerZoom.h"
#include "tessara/platform/ui/frames/View.h"

namespace tessara {

/// The paper that a viewer shows a plot on, or nothing yet. Forwards the mouse to the plot, tells the frame
/// of the point under the pointer, and prints. Main thread.
class CViewerView : public CView {
    DECLARE_DYNCREATE(CViewerView)

public:
    CViewerView();
    ~CViewerView() override;

    CShownPlot* GetPlot() const { return m_pPlot.get(); }
    CViewerZoom& GetZoom() { return m_zoom; }
    /// Shows a plot of something else.
    void ShowPlot(std::unique_ptr<CShownPlot> pPlot);
    /// Shows a plot in place of an earlier state of itself: zoom, switches, scales, read-outs
    /// and the keyboard stay.
    void ReplacePlot(std::unique_ptr<CShownPlot> pPlot);
    /// Ends waiting for a rectangle to zoom into; false when that was not so.
    bool LeaveZoomInMode();

    BOOL OnCmdMsg(UINT nID, UINT nCode, void* pExtra) override;

protected:
    void OnDraw(CDC* pDC) override;
    BOOL OnPreparePrinting(CPrintInfo* pInfo) override;
    void OnPrint(CDC* pDC, CPrintInfo* pInfo) override;

    void OnMouseMove(UINT nFlags, CPoint point);
    void OnMouseLeave();
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    void OnLButtonDblClk(UINT nFlags, CPoint point);
    BOOL OnMouseWheel(UINT nFlags, short nDelta, CPoint point);
    BOOL OnSetCursor(CWnd* pWnd, UINT nHit, UINT nMessage);
    void OnContextMenu(CWnd* pWnd, CPoint point);
    void OnContextMenuKey();
    void OnPrintCommand() { OnFilePrint(); }
    void OnPrintPreviewCommand() { OnFilePrintPreview(); }
    void OnUpdatePrint(CCmdUI* pCmdUI);
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    void TakePlot(std::unique_ptr<CShownPlot> pPlot, bool bKeepHistory);
    void EndDrag();
    void ForgetRetired();
    void Paint(CDC& dc, const RECT& rc) const;
    void DrawHint(CDC& dc, const RECT& rc) const;
    void TellPoint(CPoint point);
    void TrackContextMenu(CPoint point);

    std::unique_ptr<CShownPlot> m_pPlot;
    /// Plots that were replaced, until the next input: a message box of theirs may still be open.
    std::vector<std::unique_ptr<CShownPlot>> m_retired;
    CViewerZoom m_zoom;
    CViewerPlotCommands m_commands;
    bool m_bPressed = false; ///< the plot was told that the left button went down
};

} // namespace tessara
