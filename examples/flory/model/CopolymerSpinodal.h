#pragma once

#include <memory>
#include <vector>

#include "examples/flory/model/CopolymerBlend.h"
#include "examples/flory/model/PartTable.h"

namespace flory {

/// The spinodal of copolymer blends along a straight path of compositions, from one blend to another of the
/// same components: the fractions at p in [0, 1] are (1 - p) times the first's and p times the second's.
///
/// Blends that differ in more than their fractions throw std::invalid_argument.
class CCopolymerSpinodal {
public:
    struct CLifshitzPoint {
        double p;
        double dChi;
    };

    CCopolymerSpinodal(CCopolymerBlend first, CCopolymerBlend second);

    /// The blend at p in [0, 1] (std::invalid_argument).
    CCopolymerBlend At(double p) const;

    /// A critical point of the separation into two liquids.
    struct CCriticalPoint {
        double p;
        double dChi;
    };

    /// The critical points on the trivial branch by ascending p, as far as no structure forms before,
    /// searched in 200 steps; relative accuracy about 1e-12. With d_i = f_i - sum(phi N f)/sum(phi N) they
    /// are the zeros of sum(phi_i N_i^2 d_i^3) (the third derivative of the free energy along the direction
    /// in which the blend becomes unstable). Where this is zero all along, as in symmetric blends, only the
    /// first is told.
    std::vector<CCriticalPoint> CriticalPoints() const;

    /// The Lifshitz points by ascending p, searched in 200 steps; relative accuracy about 1e-12.
    std::vector<CLifshitzPoint> LifshitzPoints() const;

    /// nPoints >= 2 compositions in the colours of SpinodalColor: parts of the trivial branch all along,
    /// then parts of the nontrivial branch where the blend becomes unstable first at x > 0, which begin and
    /// end in the Lifshitz points. The columns are p, chi, x. Compositions that are stable at any chi are
    /// left out.
    std::unique_ptr<CMultipartTable> Table(int nPoints) const;

private:
    void AddNontrivial(int nPoints, CPartTable& table) const;
    double SkewAt(double p) const;
    double SlopeAt(double p) const { return At(p).SlopeAtZero(); }

    CCopolymerBlend m_first;
    CCopolymerBlend m_second;
};

} // namespace flory
