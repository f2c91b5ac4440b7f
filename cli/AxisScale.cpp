#include "cli/AxisScale.h"

#include <cmath>
#include <vector>

#include "cli/InputError.h"
#include "cli/NumberList.h"

namespace tessara {

namespace {

constexpr double MAX_STEPS = 200;
constexpr double MAX_EXPONENT = 8;

/// Steps that add up to the end but for rounding do so exactly: a last tick beyond the axis is not drawn.
double WithLastTick(double dFrom, double dTo, double dStep) {
    constexpr double HAIR = 1e-9;
    const double dLastTick = std::round((dTo - dFrom) / dStep) * dStep + dFrom;
    return dLastTick > dTo && dLastTick - dTo < HAIR * dStep ? dLastTick : dTo;
}

} // namespace

AXISSCALE MakeAxisScale(double dFrom, double dTo, double dStep, double dExponent, const SCALENAMES& names) {
    if (!(dFrom < dTo)) {
        throw CException(std::string(names.pszFrom) + " must be below " + names.pszTo);
    }
    if (!(dStep > 0)) {
        throw CException(std::string(names.pszStep) + " must be above 0");
    }
    if (!((dTo - dFrom) / dStep <= MAX_STEPS)) {
        throw CException("more than 200 steps");
    }
    if (dExponent != std::floor(dExponent) || std::fabs(dExponent) > MAX_EXPONENT) {
        throw CException(std::string(names.pszExponent) + " must be a whole number from -8 to 8");
    }
    return {dFrom, WithLastTick(dFrom, dTo, dStep), dStep, static_cast<int>(dExponent)};
}

AXISSCALE ParseAxisScale(const std::string& strOption, const std::string& strText) {
    const std::vector<double> values = ParseNumberList(strOption, strText);
    if (values.size() != 3 && values.size() != 4) {
        throw CException(strOption + ": " + Quoted(strText) + " is not FROM:TO:STEP or FROM:TO:STEP:EXP");
    }
    try {
        return MakeAxisScale(values[0], values[1], values[2], values.size() == 4 ? values[3] : 0,
                             {"FROM", "TO", "STEP", "EXP"});
    } catch (const CException& error) {
        throw CException(strOption + ": " + error.what());
    }
}

} // namespace tessara
