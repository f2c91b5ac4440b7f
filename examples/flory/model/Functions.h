#pragma once

// The few functions of one variable that the exact solution of the coexistence conditions is made of, each
// without the cancellation that its plain form has near zero.

namespace flory {

/// H(x) = (x/2) coth(x/2) - 1: even, zero at zero, |x|/2 - 1 far away. Relative error below 2e-14.
double ExcessH(double x);

/// The derivative of ExcessH: odd, x/6 near zero, 1/2 far away.
double ExcessHSlope(double x);

/// The x >= 0 with ExcessH(x) = dY; 0 for dY <= 0, NaN for NaN.
double InverseExcessH(double dY);

/// (1 - u) ln(1 - u) + u for u <= 1, relative error below 1e-13: u^2/2 near zero, 1 at 1.
double MixingExcess(double u);

/// y exp(y) - (exp(y) - 1), relative error below 1e-13: y^2/2 near zero, 1 at minus infinity.
double StretchExcess(double y);

} // namespace flory
