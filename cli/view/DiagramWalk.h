#pragma once

#include <optional>

#include "cli/view/ShownPlot.h"
#include "cli/view/ViewedDiagram.h"

namespace tessara {

/// Walks the mark of a diagram along the elements that can be picked. The diagram must outlive the object.
class CDiagramWalk {
public:
    explicit CDiagramWalk(CViewedDiagram& diagram) : m_diagram(diagram) {}

    /// See CShownPlot.
    bool Walk(EWalk eWalk);

private:
    /// Where a walk has put the mark: a curve that crosses itself has several points there.
    struct PLACE {
        DWORD crElement;
        std::size_t nStop;
        CWalkPath::STOP stop;
    };

    bool Begin(CCurveWalk::EDirection eDirection);
    bool WalkAlong(CCurveWalk::EDirection eDirection);
    bool WalkAcross(int nStep);
    std::optional<std::size_t> GetStop(const CWalkPath& path) const;
    bool Pick(DWORD crElement, const CWalkPath& path, std::optional<std::size_t> stop);

    CViewedDiagram& m_diagram;
    std::optional<PLACE> m_place;
};

} // namespace tessara
