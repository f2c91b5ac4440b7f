#include "cli/NumberList.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "cli/InputError.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

std::vector<double> ParseNumberList(const std::string& strOption, const std::string& strText,
                                    char chSeparator) {
    std::vector<double> values;
    for (std::size_t nStart = 0; nStart <= strText.size();) {
        const std::size_t nEnd = std::min(strText.find(chSeparator, nStart), strText.size());
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

} // namespace tessara
