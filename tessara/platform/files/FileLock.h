#pragma once

#include <string>
#include <sys/stat.h>

#include "tessara/platform/files/Descriptor.h"

namespace tessara {

/// The right to change a file, held by one object at a time among all threads of all processes that ask for
/// it here.
///
/// It is a lock (flock) on an empty file beside the one to change, ".NAME.lock", for the file itself is
/// replaced when it is changed. The holder removes it at the end; what a killed process leaves is held by
/// nobody. Another user's lock file serves as long as it can be read. On file systems without locks everybody
/// has the right.
class CFileLock {
public:
    /// Waits until the right is free, for ten seconds: then the holder has stopped, and a program shall not
    /// stop with it. Throws CFileException, then with lockViolation.
    explicit CFileLock(const std::string& strPath);
    ~CFileLock();
    CFileLock(const CFileLock&) = delete;
    CFileLock& operator=(const CFileLock&) = delete;

private:
    bool TryLock();
    bool IsHolderNew();

    std::string m_strLock;
    CDescriptor m_descriptor;
    struct stat m_holder = {}; ///< the lock file of the last attempt
};

} // namespace tessara
