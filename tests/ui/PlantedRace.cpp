// Two threads change one number without asking each other. The thread sanitizer must say so: this program shows that
// the tests of threads would be told of a race.

#include "tessara/platform/ui/WinThread.h"

namespace {

int g_nShared = 0;

UINT Change(void*) {
    for (int i = 0; i < 1000; ++i) {
        ++g_nShared;
    }
    return 0;
}

} // namespace

int main() {
    CWinThread thread(&Change, nullptr);
    thread.m_bAutoDelete = FALSE;
    if (!thread.CreateThread()) {
        return 0;
    }
    Change(nullptr);
    return WaitForSingleObject(thread.m_hThread, INFINITE) == WAIT_OBJECT_0 && g_nShared < 0;
}
