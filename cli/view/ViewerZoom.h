#pragma once

#include "cli/view/ShownPlot.h"
#include "cli/view/ZoomHistory.h"
#include "tessara/platform/ui/threads/CmdTarget.h"

namespace tessara {

/// Zooms the plot of a view: by the wheel, by commands, and back and forward through what was shown before.
///
/// Every step is one entry of the history, but parts of a wheel's notch are joined until they make a whole
/// one: a wheel or a touchpad of fine steps would fill the history with entries that nobody can tell apart.
/// Without a plot nothing happens and all commands are grey. Main thread.
class CViewerZoom : public CCmdTarget {
public:
    /// A notch of the wheel, a command's step.
    static constexpr double STEP_FACTOR = 1.25;

    explicit CViewerZoom(CWnd& view) : m_view(view) {}

    /// The plot that the view shows from now on, or null. Begins a history with what it shows, or goes on
    /// with the present one when the plot takes the place of an earlier state of itself.
    void SetPlot(CShownPlot* pPlot, bool bKeepHistory);

    /// nDelta is in parts of WHEEL_DELTA, above zero to zoom in. The data at the pixel stay there.
    void Turn(CPoint at, int nDelta);
    /// Moves what is shown by parts of its width and height, to the right and up.
    void Pan(double dRight, double dUp);
    /// Notes that the plot may have changed its zoom by itself.
    void FollowPlot();
    /// Notes that the whole plot's axes may end elsewhere now.
    void ForgetWhole() { m_whole.reset(); }
    /// Zooms to a window if something of the plot is there, and else to the whole plot; no entry of the
    /// history is made.
    void Restore(const CZoomState& state);

    bool IsZoomed() const { return m_pPlot && m_pPlot->GetZoom(); }
    /// The map of the plot as it is shown now: paints first where need be.
    CPixelMap GetMap() const;

protected:
    DECLARE_MESSAGE_MAP()

private:
    const CZoomWindow& GetWhole();
    CZoomWindow GetShown() const;
    void ZoomAt(double dX, double dY, double dFactor, bool bJoin);
    void ZoomCentre(double dFactor);
    void Show(const CZoomState& state);
    void ShowNext(const CZoomState& state, bool bJoin = false);

    void OnZoomArea();
    void OnZoomIn() { ZoomCentre(1 / STEP_FACTOR); }
    void OnZoomOut() { ZoomCentre(STEP_FACTOR); }
    void OnBack();
    void OnForward();
    void OnWhole() { ShowNext(std::nullopt); }
    void OnPan(UINT nID);
    void OnUpdateZoomArea(CCmdUI* pCmdUI);
    void OnUpdateZoomIn(CCmdUI* pCmdUI);
    void OnUpdateZoomed(CCmdUI* pCmdUI);
    void OnUpdateBack(CCmdUI* pCmdUI);
    void OnUpdateForward(CCmdUI* pCmdUI);

    CWnd& m_view;
    CShownPlot* m_pPlot = nullptr;
    CZoomHistory m_history;
    CZoomState m_whole; ///< where the whole plot's axes end, once that is known
    int m_nJoined = 0;  ///< parts of a notch that the present entry is made of; 0 when it is complete
};

} // namespace tessara
