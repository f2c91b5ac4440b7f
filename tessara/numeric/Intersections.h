#pragma once

#include "tessara/numeric/MultipartTable.h"

// Where polylines cross in a plane: the parts of one table themselves and each other, or those of one table
// the parts of another. A segment joins two consecutive rows of one part; two columns span the plane.
//
// Which segments cross. Two segments cross when their bounding boxes meet, their lines are not parallel, and
// the point where the lines meet, as computed, lies in both boxes, bounds included. No tolerance is used, so
// rounding decides at end points. Segments on one line do not cross. Crossings are not merged: one at a
// vertex can be found for every segment that ends there.
//
// What is found. Each crossing is a part of two rows of colour 0, both with the crossing point in the plane's
// columns. The first row is seen from the second (later) segment: its other columns are interpolated along
// that segment by the ordinate, and are those of the segment's second end when it is level. The second row is
// seen from the first segment. Crossings come in the order of the first segment, by part and row, then of the
// second. The result has one colour; the caller owns it. Null when nothing crosses.
//
// Any numbers are accepted. A segment whose first end is not a number crosses nothing; infinite coordinates
// and a second end that is not a number go through the same formulas as others. Rows in no part, and rows of
// a part that the table does not have, are passed over; parts may overlap.
//
// Method. Segments are cut into monotone chains, or into groups of a few where the polyline turns often,
// under a tree of boxes, eight to a node. Pairs whose boxes meet are found by descending the tree, and long
// chains in eighths; then each pair is tested, and the crossings are sorted by counting. For n segments and k
// crossings of a smooth curve this takes about n + k log n steps, for others about n log n and one for each
// pair of segments whose boxes meet; memory is proportional to n + k.
//
// Running out of memory, and more crossings than a table has rows for (2^30 - 1), throw CMemoryException; the
// tables are never changed. Column indices are not checked. Any number of threads may search tables that none
// changes.
//
//     std::unique_ptr<CMultipartTable> pPoints(Find2DSelfIntersections(&section, 0, 1));

/// The crossings of segments of one table in its columns nX and nY. Neighbours in one part are not looked at;
/// of each other pair the segment of the smaller row is the first, also where parts overlap. The result has
/// the table's columns.
TESSARA_API CMultipartTable* Find2DSelfIntersections(CMultipartTable* pTable, int nX, int nY);

/// The crossings of a segment of pA, in its columns nXA and nYA, with one of pB, in its columns nXB and nYB.
/// The result has as many columns as the wider table; a column that a segment's table lacks is 0.
TESSARA_API CMultipartTable* FindIntersections(CMultipartTable* pA, CMultipartTable* pB, int nXA, int nYA,
                                               int nXB, int nYB);
