#include "examples/flory/model/Sample.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace flory {

namespace {

constexpr double SHORTEST = 1e-3;
constexpr double LONGEST = 1e9;

void Check(const std::vector<double>& lengths, const std::vector<double>& weights) {
    if (lengths.empty() || lengths.size() != weights.size()) {
        throw std::invalid_argument("a sample needs as many weights as chain lengths, and at least one");
    }
    for (const double r : lengths) {
        if (!(r >= SHORTEST && r <= LONGEST)) {
            throw std::invalid_argument("a chain length must lie between 0.001 and 1e9");
        }
    }
    for (const double w : weights) {
        if (!(w >= 0 && std::isfinite(w))) {
            throw std::invalid_argument("a weight must be a finite number, not negative");
        }
    }
}

} // namespace

CSample::CSample(std::vector<double> lengths, std::vector<double> weights)
    : m_lengths(std::move(lengths)), m_weights(std::move(weights)), m_dShortest(LONGEST), m_dLongest(0) {
    Check(m_lengths, m_weights);
    double dSum = 0;
    for (std::size_t i = 0; i < Species(); ++i) {
        dSum += m_weights[i];
        if (m_weights[i] > 0) {
            m_dShortest = std::min(m_dShortest, m_lengths[i]);
            m_dLongest = std::max(m_dLongest, m_lengths[i]);
        }
    }
    if (!(dSum > 0 && std::isfinite(dSum))) {
        throw std::invalid_argument("the weights must have a positive, finite sum");
    }
    for (double& w : m_weights) {
        w /= dSum;
    }
}

double CSample::Moment(int k) const {
    double dSum = 0;
    for (std::size_t i = 0; i < Species(); ++i) {
        dSum += m_weights[i] * std::pow(m_lengths[i], k);
    }
    return dSum;
}

} // namespace flory
