#pragma once

/// One part of a multipart table or curve: a run of consecutive rows (points), drawn as one open polyline.
struct CCurvePartInfo {
    int nFirst;  ///< index of the part's first row (point)
    int nPoints; ///< number of rows (points) in the part
    int nColor;  ///< colour index of the part
};
