#pragma once

#include <string>
#include <vector>

#include "cli/DiagramFile.h"
#include "tessara/numeric/MultipartTable.h"

namespace flory {

/// Which columns of a table become which columns of a diagram.
struct CPartColumns {
    int nX;
    int nShadow; ///< -1 for none
    int nY;
    std::vector<std::pair<int, std::string>> further; ///< by name
};

/// Adds the parts of a table to a curve. bBranches keeps their colours, otherwise the curve is of one kind.
void AddParts(tessara::DIAGRAMCURVE& curve, const CMultipartTable& table, const CPartColumns& columns,
              bool bBranches);

} // namespace flory
