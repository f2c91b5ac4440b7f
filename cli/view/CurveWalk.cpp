#include "cli/view/CurveWalk.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessara {

namespace {

using STOP = CWalkPath::STOP;

/// A place in the window, in parts of pixels.
struct SPOT {
    double dAcross;
    double dDown;

    SPOT(const CPixelMap& map, double dX, double dY)
        : dAcross(map.rect.Width() * (dX - map.dXLower) / (map.dXUpper - map.dXLower)),
          dDown(map.rect.Height() * (dY - map.dYLower) / (map.dYUpper - map.dYLower)) {}

    double DistanceTo(const SPOT& other) const {
        return std::hypot(dAcross - other.dAcross, dDown - other.dDown);
    }
};

/// How far along the line from a to b, from 0 to 1, the foot of a spot lies.
double FootOf(const SPOT& spot, const SPOT& a, const SPOT& b) {
    const double dAcross = b.dAcross - a.dAcross;
    const double dDown = b.dDown - a.dDown;
    const double dSquare = dAcross * dAcross + dDown * dDown;
    const double dAlong = (spot.dAcross - a.dAcross) * dAcross + (spot.dDown - a.dDown) * dDown;
    return dSquare > 0 ? std::clamp(dAlong / dSquare, 0.0, 1.0) : 0;
}

/// The nearest of what is offered; the first of equals.
class CNearestPlace {
public:
    bool Offer(double dDistance) {
        if (!(dDistance < m_dNearest)) {
            return false;
        }
        m_dNearest = dDistance;
        return true;
    }

private:
    double m_dNearest = std::numeric_limits<double>::infinity();
};

} // namespace

void CWalkPath::AddPart(std::span<const double> x, std::span<const double> y) {
    bool bJoined = false;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const bool bPoint = std::isfinite(x[i]) && std::isfinite(y[i]);
        if (bPoint) {
            m_stops.push_back({x[i], y[i], bJoined});
        }
        bJoined = bPoint;
    }
}

void CWalkPath::AddPoints(std::span<const double> x, std::span<const double> y) {
    for (std::size_t i = 0; i < x.size(); ++i) {
        AddPart(x.subspan(i, 1), y.subspan(i, 1));
    }
}

bool CCurveWalk::IsShown(double dX, double dY) const {
    return dX >= m_map.dXLower && dX <= m_map.dXUpper && dY >= m_map.dYLower && dY <= m_map.dYUpper;
}

std::optional<std::size_t> CCurveWalk::Search(PLACE place, EDirection eDirection,
                                              const POINT* pExcept) const {
    const bool bForward = eDirection == EDirection::forward;
    const auto nCount = static_cast<std::ptrdiff_t>(m_stops.size());
    for (std::ptrdiff_t i = bForward ? place.nBehind : place.nBefore; i >= 0 && i < nCount;
         i += bForward ? 1 : -1) {
        const auto nStop = static_cast<std::size_t>(i);
        const STOP& stop = m_stops[nStop];
        if (IsShown(stop.dX, stop.dY) && !(pExcept && m_map.GetPixel(stop.dX, stop.dY) == *pExcept)) {
            return nStop;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> CCurveWalk::GetFirst(EDirection eDirection) const {
    return Search({static_cast<std::ptrdiff_t>(m_stops.size()) - 1, 0}, eDirection, nullptr);
}

std::optional<std::size_t> CCurveWalk::GetNearest(double dX, double dY) const {
    const SPOT mark(m_map, dX, dY);
    CNearestPlace nearest;
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < m_stops.size(); ++i) {
        const STOP& stop = m_stops[i];
        if (IsShown(stop.dX, stop.dY) && nearest.Offer(mark.DistanceTo({m_map, stop.dX, stop.dY}))) {
            found = i;
        }
    }
    return found;
}

CCurveWalk::PLACE CCurveWalk::Locate(double dX, double dY) const {
    const SPOT mark(m_map, dX, dY);
    CNearestPlace nearest;
    PLACE place = {-1, 0};
    for (std::size_t i = 0; i < m_stops.size(); ++i) {
        const auto n = static_cast<std::ptrdiff_t>(i);
        const SPOT here(m_map, m_stops[i].dX, m_stops[i].dY);
        if (m_stops[i].bJoined) {
            const SPOT before(m_map, m_stops[i - 1].dX, m_stops[i - 1].dY);
            const double dFoot = FootOf(mark, before, here);
            const STOP foot = {std::lerp(m_stops[i - 1].dX, m_stops[i].dX, dFoot),
                               std::lerp(m_stops[i - 1].dY, m_stops[i].dY, dFoot), true};
            if (dFoot > 0 && dFoot < 1 && nearest.Offer(mark.DistanceTo({m_map, foot.dX, foot.dY}))) {
                place = {n - 1, n};
            }
        }
        if (nearest.Offer(mark.DistanceTo(here))) {
            place = {n - 1, n + 1};
        }
    }
    return place;
}

std::optional<std::size_t> CCurveWalk::Step(double dX, double dY, std::optional<std::size_t> at,
                                            EDirection eDirection) const {
    const auto n = static_cast<std::ptrdiff_t>(at.value_or(0));
    const PLACE place = at ? PLACE{n - 1, n + 1} : Locate(dX, dY);
    if (IsShown(dX, dY)) {
        const POINT pixel = m_map.GetPixel(dX, dY);
        return Search(place, eDirection, &pixel);
    }
    if (const auto next = Search(place, eDirection, nullptr)) {
        return next;
    }
    const bool bForward = eDirection == EDirection::forward;
    return Search(place, bForward ? EDirection::back : EDirection::forward, nullptr);
}

} // namespace tessara
