#pragma once

#include "tessara/platform/base/Api.h"

class CMultipartCurve;
class CMultipartTable;

// Cutting curves and tables down to a rectangle, its edges included.
//
// A segment of a part reaches into the rectangle unless both its ends lie on the far side of one edge: a test
// of bounding boxes, which lets some segments past a corner through. What is kept of a part are its runs of
// such segments, each a new part of the same colour, in order. Rows outside parts, parts of one row, and what
// a part has beyond the last row are left out. A row with NaN is never on the far side and is kept.
// REQUIRES: xMin <= xMax and yMin <= yMax; otherwise nothing is promised but that the functions end quickly.
//
// The caller owns the result, which owns its data; null when nothing reaches into the rectangle. Running out
// of memory throws CMemoryException.

/// The runs of a curve, clipped: an end outside an edge is moved along its segment onto the edge (see
/// LinearInterpolation), one edge after another and one segment after another, each seeing its points as the
/// ones before left them. A segment beyond an edge becomes a point on it.
TESSARA_API CMultipartCurve* ZoomMultipartCurve(CMultipartCurve* pCurve, double xMin, double yMin,
                                                double xMax, double yMax);

/// The runs of a table in the columns nX and nY: whole rows of all columns, not clipped, so that the ends of
/// a run may lie outside. Column indices are not checked.
TESSARA_API CMultipartTable* Zoom2dMultipartTable(CMultipartTable* pTable, int nX, int nY, double xMin,
                                                  double yMin, double xMax, double yMax);
