#pragma once

#include <optional>
#include <vector>

#include "examples/flory/model/CloudPointCurve.h"
#include "examples/flory/model/Interaction.h"

namespace flory {

/// chi(T) = a + b/T, or chi(T, phi) = a + b/T + c phi, from measured points by least squares.
///
/// What is taken as uncertain is what was measured: chi, with the same error at every point, or the
/// temperature, with the same error. In the second case the fit is of 1/T = (chi - a)/b, each point with the
/// weight T^2, so that residuals are those of T to first order; the errors of a and b follow by propagation.
/// Errors are standard errors; NaN with as many points as parameters. Temperatures are in kelvin and
/// positive.
class CInteractionFit {
public:
    struct CPoint {
        double dTemperature;
        double dChi;
        double dPhi = 0; ///< counts only for c
    };
    struct CParameter {
        double dValue;
        double dError;
    };

    /// chi was measured. Throws std::invalid_argument for too few points, or points at one temperature (or,
    /// with c, at one composition).
    static CInteractionFit ToChi(const std::vector<CPoint>& points, bool bComposition);
    /// The temperatures were measured, at which chi is known.
    static CInteractionFit ToTemperature(const std::vector<CPoint>& points);

    CParameter A() const { return m_a; }
    CParameter B() const { return m_b; }
    std::optional<CParameter> C() const { return m_c; }
    /// Standard deviation of what was measured, chi or K.
    double Deviation() const { return m_dDeviation; }
    /// The temperature at which chi of an infinitely thin solution is 1/2; not positive where there is none.
    CParameter Theta() const;
    /// Without c. Throws std::invalid_argument when b came out as 0.
    CInteraction Interaction() const { return {m_a.dValue, m_b.dValue}; }

private:
    CInteractionFit() = default;

    CParameter m_a{};
    CParameter m_b{};
    std::optional<CParameter> m_c;
    double m_dCovariance = 0; ///< of a and b
    double m_dDeviation = 0;
};

/// chi at which a solution of the fraction dPhi begins to separate: the cloud point on the physical curve.
/// Nothing beyond its ends.
std::optional<double> CloudPointChi(const CCloudPointCurve& curve, double dPhi);

} // namespace flory
