#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/DiagramFile.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"

namespace tessara {

/// The elements of a diagram, cut to the region that it shows and split at gaps, as the renderer takes them.
///
/// Curves are tables: abscissae in column 0, ordinates in column 1, the abscissae of shadow points in column
/// 2 of the binodal section, and then the further columns by their names. What a part does not have is
/// not-a-number. Read-outs find the rows of every element. An element of which nothing is left stays there
/// without parts, so that a diagram which shows no curve differs from one that has none.
class CDiagramData {
public:
    /// Throws CException when the diagram has elements of which the region shows nothing.
    explicit CDiagramData(const DIAGRAM& diagram);

    /// Gives the output views of the curves and copies of the points. This object must outlive their use.
    void ApplyTo(CPhaseDiagramOutput& output);

    bool HasShadow() const { return m_bShadow; }
    static constexpr int SHADOW_COLUMN = 2;
    static constexpr int FIRST_BINODAL_COLUMN = 3; ///< of the further ones
    static constexpr int FIRST_SPINODAL_COLUMN = 2;
    /// The names of the further columns, in their order.
    const std::vector<std::string>& GetBinodalColumns() const { return m_BinodalColumns; }
    const std::vector<std::string>& GetSpinodalColumns() const { return m_SpinodalColumns; }

private:
    void MakeBinodal(const DIAGRAMCURVE& binodal, const PLOTWINDOW& window);
    void MakeSpinodal(const DIAGRAMCURVE& spinodal, const PLOTWINDOW& window);
    bool IsEmpty() const;

    std::vector<std::string> m_BinodalColumns;
    std::vector<std::string> m_SpinodalColumns;
    std::unique_ptr<CMultipartTable> m_pBinodal; ///< each null when there is none
    /// The parts of the shadow curve where they are not those of the cloud-point curve.
    std::unique_ptr<CMultipartTable> m_pShadow;
    std::unique_ptr<CMultipartTable> m_pSpinodal;
    bool m_bShadow = false;
    CTable m_Critical;
    CTable m_Lifshitz;
    CTable m_Multiphase;
};

} // namespace tessara
