#pragma once

#include <optional>

namespace flory {

/// The temperature dependence of the interaction parameter, chi(T) = A + B/T with T in kelvin.
///
/// A or B that is not finite, and B = 0, throw std::invalid_argument.
class CInteraction {
public:
    CInteraction(double dA, double dB);

    double A() const { return m_dA; }
    double B() const { return m_dB; }
    /// chi at dTemperature kelvin, which must be positive (std::invalid_argument).
    double Chi(double dTemperature) const;
    /// The temperature at which chi has the value, in kelvin; NaN where no positive temperature has it.
    double Temperature(double dChi) const;

private:
    double m_dA;
    double m_dB;
};

/// What stands on a diagram's ordinate: the temperature, or chi itself when empty.
using COrdinate = std::optional<CInteraction>;

/// The ordinate of chi; NaN where it cannot be shown.
double OrdinateOf(const COrdinate& ordinate, double dChi);

} // namespace flory
