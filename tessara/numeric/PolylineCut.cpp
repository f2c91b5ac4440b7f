#include "tessara/numeric/PolylineCut.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "tessara/platform/base/NoTraps.h"

namespace tessara {

CPieceSink::~CPieceSink() = default;

namespace {

struct CSegment {
    double dX0;
    double dY0;
    double dX1;
    double dY1;
};

/// An end of what a window leaves of a segment: how far along, and the edges that it lies on.
struct CEnd {
    double dWay;
    std::optional<double> onX;
    std::optional<double> onY;
};

/// Where on the way from dFrom (0) to dTo (1), which differ, a level lies. Halves, since a difference may
/// overflow.
double PlaceOf(double dLevel, double dFrom, double dTo) {
    return (dLevel / 2 - dFrom / 2) / (dTo / 2 - dFrom / 2);
}

/// What a window leaves of a segment whose ends are numbers.
class CSegmentCut {
public:
    CSegmentCut(const CSegment& segment, const CDataWindow& window) : m_segment(segment), m_window(window) {
        Narrow(segment.dX0, segment.dX1, window.dXMin, window.dXMax, &CEnd::onX);
        Narrow(segment.dY0, segment.dY1, window.dYMin, window.dYMax, &CEnd::onY);
    }

    bool IsEmpty() const { return m_first.dWay > m_last.dWay; }
    CCutPlace GetFirst(int nEnd) const { return PlaceAt(m_first, nEnd); }
    CCutPlace GetLast(int nEnd) const { return PlaceAt(m_last, nEnd); }

private:
    using CEdge = std::optional<double> CEnd::*;

    /// Narrows the piece to where one of the coordinates lies between two levels.
    void Narrow(double dFrom, double dTo, double dMin, double dMax, CEdge pOn) {
        if (dFrom == dTo) {
            if (dFrom < dMin || dFrom > dMax) {
                m_last.dWay = -1;
            }
            return;
        }
        const double dEnter = dFrom < dTo ? dMin : dMax;
        const double dLeave = dFrom < dTo ? dMax : dMin;
        const double dFirst = PlaceOf(dEnter, dFrom, dTo);
        const double dLast = PlaceOf(dLeave, dFrom, dTo);
        if (dFirst > m_first.dWay) {
            m_first = {dFirst, {}, {}};
        }
        if (dLast < m_last.dWay) {
            m_last = {dLast, {}, {}};
        }
        if (dFirst == m_first.dWay) { // in a corner both edges hold it
            m_first.*pOn = dEnter;
        }
        if (dLast == m_last.dWay) {
            m_last.*pOn = dLeave;
        }
    }

    /// Rounding does not lead out of the window.
    CCutPlace PlaceAt(const CEnd& end, int nEnd) const {
        const double dX = std::lerp(m_segment.dX0, m_segment.dX1, end.dWay);
        const double dY = std::lerp(m_segment.dY0, m_segment.dY1, end.dWay);
        return {end.onX.value_or(std::clamp(dX, m_window.dXMin, m_window.dXMax)),
                end.onY.value_or(std::clamp(dY, m_window.dYMin, m_window.dYMax)), nEnd, end.dWay};
    }

    const CSegment& m_segment;
    const CDataWindow& m_window;
    CEnd m_first{0, {}, {}};
    CEnd m_last{1, {}, {}};
};

/// One polyline's way through a window.
class CPolylineCutter {
public:
    CPolylineCutter(const double* pX, const double* pY, int nPoints, const CDataWindow& window,
                    CPieceSink& sink)
        : m_pX(pX), m_pY(pY), m_nPoints(nPoints), m_window(Hold(window)), m_sink(sink) {}

    void Cut() {
        for (int i = 0; i < m_nPoints;) {
            i = IsInside(i) ? AddInside(i) : Cross(SkipBeyond(i));
        }
    }

private:
    /// With edges that are numbers, what lies between them is one, too.
    static CDataWindow Hold(const CDataWindow& window) {
        constexpr double LARGEST = std::numeric_limits<double>::max();
        return {std::max(window.dXMin, -LARGEST), std::min(window.dXMax, LARGEST),
                std::max(window.dYMin, -LARGEST), std::min(window.dYMax, LARGEST)};
    }

    bool IsInside(int i) const {
        return (m_pX[i] >= m_window.dXMin) & (m_pX[i] <= m_window.dXMax) & (m_pY[i] >= m_window.dYMin) &
               (m_pY[i] <= m_window.dYMax);
    }
    bool IsPoint(int i) const { return std::isfinite(m_pX[i]) && std::isfinite(m_pY[i]); }
    CSegment SegmentTo(int nEnd) const { return {m_pX[nEnd - 1], m_pY[nEnd - 1], m_pX[nEnd], m_pY[nEnd]}; }

    /// Adds the points from an inner one on up to where the polyline leaves; the index behind them.
    int AddInside(int nFirst) {
        int nEnd = nFirst + 1;
        while (nEnd < m_nPoints && IsInside(nEnd)) {
            ++nEnd;
        }
        if (!m_bOpen) {
            m_sink.BeginPiece();
        }
        m_sink.AddPoints(nFirst, nEnd);
        if (nEnd < m_nPoints && IsPoint(nEnd)) {
            const CSegment segment = SegmentTo(nEnd);
            m_sink.AddCut(CSegmentCut(segment, m_window).GetLast(nEnd));
        }
        m_bOpen = false;
        return nEnd;
    }

    /// From an outer point on, the last one of those that lie one after another beyond the same edge: no
    /// segment between them comes near. Of a narrow window's curve these are most, so each edge has its loop.
    int SkipBeyond(int i) const {
        const auto skip = [&](auto isBeyond) {
            if (isBeyond(i)) {
                while (i + 1 < m_nPoints && isBeyond(i + 1)) {
                    ++i;
                }
            }
        };
        skip([&](int n) { return m_pX[n] < m_window.dXMin; });
        skip([&](int n) { return m_pX[n] > m_window.dXMax; });
        skip([&](int n) { return m_pY[n] < m_window.dYMin; });
        skip([&](int n) { return m_pY[n] > m_window.dYMax; });
        return i;
    }

    /// Adds what lies inside of the segment from an outer point on; the index of its other end.
    int Cross(int nFrom) {
        const int nEnd = nFrom + 1;
        if (nEnd == m_nPoints || !IsPoint(nFrom) || !IsPoint(nEnd)) {
            return nEnd;
        }
        const CSegment segment = SegmentTo(nEnd);
        const CSegmentCut cut(segment, m_window);
        if (!cut.IsEmpty()) {
            m_sink.BeginPiece();
            m_sink.AddCut(cut.GetFirst(nEnd));
            m_bOpen = IsInside(nEnd);
            if (!m_bOpen) {
                m_sink.AddCut(cut.GetLast(nEnd));
            }
        }
        return nEnd;
    }

    const double* const m_pX;
    const double* const m_pY;
    const int m_nPoints;
    const CDataWindow m_window;
    CPieceSink& m_sink;
    bool m_bOpen = false; ///< a piece was begun that the next point belongs to
};

} // namespace

void CutPolyline(const double* pX, const double* pY, int nPoints, const CDataWindow& window,
                 CPieceSink& sink) {
    const CNoTraps noTraps; // gaps are compared as they are
    if (window.dXMin <= window.dXMax && window.dYMin <= window.dYMax) {
        CPolylineCutter(pX, pY, nPoints, window, sink).Cut();
    }
}

} // namespace tessara
