#include "cli/AxisScale.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "cli/InputError.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

constexpr double MAX_STEPS = 200;
constexpr double MAX_EXPONENT = 8;

std::vector<double> ParseFields(const std::string& strOption, const std::string& strText) {
    std::vector<double> values;
    for (std::size_t nStart = 0; nStart <= strText.size();) {
        const std::size_t nEnd = std::min(strText.find(':', nStart), strText.size());
        const std::string strField = strText.substr(nStart, nEnd - nStart);
        const std::optional<double> value = ParseNumber(strField.c_str());
        if (!value || !std::isfinite(*value)) {
            throw CException(strOption + ": " + Quoted(strField) + " is not a number");
        }
        values.push_back(*value);
        nStart = nEnd + 1;
    }
    return values;
}

} // namespace

AXISSCALE ParseAxisScale(const std::string& strOption, const std::string& strText) {
    const std::vector<double> values = ParseFields(strOption, strText);
    if (values.size() != 3 && values.size() != 4) {
        throw CException(strOption + ": " + Quoted(strText) + " is not FROM:TO:STEP or FROM:TO:STEP:EXP");
    }
    const double dExponent = values.size() == 4 ? values[3] : 0;
    if (!(values[0] < values[1])) {
        throw CException(strOption + ": FROM must be below TO");
    }
    if (!(values[2] > 0)) {
        throw CException(strOption + ": STEP must be above 0");
    }
    if (!((values[1] - values[0]) / values[2] <= MAX_STEPS)) {
        throw CException(strOption + ": more than 200 steps");
    }
    if (dExponent != std::floor(dExponent) || std::fabs(dExponent) > MAX_EXPONENT) {
        throw CException(strOption + ": EXP must be a whole number from -8 to 8");
    }
    return {values[0], values[1], values[2], static_cast<int>(dExponent)};
}

} // namespace tessara
