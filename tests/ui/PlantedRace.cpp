// Two threads change one number without asking each other. The thread sanitizer must say so: this program
// shows that the tests of threads would be told of a race.

#include <atomic>

#include "tessara/platform/ui/threads/WinThread.h"

namespace {

int g_nShared = 0;
std::atomic<int> g_nMet = 0;

/// Changes the number when both threads have come here; meeting orders nothing.
void MeetAndChange() {
    g_nMet.fetch_add(1, std::memory_order_relaxed);
    while (g_nMet.load(std::memory_order_relaxed) < 2) {
    }
    for (int i = 0; i < 1000; ++i) {
        ++g_nShared;
    }
}

UINT Run(void*) {
    MeetAndChange();
    return 0;
}

} // namespace

int main() {
    CWinThread thread(&Run, nullptr);
    thread.m_bAutoDelete = FALSE;
    if (!thread.CreateThread()) {
        return 0;
    }
    MeetAndChange();
    WaitForSingleObject(thread.m_hThread, INFINITE);
    return g_nShared < 0 ? 1 : 0;
}
