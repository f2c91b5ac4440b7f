#include "cli/view/ViewedDiagram.h"

#include <span>

#include "cli/view/ElementFormats.h"
#include "cli/view/PictureSurface.h"
#include "tessara/phasediagram/ElementColors.h"

namespace tessara {

namespace {

/// Element colours in the order in which a walk comes to them: cloud points, spinodal, shadow, points.
constexpr DWORD WALKED_COLORS[] = {0x00FF00,
                                   0x00FFFF,
                                   0x0000FF,
                                   0xFF0000,
                                   0xFF00FF,
                                   0xFFFF00,
                                   CRITICAL_POINT_COLOR,
                                   MULTIPHASE_POINT_COLOR,
                                   FOUND_MULTIPHASE_POINT_COLOR};

using CValues = std::span<const double>;

/// Hands out the parts that are drawn in a style.
template <class TAKE>
void ForEachPart(const CMultipartCurve* pCurve, int nStyle, int (*pStyleOf)(int nColor), TAKE take) {
    for (int i = 0; pCurve && i < pCurve->m_nParts; ++i) {
        const CCurvePartInfo& part = pCurve->m_pParts[i];
        const auto nPoints = static_cast<std::size_t>(part.nPoints);
        if (pStyleOf(part.nColor) == nStyle) {
            take(CValues(pCurve->m_pX + part.nFirst, nPoints), CValues(pCurve->m_pY + part.nFirst, nPoints));
        }
    }
}

CValues ValuesOf(const double* pValues, int nPoints) {
    return {pValues, static_cast<std::size_t>(nPoints)};
}

} // namespace

CViewedDiagram::CViewedDiagram(const DIAGRAM& diagram) : CDiagramOutput(diagram) {
    AnnounceChanges(true); // the data shown stay as they are until others are set
    Prepare(diagram);
    PickFor(std::nullopt);
}

void CViewedDiagram::Prepare(const DIAGRAM& diagram) {
    m_leftBoundary = diagram.leftBoundary;
    m_rightBoundary = diagram.rightBoundary;
    AddElementFormats(*this, diagram, GetData());
}

void CViewedDiagram::ShowDiagram(const DIAGRAM& diagram) {
    const CRect rcPaint = m_rcPaint;
    const CKept critical(m_bCriticalPointsClicking);
    const CKept zoomInMode(m_bZoomInMode);
    TakeDiagram(diagram);
    Prepare(diagram);
    if (!rcPaint.IsRectEmpty()) {
        CDC nowhere;
        Paint(&nowhere, rcPaint, nullptr);
    }
}

int CViewedDiagram::PaintOn(CDC& dc, const RECT& rc) {
    FollowBoundaries();
    return IsPictureSurface(dc) ? PaintPicture(dc, rc, nullptr) : Paint(&dc, rc, nullptr);
}

int CViewedDiagram::ExportOn(CDC& dc, const RECT& rc, const char* pszPath) {
    FollowBoundaries();
    return PaintPicture(dc, rc, pszPath);
}

int CViewedDiagram::PaintPicture(CDC& dc, const RECT& rc, const char* pszPath) {
    const CKept paint(m_rcPaint);
    const CKept device(m_rcPlotDevice);
    const CKept exactDevice(m_rcExactPlotDevice);
    const CKept flags(m_nFlags);
    m_nFlags &= ~DWORD{MF_MARKSHOWN};
    return pszPath ? Export(&dc, rc, pszPath) : Paint(&dc, rc, nullptr);
}

/// The renderer draws boundary lines wherever they lie, also beside the frame.
void CViewedDiagram::FollowBoundaries() {
    FindBoundingBox();
    m_bLeftBoundary = m_leftBoundary && IsValidValue(*m_leftBoundary, TRUE);
    m_bRightBoundary = m_rightBoundary && IsValidValue(*m_rightBoundary, TRUE);
    m_dLeftBoundary = m_leftBoundary.value_or(0);
    m_dRightBoundary = m_rightBoundary.value_or(0);
}

void CViewedDiagram::PickFor(std::optional<EReadOut> eReadOut) {
    const bool bSection = eReadOut == EReadOut::crossSection;
    SetElementReadOut(eReadOut == EReadOut::extendedGetValue);
    EnableCriticalPointsClicking(!bSection);
    m_nFlags &= ~DWORD{MF_READOUT | MF_CROSSSECTION};
    if (eReadOut) {
        m_nFlags |= bSection ? MF_READOUT | MF_CROSSSECTION : MF_READOUT;
    }
}

/// Hands all that is drawn in a colour to one of two: parts of curves, and points without lines.
template <class TAKEPART, class TAKEPOINTS>
void CViewedDiagram::ForEachPiece(DWORD crElement, TAKEPART takePart, TAKEPOINTS takePoints) {
    const int nStyle = CurveFromColor(crElement);
    ForEachPart(m_pCloudPointCurve.get(), nStyle, CloudPointStyle, takePart);
    ForEachPart(m_pSpinodal.get(), nStyle, SpinodalStyle, takePart);
    ForEachPart(m_pShadowCurve.get(), nStyle, ShadowStyle, takePart);
    const CCurve* const pPoints = crElement == CRITICAL_POINT_COLOR     ? m_pCriticalPoints.get()
                                  : crElement == MULTIPHASE_POINT_COLOR ? m_pMultiphasePoints.get()
                                                                        : nullptr;
    if (pPoints) {
        takePoints(ValuesOf(pPoints->m_pX, pPoints->m_nPoints), ValuesOf(pPoints->m_pY, pPoints->m_nPoints));
    }
    const CMultipartTable* const pFound = GetFoundPoints();
    if (pFound && crElement == FOUND_MULTIPHASE_POINT_COLOR) {
        takePoints(ValuesOf(pFound->m_ppData[0], pFound->m_nPoints),
                   ValuesOf(pFound->m_ppData[1], pFound->m_nPoints));
    }
}

std::vector<DWORD> CViewedDiagram::GetPickable() {
    std::vector<DWORD> colors;
    for (const DWORD color : WALKED_COLORS) {
        bool bThere = false;
        const auto look = [&](CValues x, CValues) { bThere = bThere || !x.empty(); };
        ForEachPiece(color, look, look);
        if (bThere && IsValidColor(color)) {
            colors.push_back(color);
        }
    }
    return colors;
}

CWalkPath CViewedDiagram::GetPath(DWORD crElement) {
    CWalkPath path;
    ForEachPiece(
        crElement, [&](CValues x, CValues y) { path.AddPart(x, y); },
        [&](CValues x, CValues y) { path.AddPoints(x, y); });
    return path;
}

const CMultipartTable* CViewedDiagram::GetFoundPoints() const {
    return m_bMultiphasePointsVisible ? m_pFoundMultiphasePoints.get() : nullptr;
}

} // namespace tessara
