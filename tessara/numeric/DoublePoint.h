#pragma once

/// A point of the plane.
struct CDoublePoint {
    double x;
    double y;
};
