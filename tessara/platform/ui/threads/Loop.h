#pragma once

#include <functional>

class CWinThread;

namespace tessara {

/// Runs the calling thread's message loop until the condition, asked after every message, holds or the thread
/// quits. False when it quits.
bool RunLoopUntil(const std::function<bool()>& fnEnd);

/// The code of the PostQuitMessage that ended the loop.
int TakeExitCode();

/// What the program does before its main thread waits for something to happen.
void RunIdle();

/// Makes the application's object that of the calling thread, and this the main thread, unless there is a
/// loop already.
void EnterMainThread(CWinThread& thread);
/// The application's object goes.
void LeaveMainThread(const CWinThread& thread);

} // namespace tessara
