#include "cli/DiagramData.h"

#include <algorithm>
#include <cmath>

#include "tessara/platform/base/Exception.h"

namespace tessara {

namespace {

constexpr int BRANCHED = 2; ///< number of colours that makes the renderer tell branches apart

/// A row is a gap when either of its numbers is.
std::vector<double> WithGapsOf(const std::vector<double>& x, std::vector<double> y) {
    std::transform(x.begin(), x.end(), y.begin(), y.begin(),
                   [](double dX, double dY) { return std::isnan(dX) ? dX : dY; });
    return y;
}

/// pColumn names the abscissae; parts that have none add nothing.
CCurveParts CutCurve(const DIAGRAMCURVE& curve, std::vector<double> DIAGRAMPART::*pColumn,
                     const PLOTWINDOW& window) {
    CCurveParts parts(window);
    for (const DIAGRAMPART& part : curve.parts) {
        const std::vector<double>& x = part.*pColumn;
        if (!x.empty()) {
            parts.Add(x, WithGapsOf(x, part.y), part.nColor);
        }
    }
    return parts;
}

/// A curve without parts is to have no legend either, which one with branches has for each of its parts.
int ColorsOf(const DIAGRAMCURVE& curve, const CCurveParts& parts) {
    return curve.HasBranches() || parts.IsEmpty() ? BRANCHED : 1;
}

bool HasShadow(const DIAGRAMCURVE& binodal) {
    return std::any_of(binodal.parts.begin(), binodal.parts.end(),
                       [](const DIAGRAMPART& part) { return !part.shadow.empty(); });
}

DIAGRAMPOINTS CutPoints(const DIAGRAMPOINTS& points, const PLOTWINDOW& window) {
    DIAGRAMPOINTS cut;
    for (std::size_t i = 0; i < points.x.size(); i++) {
        if (window.Contains(points.x[i], points.y[i])) {
            cut.x.push_back(points.x[i]);
            cut.y.push_back(points.y[i]);
        }
    }
    return cut;
}

bool HasElements(const DIAGRAM& diagram) {
    return !diagram.binodal.parts.empty() || !diagram.spinodal.parts.empty() || !diagram.critical.x.empty() ||
           !diagram.lifshitz.x.empty() || !diagram.multiphase.x.empty();
}

using POINTSSETTER = void (CPhaseDiagramOutput::*)(int n, double* x, double* y);

void SetPoints(CPhaseDiagramOutput& output, POINTSSETTER pSetter, DIAGRAMPOINTS& points) {
    (output.*pSetter)(static_cast<int>(points.x.size()), points.x.data(), points.y.data());
}

/// The zoom window, or what the scales given by hand leave.
PLOTWINDOW WindowOf(const DIAGRAM& diagram) {
    PLOTWINDOW window;
    if (diagram.zoom) {
        return *diagram.zoom;
    }
    if (diagram.x.scale) {
        window.dXMin = diagram.x.scale->dFrom;
        window.dXMax = diagram.x.scale->dTo;
    }
    if (diagram.y.scale) {
        window.dYMin = diagram.y.scale->dFrom;
        window.dYMax = diagram.y.scale->dTo;
    }
    return window;
}

} // namespace

CDiagramData::CDiagramData(const DIAGRAM& diagram) {
    const PLOTWINDOW window = WindowOf(diagram);
    const DIAGRAMCURVE& binodal = diagram.binodal;
    const CCurveParts cloudPoints = CutCurve(binodal, &DIAGRAMPART::x, window);
    const CCurveParts shadow = CutCurve(binodal, &DIAGRAMPART::shadow, window);
    const CCurveParts spinodal = CutCurve(diagram.spinodal, &DIAGRAMPART::x, window);
    m_Critical = CutPoints(diagram.critical, window);
    m_Lifshitz = CutPoints(diagram.lifshitz, window);
    m_Multiphase = CutPoints(diagram.multiphase, window);
    const bool bPoints = !m_Critical.x.empty() || !m_Lifshitz.x.empty() || !m_Multiphase.x.empty();
    if (HasElements(diagram) && !bPoints && cloudPoints.IsEmpty() && shadow.IsEmpty() && spinodal.IsEmpty()) {
        throw CException("nothing of the diagram lies within what is to be shown");
    }
    if (!binodal.parts.empty()) {
        m_pCloudPointCurve = cloudPoints.MakeTable(ColorsOf(binodal, cloudPoints));
    }
    if (HasShadow(binodal)) {
        m_pShadowCurve = shadow.MakeTable(ColorsOf(binodal, shadow));
    }
    if (!diagram.spinodal.parts.empty()) {
        m_pSpinodal = spinodal.Make(ColorsOf(diagram.spinodal, spinodal));
    }
}

/// The shadow curve comes from a table of its own: a binodal section without one leaves that of the section
/// before.
void CDiagramData::ApplyTo(CPhaseDiagramOutput& output) {
    if (m_pShadowCurve) {
        output.SetBinodalSection(0, 0, 1, m_pShadowCurve.get(), 0);
    }
    if (m_pCloudPointCurve) {
        output.SetBinodalSection(0, -1, 1, m_pCloudPointCurve.get(), 0);
    }
    if (m_pSpinodal) {
        output.SetSpinodalSection(m_pSpinodal.get());
    }
    SetPoints(output, &CPhaseDiagramOutput::SetCriticalPoints, m_Critical);
    SetPoints(output, &CPhaseDiagramOutput::SetLifshitzPoints, m_Lifshitz);
    SetPoints(output, &CPhaseDiagramOutput::SetMultiphasePoints, m_Multiphase);
}

} // namespace tessara
