#pragma once

#include "cli/DiagramData.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"

namespace tessara {

/// A diagram as its record has it, ready to be painted or exported. Keeps the points of its curves alive.
/// Throws CException when there is nothing to be seen of it.
class CDiagramOutput : public CPhaseDiagramOutput {
public:
    explicit CDiagramOutput(const DIAGRAM& diagram);

protected:
    const CDiagramData& GetData() const { return m_Data; }

private:
    void SetTexts(const DIAGRAM& diagram);
    void SetRegion(const DIAGRAM& diagram);
    void SetBoundaries(const DIAGRAM& diagram);
    void SetLook(const DIAGRAM& diagram);

    CDiagramData m_Data;
};

} // namespace tessara
