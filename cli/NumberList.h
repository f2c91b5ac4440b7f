#pragma once

#include <string>
#include <vector>

namespace tessara {

/// Reads "A:B:...", or a list with another separator, as finite numbers. Throws CException that starts with
/// strOption for a field that is none.
std::vector<double> ParseNumberList(const std::string& strOption, const std::string& strText,
                                    char chSeparator = ':');

} // namespace tessara
