#pragma once

#include <memory>

#include "cli/DiagramFile.h"
#include "cli/view/ShownPlot.h"

namespace tessara {

/// The rows at which a binodal section was cut, as markers: the shadow points' abscissae over the coordinate
/// that was not held, or, in a table without them, the held column. nColumn is the one that was held: 0 the
/// abscissa, 1 the ordinate. Null when no row has both numbers.
std::unique_ptr<CShownPlot> OpenSectionPlot(const DIAGRAM& diagram, int nColumn, const CTable& section);

} // namespace tessara
