#pragma once

#include <memory>
#include <span>

#include "tessara/numeric/CurvePartInfo.h"
#include "tessara/numeric/Table.h"

namespace tessara {

/// The points of a multipart container that a section looks at.
struct CSectionSource {
    std::span<const double* const> columns; ///< the coordinates, nPoints values each
    int nPoints;
    std::span<const CCurvePartInfo> parts;
};

/// Every point where a part reaches the level dValue of one coordinate, pLevel, ordered by part and by row: a
/// table of as many columns as the source has, or null when there is none.
///
/// A segment counts when it starts on the level or passes through it, not when it ends or lies on it; the
/// last point of all counts by itself when it is on the level. Rows of a part beyond nPoints are left out.
std::unique_ptr<CTable> LevelSection(const CSectionSource& source, const double* pLevel, double dValue);

} // namespace tessara
