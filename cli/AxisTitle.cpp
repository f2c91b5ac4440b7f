#include "cli/AxisTitle.h"

#include <algorithm>
#include <vector>

namespace tessara {

std::string PlainIndexedText(std::string_view strPlain) {
    if (strPlain.empty()) {
        return {};
    }
    std::string strText;
    for (const char ch : strPlain) {
        // A tilde and any character that is no control are dropped, and the next one is taken as it is.
        strText += ch == '~' ? "~~~" : std::string(1, ch);
    }
    return strText + "~N";
}

std::string ArgumentName(std::span<const CColumnFile> files) {
    const auto named = std::find_if(files.begin(), files.end(), [](const CColumnFile& file) {
        return !file.GetAbscissa().strName.empty();
    });
    return named == files.end() ? std::string() : named->GetAbscissa().strName;
}

std::string FunctionNames(std::span<const CColumnFile> files) {
    std::vector<std::string> names;
    for (const CColumnFile& file : files) {
        for (const COLUMN& column : file.GetFunctions()) {
            if (!column.strName.empty() &&
                std::find(names.begin(), names.end(), column.strName) == names.end()) {
                names.push_back(column.strName);
            }
        }
    }
    std::string strTitle;
    for (const std::string& strName : names) {
        strTitle += (strTitle.empty() ? "" : ", ") + strName;
    }
    return strTitle;
}

} // namespace tessara
