#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace flory {

using CVector = std::vector<double>;

/// The n-th unit vector.
CVector Unit(std::size_t nSize, std::size_t n);

/// Solves matrix x = right, for a few equations, by elimination with pivots; nothing when the matrix is
/// singular. REQUIRES: a square matrix of the size of the right side.
std::optional<CVector> Solve(std::vector<CVector> matrix, CVector right);

} // namespace flory
