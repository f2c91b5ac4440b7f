#include "examples/flory/program/OutputText.h"

#include "tessara/platform/files/ReplacementFile.h"

namespace flory {

void WriteText(const std::string& strPath, const std::string& strText) {
    tessara::CReplacementFile file(strPath.c_str());
    file.Write(strText.data(), static_cast<UINT>(strText.size()));
    file.Close();
}

void CheckWritable(const std::string& strPath) {
    const tessara::CReplacementFile file(strPath.c_str());
}

} // namespace flory
