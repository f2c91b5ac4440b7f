#pragma once

#include <cerrno>
#include <csignal>
#include <ctime>
#include <sys/resource.h>

namespace tessara {

/// Spares the calling thread the signal SIGXFSZ, with which the system ends a program that writes beyond its
/// limit of the size of files. While an object lives, such a call fails with EFBIG alone. Costs nothing but
/// the look at the limit where there is none.
class CSizeSignal {
public:
    CSizeSignal() {
        rlimit limit;
        if (getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY) {
            sigemptyset(&m_signals);
            sigaddset(&m_signals, SIGXFSZ);
            m_bSpared = pthread_sigmask(SIG_BLOCK, &m_signals, &m_old) == 0 && !sigismember(&m_old, SIGXFSZ);
        }
    }
    ~CSizeSignal() {
        if (m_bSpared) {
            const int nErrno = errno;
            const timespec atOnce = {};
            sigtimedwait(&m_signals, nullptr, &atOnce); // it must not come now
            pthread_sigmask(SIG_SETMASK, &m_old, nullptr);
            errno = nErrno;
        }
    }
    CSizeSignal(const CSizeSignal&) = delete;
    CSizeSignal& operator=(const CSizeSignal&) = delete;

private:
    bool m_bSpared = false;
    sigset_t m_signals;
    sigset_t m_old;
};

} // namespace tessara
