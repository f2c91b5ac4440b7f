#pragma once

#include <optional>
#include <vector>

#include "cli/view/ShownPlot.h"
#include "cli/view/ZoomHistory.h"

namespace tessara {

/// What the user has made of a plot: switches, scales, zoom and the read-out that is shown. Kept over
/// reading the file again.
class CViewerState {
public:
    explicit CViewerState(const CShownPlot& plot);

    /// Brings a plot's switches and scales to the state; what it does not have, and scales within which
    /// nothing of it lies, it does without.
    void ApplyLook(CShownPlot& plot) const;
    /// Shows the read-out, and in it the point that was read out.
    void ShowReadOut(CShownPlot& plot) const;
    const CZoomState& GetZoom() const { return m_zoom; }

private:
    struct CSwitch {
        EPlotSwitch eSwitch;
        bool bOn;
    };
    std::vector<CSwitch> m_switches;
    std::optional<EReadOut> m_readOut;
    std::optional<CPlotMark> m_mark;
    CAxisScales m_scales;
    CZoomState m_zoom;
    bool m_bZoomInMode;
};

} // namespace tessara
