#pragma once

#include "tessara/platform/base/Object.h"

class CCurve;

/// A cubic spline through the points (knots) of a sampled curve: piecewise cubic, with continuous first and
/// second derivatives.
///
/// Method: the routine SPLINE of Forsythe, Malcolm and Moler, Computer Methods for Mathematical Computations
/// (1977), chapter 4. At each end the third derivative is that of the cubic through the four nearest knots,
/// so that a cubic is reproduced; with three knots the spline is their parabola, with two a straight line.
/// For a smooth function and knots h apart the value is of order h^4, the first derivative of h^3. Every
/// interval width below 1e-16 in magnitude is replaced by 1e-16 of the opposite sign.
///
/// Construction takes linear time and evaluation logarithmic time. The abscissae must ascend. Coincident
/// knots divide by the replaced width: the coefficients around them are huge but the time is the same.
/// Unsorted and NaN abscissae give some value or NaN, likewise; NaN and infinite ordinates spread over the
/// whole spline; the value at NaN is NaN.
///
/// The spline borrows the knots: keep their arrays alive and unchanged while it exists. Copies share the
/// knots and have coefficients of their own. Fewer than two knots throw CInvalidArgException, running out of
/// memory CMemoryException; an assignment that fails changes nothing. Any number of threads may evaluate one
/// spline.
///
///     CSpline spline(&curve, FALSE);
///     double dMiddle = spline.Value(0.5);
///     std::unique_ptr<CCurve> pIntegral(spline.Integral());
class TESSARA_API CSpline : public CObject {
    DECLARE_DYNAMIC(CSpline)

public:
    /// y(x), or x(y) when bInverse is nonzero: then the ordinates must ascend.
    CSpline(int nPoints, double* pX, double* pY, int bInverse);
    CSpline(CCurve* pCurve, int bInverse);
    CSpline(const CSpline& src);
    ~CSpline() override;

    const CSpline& operator=(const CSpline& src);

    /// The spline at x; constant outside the knots.
    double Value(double x) const;
    /// The spline over the knots nFirst to nLast alone; beyond them its end pieces are extended. The ordinate
    /// of knot nFirst when nFirst >= nLast. Knot indices are not checked.
    double Value(double x, int nFirst, int nLast) const;

    /// Value at each of n abscissae, to the last bit. Quickest when they ascend (one sweep over the knots);
    /// otherwise many searches run at once. y may be x. Throws nothing. Where the knots are not in order, the
    /// two may differ.
    void Values(const double* x, double* y, int n) const;

    /// The integral from the first knot to every knot, exact for the spline up to rounding. The caller owns
    /// the curve.
    CCurve* Integral() const;
    /// The derivative at every knot, by differences over 1e-6: an error of that order, which exceeds the
    /// spline's own where knots lie that close. The caller owns the curve.
    CCurve* Derivative() const;

    int m_nPoints; ///< number of knots
    double* m_pX;  ///< knot abscissae; the caller's
    double* m_pY;  ///< knot ordinates; the caller's
    // Between knots i and i + 1, with t = x - m_pX[i]: m_pY[i] + m_pB[i] t + m_pC[i] t^2 + m_pD[i] t^3.
    double* m_pB;
    double* m_pC;
    double* m_pD;

protected:
    /// Replaces a value of less than 1e-16 in magnitude by 1e-16 of the opposite sign, zero by -1e-16.
    void CheckForUnderflow(double& v) const;
    /// Allocates and computes the coefficients.
    void ComputeSplineArrays();
    /// An antiderivative of piece i at x.
    double IValue(int i, double x) const;

private:
    CSpline(int nPoints, double* pX, double* pY);
    void AllocateCoefficients();
    void Swap(CSpline& other);
};
