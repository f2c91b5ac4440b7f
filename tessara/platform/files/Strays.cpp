#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "tessara/platform/files/FolderEntries.h"
#include "tessara/platform/files/UnfinishedFile.h"

namespace tessara {

namespace {

/// Whether the name means a plain file of this user's, and which; links are not followed.
bool IsOurs(int nFolder, const char* pszName, struct stat& status) {
    return fstatat(nFolder, pszName, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == geteuid();
}

/// A file that gets its lock is no living writer's. It may have got its final name meanwhile, so the name is
/// looked at again under the lock.
void RemoveUnlessHeld(int nFolder, const char* pszName) {
    struct stat before;
    if (!IsOurs(nFolder, pszName, before)) {
        return;
    }
    const CDescriptor file(openat(nFolder, pszName, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat opened;
    struct stat named;
    if (file && flock(file.Get(), LOCK_EX | LOCK_NB) == 0 && fstat(file.Get(), &opened) == 0 &&
        IsOurs(nFolder, pszName, named) && named.st_dev == opened.st_dev && named.st_ino == opened.st_ino) {
        unlinkat(nFolder, pszName, 0);
    }
}

} // namespace

void RemoveStrays(int nFolder) noexcept {
    const CFolderPtr pEntries = EntriesOf(nFolder);
    while (const dirent* pEntry = pEntries ? readdir(pEntries.get()) : nullptr) {
        if (CTemporaryName::Is(pEntry->d_name)) {
            RemoveUnlessHeld(nFolder, pEntry->d_name);
        }
    }
}

} // namespace tessara
