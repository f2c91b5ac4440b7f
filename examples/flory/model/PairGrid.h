#pragma once

#include <vector>

#include "examples/flory/model/CoexistenceFunction.h"

namespace flory {

/// All pairs of phases of a sample up to a largest chi, on a grid: columns of equal steps in asinh(sigma
/// longest chain), rows from v = 0 to v = 1 that are dense in ln v and ln(1 - v), for a dense phase can hold
/// all long chains in a volume of exp(-sigma r). Coordinates between the grid's are interpolated in sigma and
/// v.
///
/// The exponentials of the last column that was asked about are kept, so ask column by column.
class CPairGrid {
public:
    static constexpr int COLUMNS = 320;
    static constexpr int ROWS = 66;

    /// The function is borrowed.
    CPairGrid(const CCoexistenceFunction& function, double dMaxChi);

    CCoexistence At(double x, double y) const;
    /// Has the sign of At(x, y).dPhi - dPhi, and is a smooth function; much faster.
    double Excess(double x, double y, double dPhi);

private:
    /// sigma and the volumes of both phases.
    struct CPlace {
        double dSigma;
        double dVolume;
        double dRest;
    };

    CPlace PlaceAt(double x, double y) const;
    void KeepColumn(double dSigma);

    const CCoexistenceFunction& m_function;
    double m_dReach; ///< of sigma times the longest chain
    double m_dSigma = 0;
    std::vector<double> m_thin; ///< exp(-sigma r)
    std::vector<double> m_less; ///< the same less 1
    std::vector<double> m_mean; ///< this times H(sigma r)/r
};

} // namespace flory
