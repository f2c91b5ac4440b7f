// Two threads change one number without asking each other. The thread sanitizer must say so: this program
// shows that the tests of threads would be told of a race.

#include "tessara/platform/ui/WinThread.h"

namespace {

int g_nShared = 0;

void Change() {
    for (int i = 0; i < 1000; ++i) {
        ++g_nShared;
    }
}

UINT ChangeAfter(void* pEvent) {
    WaitForSingleObject(static_cast<HANDLE>(pEvent), INFINITE);
    Change();
    return 0;
}

} // namespace

int main() {
    const HANDLE hStart = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    CWinThread thread(&ChangeAfter, hStart);
    thread.m_bAutoDelete = FALSE;
    if (!thread.CreateThread()) {
        return 0;
    }
    SetEvent(hStart);
    Change(); // nothing orders this and what the other thread does
    WaitForSingleObject(thread.m_hThread, INFINITE);
    return g_nShared < 0 ? 1 : 0;
}
