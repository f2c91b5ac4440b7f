#pragma once

#include <vector>

namespace flory {

/// One component of a molten blend of monomers A and B.
struct CBlendComponent {
    double dLength; ///< N, monomers of a chain, positive
    double dA;      ///< f, the share of A in [0, 1]: 1 homopolymer A, 0 homopolymer B, between: a diblock A-B
    double dPhi;    ///< volume fraction in the blend
};

/// A blend of homopolymers A and B and diblock copolymers, all monomers of the same volume and statistical
/// length b, in the random-phase approximation (Leibler 1980; Broseta and Fredrickson 1990).
///
/// Wavenumbers enter as x = q^2 b^2 / 6. The homogeneous blend becomes unstable at x where 2 chi = R(x); the
/// spinodal is where that happens first. At x = 0 it separates into two liquids (the trivial branch), at
/// x > 0 it forms a structure of that period (the nontrivial one); in between is a Lifshitz point.
///
/// Fractions are in [0, 1] and sum to 1 within 1e-9. Anything else throws std::invalid_argument.
class CCopolymerBlend {
public:
    /// Where the blend becomes unstable first at x > 0.
    struct CMinimum {
        double x;
        double dChi;
    };

    explicit CCopolymerBlend(std::vector<CBlendComponent> components);

    const std::vector<CBlendComponent>& Components() const { return m_components; }

    /// R for x >= 0; infinite when the blend cannot become unstable at x.
    double R(double x) const;
    /// The slope of R at x = 0: negative when the spinodal is nontrivial, zero at a Lifshitz point, infinite
    /// (negative) when R(0) is.
    double SlopeAtZero() const;
    double TrivialChi() const { return R(0) / 2; }
    /// The minimum of R/2 over x > 0; x = 0 when R is nowhere less than at 0, and when the blend is stable at
    /// every x.
    CMinimum NontrivialMinimum() const;

private:
    struct CCorrelations {
        double dAA;
        double dBB;
        double dAB;

        double Sum() const { return dAA + dBB + 2 * dAB; }
        double Determinant() const { return dAA * dBB - dAB * dAB; }
    };

    CCorrelations Correlations(double x) const;
    CCorrelations Slopes() const;

    std::vector<CBlendComponent> m_components;
};

} // namespace flory
