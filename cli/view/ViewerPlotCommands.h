#pragma once

#include "cli/view/ViewerZoom.h"

namespace tessara {

/// The commands that say how a plot looks and what is read out of it: switches, scales, read-out windows and
/// the keys that walk along a curve. Without a plot all are grey. Main thread.
class CViewerPlotCommands : public CCmdTarget {
public:
    CViewerPlotCommands(CWnd& view, CViewerZoom& zoom) : m_view(view), m_zoom(zoom) {}

    void SetPlot(CShownPlot* pPlot) { m_pPlot = pPlot; }
    bool IsReadingOut() const;

protected:
    DECLARE_MESSAGE_MAP()

private:
    void OnSwitch(UINT nID);
    void OnReadOut(UINT nID);
    void OnScales();
    void OnArrow(UINT nID);
    void OnUpdateSwitch(CCmdUI* pCmdUI);
    void OnUpdateReadOut(CCmdUI* pCmdUI);
    void OnUpdateScales(CCmdUI* pCmdUI);
    void OnUpdateArrow(CCmdUI* pCmdUI);
    void SetScales(const CAxisScales& scales);

    CWnd& m_view;
    CViewerZoom& m_zoom;
    CShownPlot* m_pPlot = nullptr;
};

} // namespace tessara
