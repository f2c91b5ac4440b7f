#include "examples/flory/program/OutputText.h"

#include <cerrno>
#include <cstdio>

#include "cli/OutputFile.h"

namespace flory {

void WriteText(const std::string& strPath, const std::string& strText) {
    tessara::COutputFile output(strPath);
    std::FILE* pFile = std::fopen(output.GetTemporaryPath().c_str(), "wb");
    if (!pFile) {
        output.Fail(errno);
    }
    const bool bWritten = std::fwrite(strText.data(), 1, strText.size(), pFile) == strText.size();
    const int nErrno = errno;
    if (std::fclose(pFile) != 0 || !bWritten) {
        output.Fail(bWritten ? errno : nErrno);
    }
    output.Commit();
}

void CheckWritable(const std::string& strPath) {
    const tessara::COutputFile output(strPath);
}

} // namespace flory
