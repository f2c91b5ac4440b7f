#include "tessara/numeric/Zoom.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <span>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/Storage.h"

namespace {

struct CZoomRect {
    double xMin, yMin, xMax, yMax;
};

/// The rows of a multipart container, seen in a plane.
struct CPlaneRows {
    const double* pX;
    const double* pY;
    int nPoints;
    std::span<const CCurvePartInfo> parts;

    /// Whether segment (i, i + 1) reaches into the rectangle.
    bool Reaches(int i, const CZoomRect& rect) const {
        return !(((pX[i] < rect.xMin) & (pX[i + 1] < rect.xMin)) |
                 ((pX[i] > rect.xMax) & (pX[i + 1] > rect.xMax)) |
                 ((pY[i] < rect.yMin) & (pY[i + 1] < rect.yMin)) |
                 ((pY[i] > rect.yMax) & (pY[i + 1] > rect.yMax)));
    }
};

/// Calls action(run) for every run; its record counts the container's rows.
template <class ACTION>
void ForEachRun(const CPlaneRows& rows, const CZoomRect& rect, ACTION action) {
    for (const CCurvePartInfo& record : rows.parts) {
        const CCurvePartInfo part = tessara::ClipPart(record, rows.nPoints);
        const int nLast = part.nFirst + part.nPoints - 1;
        for (int i = part.nFirst; i < nLast; ++i) {
            const int nFirst = i;
            while (i < nLast && rows.Reaches(i, rect)) {
                ++i;
            }
            if (i > nFirst) {
                action(CCurvePartInfo{nFirst, i - nFirst + 1, part.nColor});
            }
        }
    }
}

/// Makes the parts of an empty container of the runs; copy(run, nFirst) fills the rows from nFirst on.
/// False when there are none.
template <class CONTAINER, class COPY>
bool MakeParts(const CPlaneRows& rows, const CZoomRect& rect, CONTAINER& result, COPY copy) {
    int nRows = 0;
    ForEachRun(rows, rect,
               [&](const CCurvePartInfo& run) { nRows = tessara::AddCounts(nRows, run.nPoints); });
    if (nRows == 0) {
        return false;
    }
    result.Allocate(nRows);
    int nFirst = 0;
    ForEachRun(rows, rect, [&](const CCurvePartInfo& run) {
        result.BeginPart(nFirst, run.nColor);
        copy(run, nFirst);
        nFirst += run.nPoints;
        result.EndPart(nFirst - 1);
    });
    return true;
}

/// Moves a point of a segment onto an edge when it is beyond: pAcross is the coordinate that the edge bounds.
template <class BEYOND>
void ClipEnd(double* pAcross, double* pAlong, int nSegment, int nEnd, double dEdge, BEYOND beyond) {
    if (beyond(pAcross[nEnd], dEdge)) {
        pAlong[nEnd] = LinearInterpolation(dEdge, pAlong[nSegment], pAlong[nSegment + 1], pAcross[nSegment],
                                           pAcross[nSegment + 1]);
        pAcross[nEnd] = dEdge;
    }
}

template <class BEYOND>
void ClipEdge(double* pAcross, double* pAlong, int nPoints, double dEdge, BEYOND beyond) {
    for (int j = 0; j + 1 < nPoints; ++j) {
        ClipEnd(pAcross, pAlong, j, j, dEdge, beyond);
        ClipEnd(pAcross, pAlong, j, j + 1, dEdge, beyond);
    }
}

void ClipRun(double* pX, double* pY, int nPoints, const CZoomRect& rect) {
    ClipEdge(pY, pX, nPoints, rect.yMin, std::less<>());
    ClipEdge(pY, pX, nPoints, rect.yMax, std::greater<>());
    ClipEdge(pX, pY, nPoints, rect.xMin, std::less<>());
    ClipEdge(pX, pY, nPoints, rect.xMax, std::greater<>());
}

} // namespace

CMultipartCurve* ZoomMultipartCurve(CMultipartCurve* pCurve, double xMin, double yMin, double xMax,
                                    double yMax) {
    const CZoomRect rect = {xMin, yMin, xMax, yMax};
    const CPlaneRows rows = {pCurve->m_pX,
                             pCurve->m_pY,
                             pCurve->m_nPoints,
                             {pCurve->m_pParts, static_cast<std::size_t>(pCurve->m_nParts)}};
    auto pResult = tessara::NewObject<CMultipartCurve>();
    pResult->SetNumColors(pCurve->GetNumColors());
    const bool bAny = MakeParts(rows, rect, *pResult, [&](const CCurvePartInfo& run, int nFirst) {
        double* pX = std::copy_n(rows.pX + run.nFirst, run.nPoints, pResult->m_pX + nFirst) - run.nPoints;
        double* pY = std::copy_n(rows.pY + run.nFirst, run.nPoints, pResult->m_pY + nFirst) - run.nPoints;
        ClipRun(pX, pY, run.nPoints, rect);
    });
    return bAny ? pResult.release() : nullptr;
}

CMultipartTable* Zoom2dMultipartTable(CMultipartTable* pTable, int nX, int nY, double xMin, double yMin,
                                      double xMax, double yMax) {
    const CPlaneRows rows = {pTable->m_ppData[nX],
                             pTable->m_ppData[nY],
                             pTable->m_nPoints,
                             {pTable->m_pParts, static_cast<std::size_t>(pTable->m_nParts)}};
    auto pResult = tessara::NewObject<CMultipartTable>(pTable->m_nDimensions);
    pResult->SetNumColors(pTable->GetNumColors());
    const bool bAny =
        MakeParts(rows, {xMin, yMin, xMax, yMax}, *pResult, [&](const CCurvePartInfo& run, int nFirst) {
            for (int k = 0; k < pResult->m_nDimensions; ++k) {
                std::copy_n(pTable->m_ppData[k] + run.nFirst, run.nPoints, pResult->m_ppData[k] + nFirst);
            }
        });
    return bAny ? pResult.release() : nullptr;
}
