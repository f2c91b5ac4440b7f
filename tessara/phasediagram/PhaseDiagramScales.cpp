#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/plot/CustomScale.h"
#include "tessara/plot/DataRange.h"

namespace {

constexpr int ABSCISSA = 1;
constexpr int ORDINATE = 2;

} // namespace

/// curveValues and pointValues pick the abscissae or the ordinates of a curve.
template <class CURVE_VALUES, class POINT_VALUES>
void CPhaseDiagramOutput::ChooseScaleOf(CHOOSESCALE& scale, CURVE_VALUES curveValues,
                                        POINT_VALUES pointValues, double dZoomMin, double dZoomMax) const {
    tessara::CDataRange range;
    if (m_bZoomed) {
        range.Add(dZoomMin);
        range.Add(dZoomMax);
    } else {
        for (const CMultipartCurve* pCurve :
             {m_pShownCloudPointCurve, m_pShownShadowCurve, m_pShownSpinodal}) {
            if (pCurve) {
                range.Add(curveValues(*pCurve), pCurve->m_nPoints);
            }
        }
        for (const CCurve* pPoints : {m_pCriticalPoints.get(), m_pLifshitzPoints.get()}) {
            if (pPoints) {
                range.Add(pointValues(*pPoints), pPoints->m_nPoints);
            }
        }
    }
    range.Choose(scale);
    if (m_bZoomed) {
        scale.dUpper = dZoomMax;
        scale.dLower = dZoomMin;
    }
}

void CPhaseDiagramOutput::ChooseAbscissaScale() {
    ChooseScaleOf(
        m_AbscissaScale, [](const CMultipartCurve& curve) { return curve.m_pX; },
        [](const CCurve& points) { return points.m_pX; }, m_Zoom.dXMin, m_Zoom.dXMax);
}

void CPhaseDiagramOutput::ChooseOrdinateScale() {
    ChooseScaleOf(
        m_OrdinateScale, [](const CMultipartCurve& curve) { return curve.m_pY; },
        [](const CCurve& points) { return points.m_pY; }, m_Zoom.dYMin, m_Zoom.dYMax);
}

void CPhaseDiagramOutput::FindBoundingBox() {
    if (m_nFlags & MF_CUSTOMABSCISSA && !m_bZoomed) {
        m_AbscissaScale = m_SavedAbscissaScale;
    } else {
        ChooseAbscissaScale();
    }
    if (m_nFlags & MF_CUSTOMORDINATE && !m_bZoomed) {
        m_OrdinateScale = m_SavedOrdinateScale;
    } else {
        ChooseOrdinateScale();
    }
}

int CPhaseDiagramOutput::UseCustomScale(int axis, double lower, double upper, double step, int exponent) {
    const tessara::CCustomScale custom{lower, upper, step, exponent};
    const bool bAbscissa = (axis & ABSCISSA) != 0;
    const bool bOrdinate = (axis & ORDINATE) != 0;
    const bool bValid = bAbscissa != bOrdinate && custom.IsUsable();
    if (bValid) {
        m_nFlags |= bAbscissa ? MF_CUSTOMABSCISSA : MF_CUSTOMORDINATE;
        custom.ApplyTo(bAbscissa ? m_AbscissaScale : m_OrdinateScale);
    }
    m_SavedAbscissaScale = m_AbscissaScale;
    m_SavedOrdinateScale = m_OrdinateScale;
    return bValid;
}

void CPhaseDiagramOutput::UseAutomaticScale(int axis) {
    if (axis & ABSCISSA) {
        m_nFlags &= ~DWORD{MF_CUSTOMABSCISSA};
    }
    if (axis & ORDINATE) {
        m_nFlags &= ~DWORD{MF_CUSTOMORDINATE};
    }
}

int CPhaseDiagramOutput::IsValidValue(double v, int abscissa) {
    const CHOOSESCALE& scale = abscissa ? m_AbscissaScale : m_OrdinateScale;
    return scale.dLower <= v && v <= scale.dUpper;
}
