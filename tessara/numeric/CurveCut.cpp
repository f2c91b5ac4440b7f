#include <algorithm>
#include <limits>
#include <memory>

#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/PolylineCut.h"
#include "tessara/numeric/Storage.h"

namespace tessara {

namespace {

/// Makes the parts of an empty curve of the pieces of another curve's parts.
class CCurvePieces : public CPieceSink {
public:
    CCurvePieces(const CMultipartCurve& source, CMultipartCurve& result)
        : m_source(source), m_result(result) {}

    void AddPart(const CCurvePartInfo& part, const CDataWindow& window) {
        m_part = part;
        CutPolyline(m_source.m_pX + part.nFirst, m_source.m_pY + part.nFirst, part.nPoints, window, *this);
    }
    /// Ends the last piece and gives back the room that is left; false when there was none.
    bool Finish() {
        EndPiece();
        m_result.ReAllocate(m_nPoints);
        return m_nPoints > 0;
    }

    void BeginPiece() override {
        EndPiece();
        m_result.BeginPart(m_nPoints, m_part.nColor);
        m_bOpen = true;
    }
    void AddPoints(int nFirst, int nEnd) override {
        const int nCount = nEnd - nFirst;
        MakeRoom(nCount);
        std::copy_n(m_source.m_pX + m_part.nFirst + nFirst, nCount, m_result.m_pX + m_nPoints);
        std::copy_n(m_source.m_pY + m_part.nFirst + nFirst, nCount, m_result.m_pY + m_nPoints);
        m_nPoints += nCount;
    }
    void AddCut(const CCutPlace& place) override {
        MakeRoom(1);
        m_result.m_pX[m_nPoints] = place.dX;
        m_result.m_pY[m_nPoints] = place.dY;
        ++m_nPoints;
    }

private:
    void EndPiece() {
        if (m_bOpen) {
            m_result.EndPart(m_nPoints - 1);
        }
        m_bOpen = false;
    }
    /// Grows by halves, so that a curve cut a million times is not moved as often.
    void MakeRoom(int nMore) {
        const int nNeeded = AddCounts(m_nPoints, nMore);
        if (nNeeded > m_result.m_nPoints) {
            m_result.ReAllocate(nNeeded + std::min(nNeeded / 2, std::numeric_limits<int>::max() - nNeeded));
        }
    }

    const CMultipartCurve& m_source;
    CMultipartCurve& m_result;
    CCurvePartInfo m_part{};
    int m_nPoints = 0; ///< filled so far
    bool m_bOpen = false;
};

} // namespace

CMultipartCurve* CutMultipartCurve(CMultipartCurve* pCurve, double xMin, double yMin, double xMax,
                                   double yMax) {
    auto pResult = NewObject<CMultipartCurve>();
    pResult->SetNumColors(pCurve->GetNumColors());
    CCurvePieces pieces(*pCurve, *pResult);
    for (int i = 0; i < pCurve->m_nParts; ++i) {
        pieces.AddPart(ClipPart(pCurve->m_pParts[i], pCurve->m_nPoints), {xMin, xMax, yMin, yMax});
    }
    return pieces.Finish() ? pResult.release() : nullptr;
}

} // namespace tessara
