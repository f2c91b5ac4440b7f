#include "cli/DiagramOverrides.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "cli/InputError.h"
#include "cli/NumberList.h"

namespace tessara {

namespace {

std::optional<AXISSCALE> ScaleOf(const char* pszOption, const std::optional<std::string>& text) {
    return text ? std::optional(ParseAxisScale(pszOption, *text)) : std::nullopt;
}

/// Any two opposite corners.
std::optional<PLOTWINDOW> ZoomOf(const DIAGRAMOPTIONS& options) {
    if (!options.zoom) {
        return std::nullopt;
    }
    if (options.xScale || options.yScale) {
        throw CException("--zoom and --x-scale or --y-scale exclude each other");
    }
    const std::vector<double> values = ParseNumberList("--zoom", *options.zoom);
    if (values.size() != 4 || values[0] == values[2] || values[1] == values[3]) {
        throw CException("--zoom: " + Quoted(*options.zoom) + " is not a region X1:Y1:X2:Y2");
    }
    PLOTWINDOW window;
    std::tie(window.dXMin, window.dXMax) = std::minmax(values[0], values[2]);
    std::tie(window.dYMin, window.dYMax) = std::minmax(values[1], values[3]);
    return window;
}

} // namespace

CDiagramOverrides::CDiagramOverrides(const DIAGRAMOPTIONS& options)
    : m_Options(options), m_Zoom(ZoomOf(options)), m_XScale(ScaleOf("--x-scale", options.xScale)),
      m_YScale(ScaleOf("--y-scale", options.yScale)) {}

void CDiagramOverrides::ApplyTo(DIAGRAM& diagram) const {
    if (m_Zoom || m_XScale || m_YScale) {
        diagram.zoom = m_Zoom;
    }
    diagram.x.scale = m_XScale ? m_XScale : diagram.x.scale;
    diagram.y.scale = m_YScale ? m_YScale : diagram.y.scale;
    diagram.name = m_Options.name ? m_Options.name : diagram.name;
    diagram.slide = m_Options.slide ? m_Options.slide : diagram.slide;
    diagram.bLegend = diagram.bLegend && !m_Options.bNoLegend;
    diagram.bCaption = diagram.bCaption && !m_Options.bNoCaption;
    diagram.bMonochrome = diagram.bMonochrome || m_Options.bMonochrome;
    diagram.bMultiphasePoints = diagram.bMultiphasePoints || m_Options.bMultiphasePoints;
}

} // namespace tessara
