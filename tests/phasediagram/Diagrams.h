#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tests/support/LoggedSurface.h"

namespace tessara {

/// A diagram whose protected parts tests may look at.
class CTestDiagram : public CPhaseDiagramOutput {
public:
    using CPhaseDiagramOutput::CurveFromColor;
    using CPhaseDiagramOutput::DrawMarkOnDC;
    using CPhaseDiagramOutput::FillLabelsArray;
    using CPhaseDiagramOutput::FindBoundingBox;
    using CPhaseDiagramOutput::IsValidColor;
    using CPhaseDiagramOutput::m_AbscissaScale;
    using CPhaseDiagramOutput::m_bCriticalPointsClicking;
    using CPhaseDiagramOutput::m_CurveLabels;
    using CPhaseDiagramOutput::m_dMarkX;
    using CPhaseDiagramOutput::m_dMarkY;
    using CPhaseDiagramOutput::m_nFlags;
    using CPhaseDiagramOutput::m_OrdinateScale;
    using CPhaseDiagramOutput::m_pCriticalPoints;
    using CPhaseDiagramOutput::m_pFoundMultiphasePoints;
    using CPhaseDiagramOutput::m_PointLabels;
    using CPhaseDiagramOutput::m_pShadowCurve;
    using CPhaseDiagramOutput::m_rcExactPlotDevice;
    using CPhaseDiagramOutput::m_rcPlotDevice;
    using CPhaseDiagramOutput::m_SavedAbscissaScale;
    using CPhaseDiagramOutput::m_strAbscissaFormat;
    using CPhaseDiagramOutput::m_strName;
    using CPhaseDiagramOutput::m_strOrdinateFormat;
    using CPhaseDiagramOutput::m_strSlideName;

    std::vector<std::string> Labels(const CStringArray& labels) const {
        std::vector<std::string> texts;
        for (int i = 0; i < labels.GetSize(); ++i) {
            texts.emplace_back(labels.GetAt(i).View());
        }
        return texts;
    }

    /// The log of the diagram painted at one pixel a page unit.
    std::vector<std::string> PaintLogged() {
        CLoggedSurface surface;
        Paint(&surface.dc, {0, 0, 5120, 3680}, nullptr);
        return surface.lines;
    }
};

/// One part of a section: cloud points (column 0), shadow (1) and temperature (2) along a parameter from
/// dFrom to dTo. The whole curve, from -1 to 1, crosses itself once, at (0.5, 0.75).
inline void AddSectionPart(CMultipartTable& section, double dFrom, double dTo, int nColor,
                           int nPoints = 201) {
    CTable part(3);
    part.Allocate(nPoints);
    for (int i = 0; i < nPoints; ++i) {
        const double dS = dFrom + (dTo - dFrom) * i / (nPoints - 1);
        part.m_ppData[0][i] = 0.5 + dS * (dS * dS - 0.25);
        part.m_ppData[1][i] = 0.5 + 0.2 * dS;
        part.m_ppData[2][i] = 1 - dS * dS;
    }
    section.AddTable(&part, nColor, -1);
}

} // namespace tessara
