#pragma once

#include "cli/DiagramData.h"

namespace tessara {

/// Adds the lines that the element read-out shows of each element: its name, its coordinates in the formats
/// of the axes, the shadow point's abscissa, and the further columns that the file has.
void AddElementFormats(CPhaseDiagramOutput& output, const DIAGRAM& diagram, const CDiagramData& data);

/// What a branch of a curve is called, in brackets; nothing for a curve of one kind.
const char* SpinodalBranch(const DIAGRAMCURVE& spinodal, int nColor);
const char* BinodalBranch(const DIAGRAMCURVE& binodal, int nColor);

} // namespace tessara
