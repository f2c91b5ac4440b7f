#include "cli/EndSignals.h"

#include <csignal>

#include "tessara/platform/files/ReplacementFile.h"

namespace tessara {

namespace {

/// Runs inside a signal: only what is safe there. The second signal finds the default action and ends the
/// process.
void RemoveAndEnd(int nSignal) {
    CReplacementFile::RemoveUnfinished();
    std::signal(nSignal, SIG_DFL);
    std::raise(nSignal);
}

} // namespace

void RemoveUnfinishedOnEndSignals() {
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (sigaction(nSignal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
            action.sa_handler = RemoveAndEnd;
            sigaction(nSignal, &action, nullptr);
        }
    }
}

} // namespace tessara
