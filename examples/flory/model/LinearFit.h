#pragma once

#include <vector>

namespace flory {

/// The parameters p that make sum of p_k x_k nearest to measured values y, by least squares.
///
/// Covariances and the standard deviation are estimated from the residuals; they are NaN when there are as
/// many points as parameters. Solved by orthogonalisation (modified Gram-Schmidt; Björck 1967), which loses
/// no more digits than the problem does.
struct CLinearFit {
    std::vector<double> parameters;
    std::vector<std::vector<double>> covariances;
    double dDeviation; ///< standard deviation of a point about the fit
};

/// columns[k] holds the x_k of every point. Throws std::invalid_argument for fewer points than parameters and
/// when the columns are linearly dependent, to 10 digits.
CLinearFit FitLinear(std::vector<std::vector<double>> columns, std::vector<double> y);

} // namespace flory
