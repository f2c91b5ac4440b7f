#include "tessara/platform/files/FileFind.h"

#include <algorithm>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Text.h"

IMPLEMENT_DYNAMIC(CFileFind, CObject)

namespace {

struct FolderCloser {
    void operator()(DIR* pFolder) const { closedir(pFolder); }
};

/// Whether a name matches a pattern. A '*' first takes nothing; where the rest does not match, the last one
/// takes a character more, so the effort is at most the product of the lengths.
bool Matches(std::string_view strName, std::string_view strPattern) {
    std::string_view strAfterStar;
    std::string_view strAtStar;
    bool bStar = false;
    while (!strName.empty()) {
        if (strPattern.starts_with('*')) {
            strPattern.remove_prefix(1);
            strAfterStar = strPattern;
            strAtStar = strName;
            bStar = true;
        } else if (strPattern.starts_with('?')) {
            strPattern.remove_prefix(1);
            strName.remove_prefix(tessara::CharacterLength(strName));
        } else if (!strPattern.empty() && strPattern[0] == strName[0]) {
            strPattern.remove_prefix(1);
            strName.remove_prefix(1);
        } else if (bStar) {
            strAtStar.remove_prefix(tessara::CharacterLength(strAtStar));
            strName = strAtStar;
            strPattern = strAfterStar;
        } else {
            return false;
        }
    }
    return strPattern.find_first_not_of('*') == std::string_view::npos;
}

std::vector<std::string> NamesIn(const char* pszFolder, std::string_view strPattern) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, FolderCloser> pFolder(opendir(pszFolder));
    while (const dirent* pEntry = pFolder ? readdir(pFolder.get()) : nullptr) {
        if (strPattern == "*.*" || Matches(pEntry->d_name, strPattern)) {
            names.emplace_back(pEntry->d_name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string Absolute(const std::string& strFolder) {
    std::error_code error;
    const std::filesystem::path path = strFolder.empty() ? std::filesystem::current_path(error)
                                                         : std::filesystem::absolute(strFolder, error);
    const std::string strPath = error ? strFolder : path.string();
    return strPath.ends_with('/') ? strPath : strPath + "/";
}

} // namespace

CFileFind::CFileFind() = default;
CFileFind::~CFileFind() = default;

BOOL CFileFind::FindFile(const char* pszPattern, DWORD) {
    return tessara::WithMemoryException([&]() -> BOOL {
        Close();
        const std::string strPath = pszPattern ? pszPattern : "*";
        const std::size_t nName = strPath.rfind('/') + 1; // 0 where there is no slash
        m_strRoot = Absolute(strPath.substr(0, nName));
        m_names = NamesIn(m_strRoot.c_str(), strPath.substr(nName));
        return !m_names.empty();
    });
}

BOOL CFileFind::FindNextFile() {
    if (m_nNext >= m_names.size()) {
        Close();
        return FALSE;
    }
    ++m_nNext;
    LookUp();
    return m_nNext < m_names.size();
}

void CFileFind::LookUp() {
    m_state = {};
    const CString strPath = GetFilePath();
    struct stat status;
    if (lstat(strPath, &status) != 0) {
        return; // it has gone meanwhile
    }
    m_state.bLink = S_ISLNK(status.st_mode);
    m_state.bRegular = S_ISREG(status.st_mode);
    if (stat(strPath, &status) == 0) {
        m_state.bDirectory = S_ISDIR(status.st_mode);
        m_state.nLength = S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
        m_state.bReadOnly = access(strPath, W_OK) != 0;
    }
}

void CFileFind::Close() {
    m_strRoot.clear();
    m_names.clear();
    m_nNext = 0;
    m_state = {};
}

CString CFileFind::GetFileName() const {
    return m_nNext > 0 ? CString(m_names[m_nNext - 1]) : CString();
}

CString CFileFind::GetFileTitle() const {
    const CString strName = GetFileName();
    const int nDot = IsDots() ? -1 : strName.ReverseFind('.');
    return nDot > 0 ? strName.Left(nDot) : strName;
}

CString CFileFind::GetFilePath() const {
    return m_nNext > 0 ? CString(m_strRoot) + GetFileName() : CString();
}

CString CFileFind::GetRoot() const {
    return CString(m_strRoot);
}

std::uint64_t CFileFind::GetLength() const {
    return m_state.nLength;
}

BOOL CFileFind::IsDots() const {
    const CString strName = GetFileName();
    return strName == "." || strName == "..";
}

BOOL CFileFind::IsDirectory() const {
    return m_state.bDirectory;
}

BOOL CFileFind::IsHidden() const {
    return GetFileName().Left(1) == ".";
}

BOOL CFileFind::IsReadOnly() const {
    return m_state.bReadOnly;
}

BOOL CFileFind::IsSymbolicLink() const {
    return m_state.bLink;
}

BOOL CFileFind::IsRegularFile() const {
    return m_state.bRegular;
}
