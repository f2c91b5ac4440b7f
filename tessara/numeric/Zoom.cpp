#include "tessara/numeric/Zoom.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/Storage.h"
#include "tessara/platform/base/NoTraps.h"

namespace {

// The operators would raise a floating-point exception for gaps in a curve, which are not numbers.
bool Less(double a, double b) {
    return std::isless(a, b);
}
bool Greater(double a, double b) {
    return std::isgreater(a, b);
}

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
        return !((Less(pX[i], rect.xMin) & Less(pX[i + 1], rect.xMin)) |
                 (Greater(pX[i], rect.xMax) & Greater(pX[i + 1], rect.xMax)) |
                 (Less(pY[i], rect.yMin) & Less(pY[i + 1], rect.yMin)) |
                 (Greater(pY[i], rect.yMax) & Greater(pY[i + 1], rect.yMax)));
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
    ClipEdge(pY, pX, nPoints, rect.yMin, Less);
    ClipEdge(pY, pX, nPoints, rect.yMax, Greater);
    ClipEdge(pX, pY, nPoints, rect.xMin, Less);
    ClipEdge(pX, pY, nPoints, rect.xMax, Greater);
}

} // namespace

CMultipartCurve* ZoomMultipartCurve(CMultipartCurve* pCurve, double xMin, double yMin, double xMax,
                                    double yMax) {
    const tessara::CNoTraps noTraps; // a segment to infinity is clipped to no number
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
