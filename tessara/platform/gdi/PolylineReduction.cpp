#include "tessara/platform/gdi/PolylineReduction.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace tessara {

namespace {

/// The points kept so far at the front of the array that is being thinned.
class CKeptPoints {
public:
    explicit CKeptPoints(std::span<POINT> points) : m_points(points) {}

    void Add(POINT point) {
        if (m_nCount == 0 || m_points[m_nCount - 1] != point) {
            m_points[m_nCount++] = point;
        }
    }
    std::size_t GetCount() const { return m_nCount; }

private:
    std::span<POINT> m_points;
    std::size_t m_nCount = 0;
};

/// The ends of a segment inside the box, by Liang and Barsky's method.
std::optional<std::pair<POINT, POINT>> ClipSegment(POINT from, POINT to, const RECT& box) {
    const double dX = static_cast<double>(to.x) - from.x;
    const double dY = static_cast<double>(to.y) - from.y;
    double dEnter = 0.0;
    double dLeave = 1.0;
    const auto cut = [&](double dDirection, double dDistance) {
        if (dDirection == 0.0) {
            return dDistance >= 0.0;
        }
        const double dAt = dDistance / dDirection;
        if (dDirection < 0.0) {
            dEnter = std::max(dEnter, dAt);
        } else {
            dLeave = std::min(dLeave, dAt);
        }
        return dEnter <= dLeave;
    };
    if (!cut(-dX, static_cast<double>(from.x) - box.left) ||
        !cut(dX, static_cast<double>(box.right) - from.x) ||
        !cut(-dY, static_cast<double>(from.y) - box.top) ||
        !cut(dY, static_cast<double>(box.bottom) - from.y)) {
        return std::nullopt;
    }
    const auto at = [&](double dPart) {
        return POINT{std::clamp(ToCoordinate(std::round(from.x + dX * dPart)), box.left, box.right),
                     std::clamp(ToCoordinate(std::round(from.y + dY * dPart)), box.top, box.bottom)};
    };
    return std::pair{dEnter > 0.0 ? at(dEnter) : from, dLeave < 1.0 ? at(dLeave) : to};
}

bool Contains(const RECT& box, POINT point) {
    return point.x >= box.left && point.x <= box.right && point.y >= box.top && point.y <= box.bottom;
}

} // namespace

std::size_t MergeColumns(std::span<POINT> points) {
    CKeptPoints kept(points);
    const std::size_t nPoints = points.size();
    for (std::size_t nFirst = 0; nFirst < nPoints;) {
        const POINT first = points[nFirst];
        LONG nLow = first.y;
        LONG nHigh = first.y;
        std::size_t nLowAt = nFirst;
        std::size_t nHighAt = nFirst;
        std::size_t nEnd = nFirst + 1;
        for (; nEnd < nPoints && points[nEnd].x == first.x; ++nEnd) {
            const LONG nY = points[nEnd].y;
            if (nY < nLow) {
                nLow = nY;
                nLowAt = nEnd;
            }
            if (nY > nHigh) {
                nHigh = nY;
                nHighAt = nEnd;
            }
        }
        const LONG nLast = points[nEnd - 1].y;
        kept.Add(first);
        kept.Add({first.x, nLowAt < nHighAt ? nLow : nHigh});
        kept.Add({first.x, nLowAt < nHighAt ? nHigh : nLow});
        kept.Add({first.x, nLast});
        nFirst = nEnd;
    }
    return kept.GetCount();
}

void ClipPolyline(std::span<const POINT> points, const RECT& box,
                  const std::function<void(std::span<const POINT>)>& emit) {
    if (std::all_of(points.begin(), points.end(), [&](POINT point) { return Contains(box, point); })) {
        emit(points);
        return;
    }
    std::vector<POINT> piece;
    const auto flush = [&] {
        if (!piece.empty()) {
            emit(piece);
            piece.clear();
        }
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto segment = ClipSegment(points[i - 1], points[i], box);
        if (!segment) {
            flush();
            continue;
        }
        if (piece.empty() || piece.back() != segment->first) {
            flush();
            piece.push_back(segment->first);
        }
        piece.push_back(segment->second);
    }
    flush();
}

} // namespace tessara
