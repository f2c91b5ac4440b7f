#pragma once

#include <vector>

#include "examples/flory/model/Sample.h"

namespace flory {

/// The tangent-plane test of a homogeneous phase: whether a second phase, with species i exp(s r_i) times as
/// concentrated, would lower the free energy.
///
/// With D = phi sum w_i (exp(s r_i) - 1) and u = D/(1 - phi) such a phase does so exactly when chi exceeds
///
///     X(s) = [(1-phi) ((1-u) ln(1-u) + u) + phi sum (w_i/r_i) (s r_i exp(s r_i) - exp(s r_i) + 1)] / D^2
///
/// X(0) is the spinodal. The phase is stable exactly when chi <= min X. Flory-Huggins free energy; the
/// criterion is Gibbs'. Relative accuracy of X about 1e-12.
///
/// The sample gives the chain lengths; the weights within the polymer are those of the phase. A fraction
/// outside (0, 1) throws std::invalid_argument.
class CTangentPlane {
public:
    struct CMinimum {
        double dS;
        double dX;
    };

    CTangentPlane(const CSample& sample, double dPhi);

    /// X at s; infinite where the second phase would hold more than the whole volume.
    double X(double s) const;
    /// Has the sign of dX/ds for s > 0 and the other for s < 0; without the cancellation of differences of X.
    double Slope(double s) const;
    /// The local minima of X by ascending s, the far ends included when X falls towards them; at least one.
    std::vector<CMinimum> Minima() const;
    /// The least of them.
    CMinimum Minimum() const;

private:
    double Amount(double s) const;
    double Gain(double s, double dAmount) const;
    std::vector<CMinimum> Grid() const; ///< X at places close enough to see every minimum

    CSample m_sample;
    double m_dPhi;
    double m_dHighest; ///< s at which the second phase is without solvent
    double m_dLowest;  ///< s below which it is without polymer
};

} // namespace flory
