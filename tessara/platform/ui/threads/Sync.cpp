#include "tessara/platform/ui/threads/Sync.h"

#include <map>
#include <memory>

#include "tessara/platform/ui/threads/Mailbox.h"

namespace tessara {

namespace {

struct CEvent {
    bool bManualReset;
    bool bSignalled;
    bool bClosed = false;
};

/// Who waits for an event keeps it beyond its handle, and so still sees a signal that came before the end.
using CEventPointer = std::shared_ptr<CEvent>;

struct CEvents {
    std::map<std::uintptr_t, CEventPointer> events;
    std::uintptr_t nLast = 0;
};

/// Kept to the end of the process: threads may outlive static objects.
CEvents& Events() {
    static auto* const s_pEvents = new CEvents;
    return *s_pEvents;
}

/// The caller holds the lock.
CEventPointer Find(HANDLE hEvent) {
    const auto it = Events().events.find(reinterpret_cast<std::uintptr_t>(hEvent));
    return it == Events().events.end() ? nullptr : it->second;
}

BOOL SetSignal(HANDLE hEvent, bool bSignalled) {
    const std::lock_guard lock(SharedLock());
    const CEventPointer pEvent = Find(hEvent);
    if (!pEvent) {
        return FALSE;
    }
    pEvent->bSignalled = bSignalled;
    CMailbox::WakeAll();
    return TRUE;
}

/// Takes the signal of an event that resets itself. The caller holds the lock.
bool TakeSignal(CEvent& event) {
    const bool bSignalled = event.bSignalled;
    event.bSignalled = bSignalled && event.bManualReset;
    return bSignalled;
}

CDeadline DeadlineIn(DWORD nMilliseconds) {
    if (nMilliseconds == INFINITE) {
        return std::nullopt;
    }
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(nMilliseconds);
}

} // namespace

} // namespace tessara

HANDLE CreateEvent(void*, BOOL bManualReset, BOOL bInitialState, const char*) {
    const std::lock_guard lock(tessara::SharedLock());
    tessara::CEvents& table = tessara::Events();
    table.events[++table.nLast] =
        std::make_shared<tessara::CEvent>(tessara::CEvent{bManualReset != 0, bInitialState != 0});
    return reinterpret_cast<HANDLE>(table.nLast);
}

BOOL SetEvent(HANDLE hEvent) {
    return tessara::SetSignal(hEvent, true);
}

BOOL ResetEvent(HANDLE hEvent) {
    return tessara::SetSignal(hEvent, false);
}

BOOL CloseHandle(HANDLE hObject) {
    const std::lock_guard lock(tessara::SharedLock());
    const tessara::CEventPointer pEvent = tessara::Find(hObject);
    if (!pEvent) {
        return FALSE;
    }
    pEvent->bClosed = true;
    tessara::Events().events.erase(reinterpret_cast<std::uintptr_t>(hObject));
    tessara::CMailbox::WakeAll();
    return TRUE;
}

DWORD WaitForSingleObject(HANDLE hObject, DWORD nMilliseconds) {
    tessara::CEventPointer pEvent;
    {
        const std::lock_guard lock(tessara::SharedLock());
        pEvent = tessara::Find(hObject);
    }
    if (!pEvent) {
        return WAIT_FAILED;
    }
    DWORD nResult = WAIT_TIMEOUT;
    const auto fnEnded = [&] {
        if (nResult != WAIT_TIMEOUT) {
            return true; // asked again after the signal was taken
        }
        if (tessara::TakeSignal(*pEvent)) {
            nResult = WAIT_OBJECT_0;
        } else if (pEvent->bClosed) {
            nResult = WAIT_FAILED;
        }
        return nResult != WAIT_TIMEOUT;
    };
    if (nMilliseconds == 0) { // a question, not a wait: nothing else happens meanwhile
        const std::lock_guard lock(tessara::SharedLock());
        fnEnded();
    } else {
        tessara::CMailbox::OfThisThread()->WaitUntil(fnEnded, tessara::DeadlineIn(nMilliseconds));
    }
    return nResult;
}

void Sleep(DWORD nMilliseconds) {
    tessara::CMailbox::OfThisThread()->WaitUntil([] { return false; }, tessara::DeadlineIn(nMilliseconds));
}
