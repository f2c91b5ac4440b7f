#pragma once

#include "tessara/platform/gdi/MetaFileDC.h"
#include "tessara/plot/ChooseScale.h"
#include "tessara/plot/Page.h"

// Ticks, labels and boxes for framed and pseudo-3D plots on the logical page. All coordinates are logical.
// Lines use the surface's pen, labels its font; what is drawn on the surface is repeated on the picture when
// one is given.

/// Ticks and labels below the frame. Labels show raw values.
TESSARA_API void DrawHorizontalTickMarks(CDC* pDC, const CRect& rc, const CHOOSESCALE& scale,
                                         CMetaFileDC* pMetaDC);

/// Ticks and labels left of the frame. Labels show values times the scale's factor.
TESSARA_API void DrawVerticalTickMarks(CDC* pDC, const CRect& rc, const CHOOSESCALE& scale,
                                       CMetaFileDC* pMetaDC);

/// Ticks and labels along the depth axis, from the front frame's bottom-right corner to the back frame's. The
/// axis spans the data range of the scale. Labels show values times the scale's factor.
TESSARA_API void DrawDepthTickMarks(CDC* pDC, const CRect& rcFront, const CRect& rcBack,
                                    const CHOOSESCALE& scale, CDC* pMetaDC);

/// The three axes of a pseudo-3D plot: horizontal and vertical on the front frame, and depth.
TESSARA_API void DrawTickMarks(CDC* pDC, const CRect& rcFront, const CRect& rcBack, const CHOOSESCALE& scaleX,
                               const CHOOSESCALE& scaleY, CHOOSESCALE scaleZ, CMetaFileDC* pMetaDC);

/// The width of the widest vertical label that lies on the axis, in the surface's font; 0 without one.
TESSARA_API int GetMaxTickValueWidth(CDC* pDC, CHOOSESCALE& scale);

/// A rectangle in the surface's pen and brush. rcFront is not used.
TESSARA_API void DrawBox(CDC* pDC, CRect& rcFront, CRect& rcBox);

/// Sets rcOut to the front frame's size inside rcIn, at (0, 0), leaving room for a depth of depthX and depthY
/// parts of its width and height. reserved is not used.
TESSARA_API void CalculateBoxSize(int reserved, CRect& rcIn, CRect& rcOut, double depthX, double depthY);
