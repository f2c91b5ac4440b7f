#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

enum ChooseScaleOption : BYTE {
    CS_WHOLESTEPS = 1, ///< rebalances the outward extensions at the two ends
    CS_FROMZERO = 2    ///< the axis and its first tick start at 0
};

/// One axis of a plot: the range of the data, and the ends, ticks and label exponent that the axis is drawn
/// with.
///
/// ChooseScale fills the second half from the first; a program may fill it by hand instead. Default-made it
/// is an axis from -1 to 1 with ticks every 0.5. Labels show values times dFactor = 10 to the power
/// nExponent.
///
///     CHOOSESCALE scale;
///     scale.dMin = 0.13;
///     scale.dMax = 0.87;
///     ChooseScale(&scale); // axis 0.1 to 0.9, ticks 0.2, 0.4, 0.6, 0.8
struct TESSARA_API CHOOSESCALE {
    CHOOSESCALE();

    double dMax;       ///< largest data value
    double dMin;       ///< smallest data value
    double dUpper;     ///< upper end of the axis
    double dLower;     ///< lower end of the axis
    double dLastTick;  ///< highest labelled tick
    double dFirstTick; ///< lowest labelled tick
    double dStep;      ///< distance of neighbouring ticks, positive
    BYTE bOptions;     ///< ChooseScaleOption bits
    int nExponent;     ///< decimal exponent of the labels
    double dFactor;    ///< 10 to the power nExponent
};

/// Chooses round ends, ticks and a label exponent for the data range dMin..dMax of the record.
///
/// The step is 0.5, 1 or 2 times a power of ten. Equal or nearly equal data (relative range at most 1e-10),
/// data below the smallest range that can be divided, and dMax below dMin give an axis from one unit below
/// dMax to one above, as far as a double tells them apart: from about 1e16 on it may have no extent and then
/// no tick. Total: a bound that is not finite counts as 0, and bounds beyond 4e307 as that.
TESSARA_API void ChooseScale(CHOOSESCALE* scale);
