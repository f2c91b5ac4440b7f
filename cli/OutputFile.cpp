#include "cli/OutputFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/InputError.h"
#include "cli/PendingFile.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

constexpr int MAX_ATTEMPTS = 100;

/// Where a path leads to through symbolic links; the path itself when there is nothing yet.
std::string Followed(const std::string& strPath) {
    const std::unique_ptr<char, decltype(&std::free)> pszReal(realpath(strPath.c_str(), nullptr), &std::free);
    return pszReal ? pszReal.get() : strPath;
}

std::string FolderOf(const std::string& strPath) {
    const std::size_t nSlash = strPath.rfind('/');
    return nSlash == std::string::npos ? "" : strPath.substr(0, nSlash + 1);
}

std::string EndingOf(const std::string& strPath) {
    const std::size_t nDot = strPath.rfind('.');
    return nDot == std::string::npos ? "" : strPath.substr(nDot);
}

/// fsync; where a file system cannot do it for this kind of file, there is nothing to wait for.
bool Sync(const char* pszPath, int nFlags) {
    const int nFile = open(pszPath, nFlags | O_CLOEXEC);
    if (nFile < 0) {
        return false;
    }
    const bool bDone = fsync(nFile) == 0 || errno == EINVAL;
    const int nErrno = errno;
    close(nFile);
    errno = nErrno;
    return bDone;
}

} // namespace

COutputFile::COutputFile(const std::string& strPath) : m_strPath(strPath), m_strTarget(Followed(strPath)) {
    CheckTarget();
    CreateTemporary();
}

COutputFile::~COutputFile() {
    Remove();
}

void COutputFile::Fail(int nErrno) const {
    std::string strProblem = "cannot be written";
    if (nErrno == ENOENT) {
        strProblem += ": its folder does not exist";
    } else if (nErrno > 0) {
        strProblem += std::string(": ") + std::strerror(nErrno);
    }
    throw CInputError(m_strPath, 0, 0, strProblem);
}

/// Replacing would go through where writing would not: what is no plain file, and what is write-protected,
/// stays.
void COutputFile::CheckTarget() const {
    struct stat status {};
    if (stat(m_strTarget.c_str(), &status) != 0) {
        return;
    }
    if (S_ISDIR(status.st_mode)) {
        throw CInputError(m_strPath, 0, 0, "is a folder, not a file");
    }
    if (!S_ISREG(status.st_mode)) {
        throw CInputError(m_strPath, 0, 0, "is not a plain file");
    }
    if (access(m_strTarget.c_str(), W_OK) != 0) {
        Fail(errno);
    }
}

void COutputFile::CreateTemporary() {
    std::random_device random;
    for (int nAttempt = 0; nAttempt < MAX_ATTEMPTS; nAttempt++) {
        m_strTemporary = FolderOf(m_strTarget) + FormatText(".tessara-%08x%08x", random(), random()) +
                         EndingOf(m_strTarget);
        SetPendingFile(m_strTemporary.c_str());
        const int nFile = open(m_strTemporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (nFile >= 0) {
            struct stat status {};
            m_nMode = fstat(nFile, &status) == 0 ? status.st_mode & 07777U : 0600U;
            close(nFile);
            return;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    const int nErrno = errno;
    SetPendingFile(nullptr);
    m_strTemporary.clear();
    Fail(nErrno);
}

/// Whoever wrote the temporary file may have replaced it by another with its own mode.
void COutputFile::Commit() {
    struct stat status {};
    if (stat(m_strTemporary.c_str(), &status) != 0 || status.st_size == 0) {
        Fail(0);
    }
    if (chmod(m_strTemporary.c_str(), m_nMode) != 0 || !Sync(m_strTemporary.c_str(), O_RDONLY) ||
        rename(m_strTemporary.c_str(), m_strTarget.c_str()) != 0) {
        Fail(errno);
    }
    SetPendingFile(nullptr);
    m_strTemporary.clear();
    const std::string strFolder = FolderOf(m_strTarget);
    Sync(strFolder.empty() ? "." : strFolder.c_str(), O_RDONLY | O_DIRECTORY);
}

void COutputFile::Remove() {
    if (m_strTemporary.empty()) {
        return;
    }
    unlink(m_strTemporary.c_str());
    SetPendingFile(nullptr);
    m_strTemporary.clear();
}

} // namespace tessara
