#pragma once

#include <memory>

#include "cli/DiagramFile.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"

namespace tessara {

/// The elements of a diagram, cut to the region that it shows and split at gaps, as the renderer takes them.
///
/// An element of which nothing is left stays there without parts, so that a diagram which shows no curve
/// differs from one that has none.
class CDiagramData {
public:
    /// Throws CException when the diagram has elements of which the region shows nothing.
    explicit CDiagramData(const DIAGRAM& diagram);

    /// Gives the output views of the curves and copies of the points. This object must outlive their use.
    void ApplyTo(CPhaseDiagramOutput& output);

private:
    std::unique_ptr<CMultipartTable>
        m_pCloudPointCurve; ///< abscissae and ordinates; each null when there is none
    std::unique_ptr<CMultipartTable> m_pShadowCurve;
    std::unique_ptr<CMultipartCurve> m_pSpinodal;
    DIAGRAMPOINTS m_Critical;
    DIAGRAMPOINTS m_Lifshitz;
    DIAGRAMPOINTS m_Multiphase;
};

} // namespace tessara
