#include "cli/view/ViewerState.h"

#include "tessara/platform/base/Exception.h"

namespace tessara {

CViewerState::CViewerState(const CShownPlot& plot)
    : m_readOut(plot.GetReadOut()), m_mark(plot.GetMark()), m_scales(plot.GetScales()),
      m_zoom(plot.GetZoom()), m_bZoomInMode(plot.IsZoomInModeEnabled()) {
    for (const EPlotSwitch eSwitch : {EPlotSwitch::legend, EPlotSwitch::caption, EPlotSwitch::monochrome,
                                      EPlotSwitch::multiphasePoints}) {
        if (plot.Has(eSwitch)) {
            m_switches.push_back({eSwitch, plot.IsOn(eSwitch)});
        }
    }
}

void CViewerState::ApplyLook(CShownPlot& plot) const {
    for (const CSwitch& wanted : m_switches) {
        if (plot.Has(wanted.eSwitch) && plot.IsOn(wanted.eSwitch) != wanted.bOn) {
            plot.Toggle(wanted.eSwitch);
        }
    }
    plot.EnableZoomInMode(m_bZoomInMode);
    if (!m_scales.x && !m_scales.y) {
        return;
    }
    try {
        plot.SetScales(m_scales);
    } catch (const CException&) { // the data have moved away: automatic scales show them
    }
}

void CViewerState::ShowReadOut(CShownPlot& plot) const {
    if (m_readOut && plot.Offers(*m_readOut)) {
        plot.ShowReadOut(*m_readOut, true);
    }
    if (m_mark) {
        plot.SetMark(*m_mark);
    }
}

} // namespace tessara
