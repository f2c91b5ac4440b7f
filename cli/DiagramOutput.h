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
    /// Shows another record, without a zoom of before. Throws as the constructor does, and nothing has
    /// changed then. REQUIRES: the record has a cloud-point curve, and a spinodal, if the one before had.
    void TakeDiagram(const DIAGRAM& diagram);
    const CDiagramData& GetData() const { return *m_pData; }

private:
    void SetTexts(const DIAGRAM& diagram);
    void SetRegion(const DIAGRAM& diagram);
    void SetBoundaries(const DIAGRAM& diagram);
    void SetLook(const DIAGRAM& diagram);

    std::unique_ptr<CDiagramData> m_pData;
};

} // namespace tessara
