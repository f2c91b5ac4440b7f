#pragma once

#include <functional>
#include <string>
#include <vector>

/// A system call of a watched process that is about to happen on a file or folder.
struct FILECALL {
    std::string strName; ///< "openat", say
    std::string strPath;
    int nNumber; ///< among the process's calls on watched folders, from 0
};

/// What becomes of a call. A call that fails or is pretended does not happen.
struct CVerdict {
    enum class EKind { happens, fails, isPretended, kills };
    EKind eKind = EKind::happens;
    int nErrno = 0; ///< of one that fails
};

/// What a watched process has done.
struct CWatchedEnd {
    bool bKilled = false;    ///< by a verdict or a signal of the system
    int nSignal = 0;         ///< of a death by signal
    std::string strReported; ///< what it has written to its report
    std::vector<std::string> calls;
};

/// Runs an action in a process of its own, which is this one's copy, and asks about each of its system calls
/// on the files under some folders, folders included, before it happens. So a process that is killed in call
/// n is as well one that is killed after call n - 1. The action gets the descriptor of its report.
///
/// Needs no privileges, but a kernel from 5.5 on whose seccomp this process may use; throws
/// std::system_error otherwise.
CWatchedEnd RunWatched(const std::vector<std::string>& folders, const std::function<void(int)>& action,
                       const std::function<CVerdict(const FILECALL&)>& decide);
