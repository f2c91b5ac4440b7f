#include "examples/flory/program/OutputText.h"

#include "tessara/platform/base/Number.h"
#include "tessara/platform/files/ReplacementFile.h"

namespace flory {

void AppendRow(std::string& strText, const std::vector<double>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        strText += (i > 0 ? "\t" : "") + tessara::FormatText("%.17g", row[i]);
    }
    strText += '\n';
}

void WriteText(const std::string& strPath, const std::string& strText) {
    tessara::CReplacementFile file(strPath.c_str());
    file.Write(strText.data(), static_cast<UINT>(strText.size()));
    file.Close();
}

void CheckWritable(const std::string& strPath) {
    const tessara::CReplacementFile file(strPath.c_str());
}

} // namespace flory
