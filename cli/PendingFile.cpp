#include "cli/PendingFile.h"

#include <atomic>
#include <csignal>
#include <unistd.h>

namespace tessara {

namespace {

std::atomic<const char*> s_pszPending{nullptr};
static_assert(std::atomic<const char*>::is_always_lock_free);

/// Runs inside a signal: only what is safe there. The second signal finds the default action and ends the
/// process.
void RemovePending(int nSignal) {
    if (const char* pszPath = s_pszPending.load()) {
        unlink(pszPath);
    }
    std::raise(nSignal);
}

void Watch(int nSignal) {
    struct sigaction previous {};
    if (sigaction(nSignal, nullptr, &previous) != 0 || previous.sa_handler != SIG_DFL) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = RemovePending;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(nSignal, &action, nullptr);
}

} // namespace

void SetPendingFile(const char* pszPath) {
    s_pszPending.store(pszPath);
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        Watch(nSignal);
    }
}

} // namespace tessara
