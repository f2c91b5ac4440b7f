#pragma once

#include "tessara/platform/base/Object.h"

class CMultiCurve;

/// A cubic spline through every column of a multi-curve, over its common abscissae: see CSpline for the
/// method, its order of accuracy, its source and what unsorted, coincident and NaN abscissae mean. Every
/// column's coefficients and values are to the last bit those of a CSpline of its own; what the columns have
/// in common is computed once. NaN in a column stays in that column.
///
/// The multi-spline borrows the abscissae and the columns: the multi-curve must outlive it, and keep its
/// arrays. Copies share them and have coefficients of their own. Fewer than two points throw
/// CInvalidArgException, running out of memory CMemoryException; an assignment that fails changes nothing.
/// Any number of threads may evaluate one multi-spline.
///
///     CMultiSpline spline(&curve);
///     double dMiddle = spline.Value(1, 0.5);
class TESSARA_API CMultiSpline : public CObject {
    DECLARE_DYNAMIC(CMultiSpline)

public:
    explicit CMultiSpline(CMultiCurve* pCurve);
    CMultiSpline(const CMultiSpline& src);
    ~CMultiSpline() override;

    const CMultiSpline& operator=(const CMultiSpline& src);

    /// Computes the coefficients anew from the knots.
    void ComputeMultiSplineArrays();
    /// Replaces a value of less than 1e-16 in magnitude by 1e-16 of the opposite sign, zero by -1e-16.
    void CheckForUnderflow(double& v) const;

    /// The spline of a column at x; constant outside the knots. -1.0 when there is no such column.
    double Value(int nColumn, double x) const;
    /// Value at each of n abscissae, to the last bit; see CSpline::Values.
    void Values(int nColumn, const double* x, double* y, int n) const;

    int m_nDimensions; ///< number of columns
    int m_nPoints;     ///< number of knots
    double* m_pX;      ///< knot abscissae; the multi-curve's
    double** m_ppY;    ///< knot ordinates by column; the multi-curve's
    // Of column j between knots i and i + 1, with t = x - m_pX[i]:
    // m_ppY[j][i] + m_ppB[j][i] t + m_ppC[j][i] t^2 + m_ppD[j][i] t^3. All of them lie in one array
    // from malloc, which m_ppB[0] begins.
    double** m_ppB;
    double** m_ppC;
    double** m_ppD;

private:
    CMultiSpline(int nDimensions, int nPoints, double* pX, double** ppY);
    void AllocateCoefficients();
    void Swap(CMultiSpline& other);
};
