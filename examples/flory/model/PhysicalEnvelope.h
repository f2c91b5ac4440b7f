#pragma once

#include <vector>

#include "examples/flory/model/CloudPointCurve.h"

namespace flory {

/// Tells the physical runs of a cloud-point curve from the others: the lower envelope, in chi over the
/// fraction, of the branches between its cusps.
///
/// Only branches on which the fraction falls with sigma can be physical. Every two of them whose ranges
/// overlap are searched for crossings; between ends of branches and crossings one branch is lowest all along.
class CPhysicalEnvelope {
public:
    /// REQUIRES: points and cusps of one cloud-point curve, ascending in sigma. The function is borrowed.
    CPhysicalEnvelope(const CCoexistenceFunction& function, const std::vector<CCoexistence>& points,
                      const std::vector<CCoexistence>& cusps);

    /// Where the lowest branch changes, by descending fraction.
    std::vector<CThreePhasePoint> Corners() const;
    std::vector<CCloudPointCurve::CStretch> Stretches() const;

private:
    struct CBranch {
        std::vector<CCoexistence> points; ///< with the cusps at its ends
        bool bFalling;                    ///< the fraction falls along it

        double First() const { return points.front().dFirst; }
        double Last() const { return points.back().dFirst; }
        bool Reaches(double dPhi) const { return Last() <= dPhi && dPhi <= First(); }
    };

    void AddBranches(const std::vector<CCoexistence>& points, const std::vector<CCoexistence>& cusps);
    void AddCrossings(const CBranch& a, const CBranch& b);
    void FindOwners();
    /// The point of a falling branch at a fraction it reaches.
    CCoexistence PointAt(const CBranch& branch, double dPhi) const;
    /// The index of the falling branch with the least chi at a fraction; -1 when none is there.
    int LowestAt(double dPhi) const;
    CThreePhasePoint Corner(double dPhi, int nFirst, int nSecond) const;

    const CCoexistenceFunction& m_function;
    std::vector<CBranch> m_branches;
    std::vector<double> m_crossings; ///< fractions
    std::vector<double> m_breaks;    ///< ends of falling branches and crossings, descending
    std::vector<int> m_owners;       ///< the lowest branch between breaks i and i + 1
};

} // namespace flory
