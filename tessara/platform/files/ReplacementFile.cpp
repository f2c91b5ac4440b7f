#include "tessara/platform/files/ReplacementFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace tessara {

namespace {

constexpr mode_t PERMISSIONS = 07777;

/// Where a path leads to through symbolic links; the path itself when there is nothing yet.
CString Followed(const char* pszPath) {
    const std::unique_ptr<char, decltype(&std::free)> pszReal(realpath(pszPath, nullptr), &std::free);
    return pszReal ? CString(pszReal.get()) : CString(pszPath);
}

CString FolderOf(const CString& strPath) {
    const int nSlash = strPath.ReverseFind('/');
    return nSlash < 0 ? CString("./") : strPath.Left(nSlash + 1);
}

/// The permissions that the new file gets: the old one's, or what the process gives to new files.
mode_t PermissionsOf(const CString& strTarget) {
    struct stat status;
    if (stat(strTarget, &status) == 0) {
        return status.st_mode & PERMISSIONS;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

/// A new, empty file beside the target; its path. A target that may not be written is not replaced either.
CString MakeBeside(const CString& strTarget) {
    if (access(strTarget, W_OK) != 0 && errno != ENOENT) {
        throw CFileException::FromErrno(errno, strTarget);
    }
    const std::string strPattern = std::string(FolderOf(strTarget).View()) + ".tessara-XXXXXX";
    std::vector<char> path(strPattern.c_str(), strPattern.c_str() + strPattern.size() + 1);
    const int nFile = mkostemp(path.data(), O_CLOEXEC);
    if (nFile < 0 || fchmod(nFile, PermissionsOf(strTarget)) != 0) {
        const int nError = errno;
        if (nFile >= 0) {
            close(nFile);
            unlink(path.data());
        }
        throw CFileException::FromErrno(nError, strTarget);
    }
    close(nFile);
    return {path.data()};
}

/// Makes a renaming durable. A file system that cannot do so for folders has nothing to wait for.
void SyncFolder(const CString& strFolder, const CString& strTarget) {
    const int nFolder = open(strFolder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (nFolder < 0) {
        return;
    }
    const int nError = fsync(nFolder) == 0 || errno == EINVAL || errno == EROFS ? 0 : errno;
    close(nFolder);
    if (nError) {
        throw CFileException::FromErrno(nError, strTarget);
    }
}

} // namespace

CReplacementFile::CReplacementFile(const char* pszTarget)
    : m_strTarget(Followed(pszTarget)), m_strWritten(MakeBeside(m_strTarget)) {
    CFileException error;
    if (!Open(m_strWritten, modeReadWrite, &error)) {
        RemoveWritten();
        throw CFileException(error);
    }
}

CReplacementFile::~CReplacementFile() {
    CReplacementFile::Abort();
}

void CReplacementFile::Close() {
    if (m_strWritten.IsEmpty()) {
        return;
    }
    try {
        Flush();
        CFile::Close();
        if (rename(m_strWritten, m_strTarget) != 0) {
            throw CFileException::FromErrno(errno, m_strTarget);
        }
    } catch (...) {
        Abort();
        throw;
    }
    m_strWritten.Empty();
    SyncFolder(FolderOf(m_strTarget), m_strTarget);
}

void CReplacementFile::Abort() {
    CFile::Abort();
    RemoveWritten();
}

void CReplacementFile::RemoveWritten() {
    if (!m_strWritten.IsEmpty()) {
        unlink(m_strWritten);
        m_strWritten.Empty();
    }
}

} // namespace tessara
