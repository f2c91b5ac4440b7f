#pragma once

#include <memory>
#include <vector>

#include "examples/flory/model/CloudPointCurve.h"
#include "examples/flory/model/Progress.h"
#include "tessara/numeric/Table.h"

namespace flory {

/// The three-phase points of the cloud-point curves of two chain lengths, over the weight w of the second,
/// and the critical end points where they end.
///
/// The weights are nRows >= 1 values spaced evenly in ln(w/(1 - w)) from dFirst to dLast, within (0, 1);
/// other arguments throw std::invalid_argument. A row takes some milliseconds.
class CThreePhaseMap {
public:
    struct CPoint {
        double dW;
        CThreePhasePoint point;
        bool bCriticalEnd; ///< the solution and one of the other phases are the same, a critical point
    };

    CThreePhaseMap(double dFirstLength, double dSecondLength, double dFirst, double dLast, int nRows);

    /// Computes row by row, asking progress before each row and after the last. False when it was aborted;
    /// the points found are kept. Begins anew each time.
    bool Compute(const CRowProgress& progress = {});

    /// By ascending w; a row has none, one or several. Critical end points stand between the rows.
    const std::vector<CPoint>& Points() const { return m_points; }
    /// The columns are w, phi, ordinate, the two shadow fractions, chi, the number of different phases.
    /// Points without an ordinate are left out.
    std::unique_ptr<CTable> Table(const COrdinate& ordinate = {}) const;

private:
    double Weight(int nRow) const;
    void AddCriticalEndPoints();

    double m_dFirstLength;
    double m_dSecondLength;
    double m_dFirst;
    double m_dLast;
    int m_nRows;
    std::vector<CPoint> m_points;
};

} // namespace flory
