#include "tests/files/SystemCalls.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

// The linker's --wrap sends calls to __wrap_ and gives the system's function the name __real_.

namespace {

CSystemCalls::CHandler s_handler;

int Ask(const char* pszCall) {
    if (!s_handler) {
        return 0;
    }
    const CSystemCalls::CHandler handler = std::exchange(s_handler, nullptr);
    const int nAnswer = handler(pszCall);
    s_handler = handler;
    errno = nAnswer > 0 ? nAnswer : errno;
    return nAnswer;
}

} // namespace

CSystemCalls::CSystemCalls(CHandler handler) {
    s_handler = std::move(handler);
}

CSystemCalls::~CSystemCalls() {
    s_handler = nullptr;
}

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
#define FORWARD(name, parameters, ...)                                                                       \
    int __real_##name parameters;                                                                            \
    int __wrap_##name parameters;                                                                            \
    int __wrap_##name parameters {                                                                           \
        return Ask(#name) > 0 ? -1 : __real_##name(__VA_ARGS__);                                             \
    }

extern "C" {

FORWARD(fsync, (int nFile), nFile)
FORWARD(syncfs, (int nFile), nFile)
FORWARD(flock, (int nFile, int nOperation), nFile, nOperation)
FORWARD(fchmod, (int nFile, mode_t nMode), nFile, nMode)
FORWARD(fchown, (int nFile, uid_t nOwner, gid_t nGroup), nFile, nOwner, nGroup)
FORWARD(fstatat, (int nFolder, const char* pszName, struct stat* pStatus, int nFlags), nFolder, pszName,
        pStatus, nFlags)
FORWARD(renameat, (int nFolder, const char* pszName, int nNewFolder, const char* pszNewName), nFolder,
        pszName, nNewFolder, pszNewName)

mode_t __real_umask(mode_t nMask);
mode_t __wrap_umask(mode_t nMask);
mode_t __wrap_umask(mode_t nMask) {
    Ask("umask");
    return __real_umask(nMask);
}

ssize_t __real_write(int nFile, const void* pBytes, size_t nBytes);
ssize_t __wrap_write(int nFile, const void* pBytes, size_t nBytes);
ssize_t __wrap_write(int nFile, const void* pBytes, size_t nBytes) {
    const int nAnswer = Ask("write");
    return nAnswer > 0 ? -1 : __real_write(nFile, pBytes, nAnswer < 0 ? nBytes / 2 : nBytes);
}

int __real_open(const char* pszPath, int nFlags, ...);
int __wrap_open(const char* pszPath, int nFlags, ...);
int __wrap_open(const char* pszPath, int nFlags, ...) {
    va_list arguments;
    va_start(arguments, nFlags);
    const mode_t nMode = nFlags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return Ask("open") > 0 ? -1 : __real_open(pszPath, nFlags, nMode);
}

int __real_openat(int nFolder, const char* pszPath, int nFlags, ...);
int __wrap_openat(int nFolder, const char* pszPath, int nFlags, ...);
int __wrap_openat(int nFolder, const char* pszPath, int nFlags, ...) {
    va_list arguments;
    va_start(arguments, nFlags);
    const mode_t nMode = nFlags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return Ask("openat") > 0 ? -1 : __real_openat(nFolder, pszPath, nFlags, nMode);
}
}
// NOLINTEND(bugprone-reserved-identifier)
