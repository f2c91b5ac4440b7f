#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "examples/flory/model/CoexistenceFunction.h"

namespace flory {

/// Three phases in equilibrium of which one is the whole solution: a corner of the cloud-point curve, where
/// two of its branches cross. The other two have the polymer fractions sum w_i phi exp(sigma r_i).
struct CThreePhasePoint {
    double dPhi;        ///< polymer fraction of the solution
    double dChi;        ///< interaction parameter
    double dSigmas[2];  ///< sigma of the other two phases, ascending
    double dShadows[2]; ///< their polymer fractions, in that order
};

/// The cloud-point curve of a sample, the points at which a solution begins to separate, with its shadow,
/// the compositions of the phase that then appears.
///
/// The points run with ascending sigma, from concentrated to thin solutions. Where the cloud-point fraction
/// does not fall along them, between two cusps, nothing can be observed. The physical curve is the lower
/// envelope of chi over the fraction: of all branches the first one that a solution meets when chi grows. The
/// rest is non-physical. The corners of the envelope are the three-phase points.
///
/// Cusps and three-phase points are accurate to about 1e-10. The method is exact for any number of species;
/// a pair of cusps closer than two sampled points may be missed.
///
/// The curve ends where the thinner phase reaches dThinnest, and before sigma times the longest chain passes
/// 600 or sigma passes -50. Fewer than 16 points, more than 1e7, and dThinnest not in (0, 1) throw
/// std::invalid_argument. Not changed once made.
///
///     const CCloudPointCurve curve(CSample({100, 3000}, {0.9, 0.1}));
///     const auto pTable = curve.Table(); // columns 0, 1: cloud points; 2, 1: shadow
class CCloudPointCurve {
public:
    static constexpr int POINTS = 2000;
    static constexpr double THINNEST = 1e-8;
    static constexpr double HAIR = 1e-8;

    explicit CCloudPointCurve(CSample sample, int nPoints = POINTS, double dThinnest = THINNEST);

    /// A run of the curve between two sigmas that is all physical or not.
    struct CStretch {
        double dFirst;
        double dLast;
        bool bPhysical;
    };

    const CCoexistenceFunction& Function() const { return m_function; }
    /// The sampled points, v = 0, ascending in sigma.
    const std::vector<CCoexistence>& Points() const { return m_points; }
    const std::vector<CCoexistence>& Cusps() const { return m_cusps; }
    const std::vector<CThreePhasePoint>& ThreePhasePoints() const { return m_threePhasePoints; }
    /// The whole curve as runs, ascending in sigma; neighbours differ.
    const std::vector<CStretch>& Stretches() const { return m_stretches; }

    /// One part for each run in the colours of PartColor; the columns are cloud-point fraction, ordinate,
    /// shadow fraction, sigma, chi. Points without an ordinate are left out. Neighbouring runs share the
    /// point in which they meet. It lies beyond the three-phase point, on the run that is not physical, by
    /// about HAIR of its fraction or of chi, so that the polylines of the physical ones cross there.
    std::unique_ptr<CMultipartTable> Table(const COrdinate& ordinate = {}) const;

private:
    double Limit(double dFactor, double dThinnest) const;
    void SamplePoints(int nPoints, double dThinnest);
    void FindCusps();
    /// The sigma at which the drawn runs nNext - 1 and nNext meet.
    double Join(std::size_t nNext) const;

    CCoexistenceFunction m_function;
    std::vector<CCoexistence> m_points;
    std::vector<CCoexistence> m_cusps;
    std::vector<CThreePhasePoint> m_threePhasePoints;
    std::vector<CStretch> m_stretches;
};

} // namespace flory
