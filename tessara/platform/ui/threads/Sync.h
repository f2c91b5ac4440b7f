#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

// Events and waits. Handles are closed with CloseHandle; a closed handle is no longer valid for anyone.

constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_TIMEOUT = 258;
constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;

/// An event. With automatic reset a wait that sees it signalled takes the signal. The first and the last
/// argument are not used.
TESSARA_API HANDLE CreateEvent(void* pSecurity, BOOL bManualReset, BOOL bInitialState, const char* pszName);
TESSARA_API BOOL SetEvent(HANDLE hEvent);
TESSARA_API BOOL ResetEvent(HANDLE hEvent);
TESSARA_API BOOL CloseHandle(HANDLE hObject);

/// Waits until an event is signalled or a thread has ended; 0 only asks. Serves, while it waits, what other
/// threads ask of this one (see docs/framework.md), so that no two waits can block each other.
TESSARA_API DWORD WaitForSingleObject(HANDLE hObject, DWORD nMilliseconds);
TESSARA_API void Sleep(DWORD nMilliseconds);
