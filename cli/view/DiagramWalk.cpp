#include "cli/view/DiagramWalk.h"

#include <algorithm>

namespace tessara {

bool CDiagramWalk::Walk(EWalk eWalk) {
    if (m_diagram.GetPixelMap().rect.IsRectEmpty()) {
        return false;
    }
    const auto eDirection =
        eWalk == EWalk::back ? CCurveWalk::EDirection::back : CCurveWalk::EDirection::forward;
    const std::vector<DWORD> colors = m_diagram.GetPickable();
    const bool bPicked = std::find(colors.begin(), colors.end(), m_diagram.GetPicked()) != colors.end();
    if (!m_diagram.IsMarked() || !bPicked) {
        return Begin(eDirection);
    }
    if (eWalk == EWalk::previousCurve || eWalk == EWalk::nextCurve) {
        return WalkAcross(eWalk == EWalk::nextCurve ? 1 : -1);
    }
    return WalkAlong(eDirection);
}

/// Picks the first element of which something is shown: near the mark, where there is one.
bool CDiagramWalk::Begin(CCurveWalk::EDirection eDirection) {
    for (const DWORD color : m_diagram.GetPickable()) {
        const CWalkPath path = m_diagram.GetPath(color);
        const CCurveWalk walk(path, m_diagram.GetPixelMap());
        if (Pick(color, path,
                 m_diagram.IsMarked() ? walk.GetNearest(m_diagram.GetMarkX(), m_diagram.GetMarkY())
                                      : walk.GetFirst(eDirection))) {
            return true;
        }
    }
    return false;
}

bool CDiagramWalk::WalkAlong(CCurveWalk::EDirection eDirection) {
    const DWORD color = m_diagram.GetPicked();
    const CWalkPath path = m_diagram.GetPath(color);
    const CCurveWalk walk(path, m_diagram.GetPixelMap());
    return Pick(color, path,
                walk.Step(m_diagram.GetMarkX(), m_diagram.GetMarkY(), GetStop(path), eDirection));
}

/// To the next element of which something is shown, the first after the last.
bool CDiagramWalk::WalkAcross(int nStep) {
    const std::vector<DWORD> colors = m_diagram.GetPickable();
    const auto nCount = static_cast<int>(colors.size());
    const auto nPicked =
        static_cast<int>(std::find(colors.begin(), colors.end(), m_diagram.GetPicked()) - colors.begin());
    for (int i = 1; i < nCount; ++i) {
        const DWORD color = colors[static_cast<std::size_t>((nPicked + i * nStep + i * nCount) % nCount)];
        const CWalkPath path = m_diagram.GetPath(color);
        const CCurveWalk walk(path, m_diagram.GetPixelMap());
        if (Pick(color, path, walk.GetNearest(m_diagram.GetMarkX(), m_diagram.GetMarkY()))) {
            return true;
        }
    }
    return false;
}

/// Where the mark stands since the last step, unless a click has moved it.
std::optional<std::size_t> CDiagramWalk::GetStop(const CWalkPath& path) const {
    const bool bThere = m_place && m_place->crElement == m_diagram.GetPicked() &&
                        m_place->nStop < path.GetStops().size() && m_place->stop.dX == m_diagram.GetMarkX() &&
                        m_place->stop.dY == m_diagram.GetMarkY();
    return bThere ? std::optional(m_place->nStop) : std::nullopt;
}

bool CDiagramWalk::Pick(DWORD crElement, const CWalkPath& path, std::optional<std::size_t> stop) {
    if (!stop) {
        return false;
    }
    m_place = {crElement, *stop, path.GetStops()[*stop]};
    m_diagram.PickPoint(m_place->stop.dX, m_place->stop.dY, crElement);
    return true;
}

} // namespace tessara
