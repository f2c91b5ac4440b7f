#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/plot/CurveTrace.h"
#include "tessara/plot/CustomScale.h"
#include "tessara/plot/DataRange.h"

namespace {

constexpr int ABSCISSA = 1;
constexpr int ORDINATE = 2;

} // namespace

/// curveRange and pointValues pick the abscissae or the ordinates of a curve.
template <class CURVE_RANGE, class POINT_VALUES>
void CPhaseDiagramOutput::ChooseScaleOf(CHOOSESCALE& scale, CURVE_RANGE curveRange, POINT_VALUES pointValues,
                                        double dZoomMin, double dZoomMax) const {
    if (m_bZoomed) {
        tessara::ChooseZoomedScale(scale, dZoomMin, dZoomMax);
        return;
    }
    tessara::CDataRange range;
    for (const auto* ppTrace : {&m_pCloudPointTrace, &m_pShadowTrace, &m_pSpinodalTrace}) {
        range.Add(curveRange(**ppTrace));
    }
    for (const CCurve* pPoints : {m_pCriticalPoints.get(), m_pLifshitzPoints.get()}) {
        if (pPoints) {
            range.Add(pointValues(*pPoints), pPoints->m_nPoints);
        }
    }
    range.Choose(scale);
}

void CPhaseDiagramOutput::ChooseAbscissaScale() {
    ChooseScaleOf(
        m_AbscissaScale, [](tessara::CCurveTrace & trace) -> const auto& { return trace.GetRangeX(); },
        [](const CCurve& points) { return points.m_pX; }, m_Zoom.dXMin, m_Zoom.dXMax);
}

void CPhaseDiagramOutput::ChooseOrdinateScale() {
    ChooseScaleOf(
        m_OrdinateScale, [](tessara::CCurveTrace & trace) -> const auto& { return trace.GetRangeY(); },
        [](const CCurve& points) { return points.m_pY; }, m_Zoom.dYMin, m_Zoom.dYMax);
}

void CPhaseDiagramOutput::FollowCurves() {
    tessara::CArrayFingerprints prints;
    const auto follow = [&](tessara::CCurveTrace& trace, CMultipartCurve* pCurve) {
        trace.Follow(pCurve, m_bChangesAnnounced ? nullptr : &prints);
        trace.ShowIn(m_bZoomed ? &m_Zoom : nullptr);
    };
    follow(*m_pCloudPointTrace, m_pCloudPointCurve.get());
    follow(*m_pShadowTrace, m_pShadowCurve.get());
    follow(*m_pSpinodalTrace, m_pSpinodal.get());
}

void CPhaseDiagramOutput::FindBoundingBox() {
    FollowCurves();
    ChooseScales();
}

void CPhaseDiagramOutput::ChooseScales() {
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
