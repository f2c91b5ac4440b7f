#pragma once

#include <cstddef>
#include <memory>

#include <gsl/gsl_spline.h>

/// A cubic spline of the GNU Scientific Library with its accelerator.
class CGslSpline {
public:
    explicit CGslSpline(int nPoints)
        : m_pSpline(gsl_spline_alloc(gsl_interp_cspline, static_cast<std::size_t>(nPoints)),
                    &gsl_spline_free),
          m_pAccel(gsl_interp_accel_alloc(), &gsl_interp_accel_free) {}

    /// Copies the knots and computes the coefficients.
    void Init(const double* pX, const double* pY) {
        gsl_spline_init(m_pSpline.get(), pX, pY, m_pSpline->size);
    }
    double Value(double x) { return gsl_spline_eval(m_pSpline.get(), x, m_pAccel.get()); }

private:
    std::unique_ptr<gsl_spline, decltype(&gsl_spline_free)> m_pSpline;
    std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> m_pAccel;
};
