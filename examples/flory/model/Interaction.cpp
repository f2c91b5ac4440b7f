#include "examples/flory/model/Interaction.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace flory {

CInteraction::CInteraction(double dA, double dB) : m_dA(dA), m_dB(dB) {
    if (!std::isfinite(dA) || !std::isfinite(dB) || dB == 0) {
        throw std::invalid_argument("chi(T) = A + B/T needs finite A and B, and B other than 0");
    }
}

double CInteraction::Chi(double dTemperature) const {
    if (!(dTemperature > 0)) {
        throw std::invalid_argument("a temperature must be positive");
    }
    return m_dA + m_dB / dTemperature;
}

double CInteraction::Temperature(double dChi) const {
    const double dTemperature = m_dB / (dChi - m_dA);
    return dTemperature > 0 && std::isfinite(dTemperature) ? dTemperature
                                                           : std::numeric_limits<double>::quiet_NaN();
}

double OrdinateOf(const COrdinate& ordinate, double dChi) {
    return ordinate ? ordinate->Temperature(dChi) : dChi;
}

} // namespace flory
