#pragma once

#include <vector>

#include "examples/flory/model/Progress.h"

namespace flory {

/// A range of fractions.
struct CFractionRange {
    double dFirst = 0;
    double dLast = 1;
};

/// How far solutions of two chain lengths are from separating at one chi: min X - chi (see CTangentPlane) on
/// a grid over the polymer fraction and the weight w of the second chain. Positive where the homogeneous
/// solution is stable.
///
/// The grid has n x n points, n in [1, 10000], in the middle of equal cells over the given ranges within
/// [0, 1]. 400 x 400 points take some seconds; several threads may each compute a map of their own.
///
///     CStabilityMap map(300, 9000, 0.52, 400);
///     if (map.Compute(progress)) { ... map.Value(nRow, nColumn) ... }
class CStabilityMap {
public:
    /// Arguments outside the ranges above, or chi not finite, throw std::invalid_argument.
    CStabilityMap(double dFirstLength, double dSecondLength, double dChi, int nSize, CFractionRange phi = {},
                  CFractionRange w = {});

    /// Computes row by row, asking progress before each row and after the last. False when it was aborted;
    /// the rows done keep their values. Begins anew each time.
    bool Compute(const CRowProgress& progress = {});

    int Size() const { return m_nSize; }
    int RowsDone() const { return static_cast<int>(m_values.size()) / m_nSize; }
    double Phi(int nColumn) const { return Middle(m_phi, nColumn); }
    double W(int nRow) const { return Middle(m_w, nRow); }
    /// REQUIRES: nRow below RowsDone(), nColumn below Size() (std::out_of_range).
    double Value(int nRow, int nColumn) const;

private:
    void AddRow();
    double Middle(const CFractionRange& range, int n) const {
        return range.dFirst + (range.dLast - range.dFirst) * (n + 0.5) / m_nSize;
    }

    double m_dFirstLength;
    double m_dSecondLength;
    double m_dChi;
    int m_nSize;
    CFractionRange m_phi;
    CFractionRange m_w;
    std::vector<double> m_values; ///< of the rows done
};

} // namespace flory
