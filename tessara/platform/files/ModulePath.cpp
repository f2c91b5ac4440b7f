#include "tessara/platform/files/ModulePath.h"

#include <filesystem>
#include <string>

#include "tessara/platform/base/Text.h"

DWORD GetModuleFileName(HMODULE, char* pszFileName, DWORD nSize) {
    if (!pszFileName || nSize == 0) {
        return 0;
    }
    std::error_code error;
    const std::string strPath = std::filesystem::read_symlink("/proc/self/exe", error).string();
    const std::string_view str = tessara::CutText(strPath, nSize - 1);
    pszFileName[str.copy(pszFileName, str.size())] = '\0';
    return str.size() < strPath.size() ? nSize : static_cast<DWORD>(str.size());
}
