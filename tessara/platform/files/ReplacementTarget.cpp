#include "tessara/platform/files/ReplacementTarget.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace tessara {

namespace {

constexpr int MAX_LINKS = 40; ///< as many as the kernel follows

std::string FolderOf(const std::string& strPath) {
    const std::size_t nSlash = strPath.rfind('/');
    return nSlash == std::string::npos ? std::string() : strPath.substr(0, nSlash + 1);
}

/// The text of a symbolic link; nothing for anything else, and for what does not exist.
std::optional<std::string> LinkText(const std::string& strPath) {
    char text[PATH_MAX];
    const ssize_t nLength = readlink(strPath.c_str(), text, sizeof(text));
    return nLength < 0 ? std::nullopt : std::optional(std::string(text, static_cast<std::size_t>(nLength)));
}

/// A folder that may be entered but not listed can still hold new files.
CDescriptor OpenFolder(const std::string& strFolder) {
    const char* pszFolder = strFolder.empty() ? "." : strFolder.c_str();
    const auto openAs = [&](int nAccess) {
        return Uninterrupted([&] { return open(pszFolder, nAccess | O_DIRECTORY | O_CLOEXEC); });
    };
    const int nFolder = openAs(O_RDONLY);
    return CDescriptor(nFolder < 0 && errno == EACCES ? openAs(O_PATH) : nFolder);
}

} // namespace

CReplacementTarget::CReplacementTarget(const char* pszPath)
    : m_strPath(pszPath ? pszPath : ""), m_strEnd(m_strPath) {
    CheckEnd();
    int nLinks = 0;
    while (const auto link = LinkText(m_strEnd)) {
        if (++nLinks > MAX_LINKS) {
            throw Failure(ELOOP);
        }
        m_strEnd = link->starts_with('/') ? *link : FolderOf(m_strEnd) + *link;
    }
    const std::string strFolder = FolderOf(m_strEnd);
    m_strName = m_strEnd.substr(strFolder.size());
    m_folder = OpenFolder(strFolder);
    if (!m_folder) {
        throw Failure(errno);
    }
    if (m_strName.empty()) {
        throw Failure(EISDIR);
    }
}

/// The kernel follows the links first: it knows what this process may follow, and what is no link although
/// it reads like one.
void CReplacementTarget::CheckEnd() const {
    if (m_strPath.empty()) {
        throw Failure(CFileException::badPath, "the name of the file to write is empty");
    }
    struct stat status;
    if (stat(m_strPath.c_str(), &status) != 0) {
        if (errno != ENOENT) {
            throw Failure(errno);
        }
    } else {
        CheckKind(status);
    }
}

void CReplacementTarget::CheckKind(const struct stat& status) const {
    if (S_ISDIR(status.st_mode)) {
        throw Failure(EISDIR);
    }
    if (!S_ISREG(status.st_mode)) {
        throw Failure(CFileException::accessDenied, "is not a plain file");
    }
}

std::optional<struct stat> CReplacementTarget::CheckedFile() const {
    struct stat status;
    if (fstatat(GetFolder(), GetName(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT) {
            return std::nullopt;
        }
        throw Failure(errno);
    }
    CheckKind(status);
    if (faccessat(GetFolder(), GetName(), W_OK, AT_EACCESS) != 0 && errno != ENOENT) {
        throw Failure(errno);
    }
    return status;
}

int CReplacementTarget::Sync(int nFile) const {
    int nResult = Uninterrupted([&] { return fsync(GetFolder()); });
    if (nResult != 0 && errno == EBADF) { // a folder that cannot be listed cannot be synchronised by itself
        nResult = Uninterrupted([&] { return syncfs(nFile); });
    }
    // A file system that cannot do so for folders has nothing to wait for. One that has become read-only
    // since the renaming has failed.
    return nResult == 0 || errno == EINVAL ? 0 : errno;
}

void CReplacementTarget::RemoveIfSame(const char* pszName, int nFile) const {
    struct stat named;
    struct stat opened;
    if (fstatat(GetFolder(), pszName, &named, AT_SYMLINK_NOFOLLOW) == 0 && fstat(nFile, &opened) == 0 &&
        named.st_dev == opened.st_dev && named.st_ino == opened.st_ino) {
        unlinkat(GetFolder(), pszName, 0);
    }
}

CFileException CReplacementTarget::Failure(int nErrno) const {
    const int nCause = CFileException::FromErrno(nErrno, nullptr).m_cause;
    if (nErrno == EISDIR) {
        return Failure(nCause, "is a folder, not a file");
    }
    const std::string strReason =
        nErrno == ENOENT ? std::string("its folder does not exist") : std::generic_category().message(nErrno);
    CFileException failure = Failure(nCause, "cannot be written: " + strReason);
    failure.m_lOsError = nErrno;
    return failure;
}

/// The exception's own text would tell the cause alone.
CFileException CReplacementTarget::Failure(int nCause, const std::string& strReason) const {
    CFileException failure(nCause, -1, m_strPath.c_str());
    const std::string strPlace = m_strPath.empty() ? m_strPath : m_strPath + ": ";
    static_cast<CException&>(failure) = CException(strPlace + strReason);
    return failure;
}

} // namespace tessara
