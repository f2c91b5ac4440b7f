#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/plot/ChooseScale.h"

namespace tessara {

/// An axis that a program sets by hand.
struct CCustomScale {
    double dFrom;
    double dTo;
    double dStep;
    int nExponent;

    /// dFrom < dTo, dStep > 0 and the exponent from -8 to 8.
    TESSARA_API bool IsUsable() const;
    /// Sets the axis' ends, first and last tick, step and label exponent; its data range and options stay.
    TESSARA_API void ApplyTo(CHOOSESCALE& scale) const;
};

} // namespace tessara
