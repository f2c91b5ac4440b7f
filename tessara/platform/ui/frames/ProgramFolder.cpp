#include "tessara/platform/ui/frames/ProgramFolder.h"

#include <climits>
#include <cstdlib>
#include <unistd.h>

#include "tessara/platform/files/ModulePath.h"
#include "tessara/platform/ui/frames/WinApp.h"

namespace tessara {

namespace {

/// A name may have any letters; in a path a slash would make it two.
std::string ToFolderName(std::string strName) {
    for (char& ch : strName) {
        ch = ch == '/' || ch == '\\' ? '_' : ch;
    }
    return strName;
}

} // namespace

std::string FolderOfExecutable() {
    char path[PATH_MAX];
    const DWORD nLength = GetModuleFileName(nullptr, path, sizeof path);
    const std::string strPath(path, nLength);
    return strPath.substr(0, strPath.rfind('/') + 1);
}

bool CanWriteIn(const std::string& strFolder) {
    return access(strFolder.c_str(), W_OK | X_OK) == 0;
}

std::string UserDataFolder() {
    const char* const pszData = std::getenv("XDG_DATA_HOME");
    const char* const pszHome = std::getenv("HOME");
    const std::string strData = pszData && *pszData == '/'
                                    ? std::string(pszData)
                                    : std::string(pszHome ? pszHome : "") + "/.local/share";
    const CWinApp* const pApp = AfxGetApp();
    std::string strFolder = strData + "/";
    if (pApp && pApp->m_pszRegistryKey) {
        strFolder += ToFolderName(pApp->m_pszRegistryKey) + "/";
    }
    return strFolder + ToFolderName(pApp ? pApp->m_pszAppName : "tessara") + "/";
}

} // namespace tessara
