#include "tessara/platform/files/settings/SettingsStore.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/SharedFile.h"
#include "tessara/platform/files/settings/FolderName.h"

namespace tessara {

namespace {

constexpr const char* FILE_NAME = "/tessara.settings";
constexpr mode_t PRIVATE_FOLDER = 0700;

std::string Home() {
    if (const char* pszHome = std::getenv("HOME"); pszHome && *pszHome) {
        return pszHome;
    }
    passwd entry;
    passwd* pEntry = nullptr;
    std::array<char, 4096> buffer;
    getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &pEntry);
    return pEntry && pEntry->pw_dir ? pEntry->pw_dir : "";
}

std::string CheckedConfigurationFolder(std::string_view strPath) {
    std::string strFolder = ConfigurationFolder();
    if (strFolder.empty() || strPath.empty() || !CSettingsText::IsPath(strPath)) {
        AfxThrowFileException(CFileException::badPath, -1, std::string(strPath).c_str());
    }
    return strFolder;
}

/// The entries of the configuration folder, sorted; none where it cannot be read.
std::vector<std::string> Entries(const std::string& strConfiguration) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(strConfiguration, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        names.push_back(entry->path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string FolderOf(const std::string& strConfiguration, std::string_view strName) {
    const auto names = Entries(strConfiguration);
    const std::string strNew = FolderNameOf(strName);
    const auto known = std::find_if(names.begin(), names.end(), [&](const std::string& strFolder) {
        std::error_code error;
        return IsSameName(strFolder, strNew) &&
               std::filesystem::is_directory(strConfiguration + "/" + strFolder, error);
    });
    return strConfiguration + "/" + (known == names.end() ? strNew : *known);
}

void MakeFolders(const std::string& strFolder) {
    for (std::size_t nEnd = strFolder.find('/', 1);; nEnd = strFolder.find('/', nEnd + 1)) {
        const std::string strPart = strFolder.substr(0, nEnd);
        if (mkdir(strPart.c_str(), PRIVATE_FOLDER) != 0 && errno != EEXIST && nEnd == std::string::npos) {
            throw CFileException::FromErrno(errno, strPart.c_str());
        }
        if (nEnd == std::string::npos) {
            return;
        }
    }
}

bool IsKey(const std::string& strFile) {
    try {
        std::string strBytes = CSharedFile(strFile).Read();
        return CSettingsText(strBytes).HasKey("");
    } catch (const CFileException&) {
        return false;
    }
}

} // namespace

std::string_view FirstName(std::string_view strPath) {
    return strPath.substr(0, strPath.find('\\'));
}

std::string_view PathBelowFirst(std::string_view strPath) {
    return strPath.substr(std::min(FirstName(strPath).size() + 1, strPath.size()));
}

void ReadSettings(std::string_view strPath,
                  const std::function<void(const CSettingsText&, std::string_view)>& action) {
    const std::string strFolder = FolderOf(CheckedConfigurationFolder(strPath), FirstName(strPath));
    std::string strBytes = CSharedFile(strFolder + FILE_NAME).Read();
    action(CSettingsText(strBytes), PathBelowFirst(strPath));
}

void UpdateSettings(std::string_view strPath,
                    const std::function<void(CSettingsText&, std::string_view)>& action) {
    const std::string strFolder = FolderOf(CheckedConfigurationFolder(strPath), FirstName(strPath));
    std::error_code error;
    if (!std::filesystem::exists(strFolder, error)) {
        std::string strBytes;
        CSettingsText text(strBytes);
        action(text, PathBelowFirst(strPath));
        if (strBytes.empty()) {
            return;
        }
        MakeFolders(strFolder);
    }
    CSharedFile(strFolder + FILE_NAME).Update([&](std::string& strBytes) {
        CSettingsText text(strBytes);
        action(text, PathBelowFirst(strPath));
    });
}

std::vector<std::string> TopKeys() {
    const std::string strConfiguration = CheckedConfigurationFolder("-");
    CNameList names;
    for (const std::string& strFolder : Entries(strConfiguration)) {
        const auto name = KeyOfFolder(strFolder);
        if (name && IsKey(strConfiguration + "/" + strFolder + FILE_NAME)) {
            names.Add(*name);
        }
    }
    return names.Take();
}

std::string ConfigurationFolder() {
    const char* const pszFolder = std::getenv("XDG_CONFIG_HOME");
    if (pszFolder && *pszFolder == '/') {
        return pszFolder;
    }
    const std::string strHome = Home();
    return strHome.empty() ? strHome : strHome + "/.config";
}

} // namespace tessara
