#pragma once

#include <functional>

/// Stands between this test program's code and some system calls on files: open, openat, write, fsync,
/// syncfs, fchmod, fchown, fstatat, flock, renameat; and tells of umask.
///
/// While an object lives, its handler is asked before each call and answers with the error number that the
/// call fails with, 0 to let it happen, or HALF to write only half. The handler's own calls happen. One
/// object and one thread at a time.
class CSystemCalls {
public:
    using CHandler = std::function<int(const char* pszCall)>;
    static constexpr int HALF = -1;

    explicit CSystemCalls(CHandler handler);
    ~CSystemCalls();
    CSystemCalls(const CSystemCalls&) = delete;
    CSystemCalls& operator=(const CSystemCalls&) = delete;
};
