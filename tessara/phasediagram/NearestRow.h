#pragma once

#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"

/// The row of a table whose point (columns nX and nY) lies nearest to (dX, dY) in the plane, the first of
/// equally near ones, as a new table of one row with all columns. Null when there is none: no row, or only
/// such that are not a number. The caller owns the result.
TESSARA_API CTable* NearestTableRow(double dX, double dY, int nX, int nY, CTable* pTable);

/// The nearest row among those where the parts of a table reach the abscissa dX or the ordinate dY, between
/// its own rows too (CMultipartTable::Value); of two that are equally near the one at the ordinate.
TESSARA_API CTable* NearestSectionRow(double dX, double dY, int nX, int nY, CMultipartTable* pTable);
