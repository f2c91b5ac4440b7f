#pragma once

#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"
#include "tessara/platform/gdi/MetaFileDC.h"
#include "tessara/plot/ChooseScale.h"

// Tables drawn into frames on the logical page. Values off the axes are drawn outside the frame; rows that
// are infinite or not a number are left out (in a curve, as gaps). What is drawn on the surface is repeated
// on the picture when given.

/// Draws each row of a table as a marker in a pseudo-3D box: in the back frame, with drop lines in the colour
/// to the floor and the wall, on along them to the front frame, and small markers where the lines meet the
/// edges.
TESSARA_API void DrawPointsTable(CDC* pDC, CRect& rcFront, int nKind, COLORREF color, CHOOSESCALE scaleX,
                                 CHOOSESCALE scaleY, CRect& rcBack, CTable* pTable, int nColumnX,
                                 int nColumnY, CMetaFileDC* pMetaDC);

/// Draws each part of a table as one polyline of style nStyle (see PolyLineStippledEx), with a dash pattern
/// when bStippled is set. In colour the surface's own pen is used, unless the surface is a printer with fewer
/// than three colours.
TESSARA_API void DrawMultipartCurve(CDC* pDC, int nStyle, CHOOSESCALE scaleX, CHOOSESCALE scaleY, CRect& rc,
                                    CMultipartTable* pTable, int nColumnX, int nColumnY, int bStippled,
                                    CMetaFileDC* pMetaDC);
