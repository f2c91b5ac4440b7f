#include "tessara/platform/files/FileLock.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <utility>

#include "tessara/platform/base/Exception.h"

namespace tessara {

namespace {

using namespace std::chrono_literals;

constexpr auto MAX_WAIT = 10s;
constexpr auto FIRST_PAUSE = 200us; ///< a change of a small file takes a few milliseconds
constexpr auto MAX_PAUSE = 2ms;

std::string LockPath(const std::string& strPath) {
    const std::size_t nName = strPath.rfind('/') + 1; // 0 where there is no slash
    return strPath.substr(0, nName) + "." + strPath.substr(nName) + ".lock";
}

/// Some file systems lock only what is open for writing; what belongs to somebody else can only be read.
int OpenLock(const char* pszLock) {
    const int nFile =
        Uninterrupted([&] { return open(pszLock, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644); });
    if (nFile >= 0 || errno != EACCES) {
        return nFile;
    }
    const int nReadable =
        Uninterrupted([&] { return open(pszLock, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK); });
    errno = EACCES; // where the folder cannot be written it is not that the file is missing
    return nReadable;
}

/// Its holder may have removed the file between its opening and its lock: then another has the right.
bool IsNamed(int nFile, const char* pszPath) {
    struct stat opened;
    struct stat named;
    return fstat(nFile, &opened) == 0 && lstat(pszPath, &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

} // namespace

CFileLock::CFileLock(const std::string& strPath) : m_strLock(LockPath(strPath)) {
    auto deadline = std::chrono::steady_clock::now() + MAX_WAIT;
    for (std::chrono::microseconds pause = FIRST_PAUSE; !TryLock();
         pause = std::min<std::chrono::microseconds>(pause * 2, MAX_PAUSE)) {
        const auto now = std::chrono::steady_clock::now();
        if (IsHolderNew()) {
            deadline = now + MAX_WAIT;
        } else if (now > deadline) {
            AfxThrowFileException(CFileException::lockViolation, EWOULDBLOCK, strPath.c_str());
        }
        std::this_thread::sleep_for(pause);
    }
}

bool CFileLock::TryLock() {
    CDescriptor file(OpenLock(m_strLock.c_str()));
    if (!file) {
        throw CFileException::FromErrno(errno, m_strLock.c_str());
    }
    if (Uninterrupted([&] { return flock(file.Get(), LOCK_EX | LOCK_NB); }) != 0) {
        if (errno == EWOULDBLOCK) {
            return false;
        }
    } else if (!IsNamed(file.Get(), m_strLock.c_str())) {
        return false;
    }
    m_descriptor = std::move(file);
    return true;
}

/// Whether another has the right than at the last attempt: each makes a lock file of its own.
bool CFileLock::IsHolderNew() {
    struct stat holder = {};
    if (lstat(m_strLock.c_str(), &holder) != 0) {
        return true;
    }
    const struct stat last = std::exchange(m_holder, holder);
    return last.st_ino != holder.st_ino || last.st_ctim.tv_sec != holder.st_ctim.tv_sec ||
           last.st_ctim.tv_nsec != holder.st_ctim.tv_nsec;
}

/// Removed while it is held: who has opened it by then finds out by IsNamed.
CFileLock::~CFileLock() {
    unlink(m_strLock.c_str());
}

} // namespace tessara
