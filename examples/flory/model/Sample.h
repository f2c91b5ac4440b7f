#pragma once

#include <cstddef>
#include <vector>

namespace flory {

/// A polydisperse polymer: chain lengths r_i, in volumes of a solvent molecule, and volume fractions w_i
/// within the polymer.
///
/// Lengths are in [1e-3, 1e9]; weights are finite, not negative and not all zero, and are scaled to the sum
/// 1. A species of weight zero stays in its place and counts for nothing. Anything else throws
/// std::invalid_argument with the reason.
///
///     const CSample sample({100, 3000}, {0.9, 0.1});
///     sample.WeightAverage(); // 390
class CSample {
public:
    CSample(std::vector<double> lengths, std::vector<double> weights);
    /// One species.
    explicit CSample(double dLength) : CSample({dLength}, {1}) {}

    std::size_t Species() const { return m_lengths.size(); }
    double Length(std::size_t nSpecies) const { return m_lengths[nSpecies]; }
    double Weight(std::size_t nSpecies) const { return m_weights[nSpecies]; }
    const std::vector<double>& Lengths() const { return m_lengths; }
    const std::vector<double>& Weights() const { return m_weights; }

    /// The shortest and longest chain of a species that is there.
    double Shortest() const { return m_dShortest; }
    double Longest() const { return m_dLongest; }

    /// m_k = sum of w_i r_i^k
    double Moment(int k) const;
    double WeightAverage() const { return Moment(1); }               ///< r_w
    double ZAverage() const { return Moment(2) / Moment(1); }        ///< r_z
    double ZPlusOneAverage() const { return Moment(3) / Moment(2); } ///< r_z+1

private:
    std::vector<double> m_lengths;
    std::vector<double> m_weights;
    double m_dShortest;
    double m_dLongest;
};

} // namespace flory
