#include "cli/AxisTitle.h"

#include <algorithm>
#include <vector>

#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_TITLE_BYTES = 40;

} // namespace

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

std::string ArgumentTitle(std::span<const CColumnFile> files) {
    const auto named = std::find_if(files.begin(), files.end(), [](const CColumnFile& file) {
        return !file.GetAbscissa().strName.empty();
    });
    return named == files.end() ? std::string() : PlainIndexedText(named->GetAbscissa().strName);
}

std::string FunctionTitle(std::span<const CColumnFile> files) {
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
    const std::string_view strCut = CutText(strTitle, MAX_TITLE_BYTES);
    return PlainIndexedText(std::string(strCut) + (strCut.size() < strTitle.size() ? "..." : ""));
}

} // namespace tessara
