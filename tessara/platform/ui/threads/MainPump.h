#pragma once

#include <functional>

#include "tessara/platform/ui/threads/Mailbox.h"

namespace tessara {

/// What a loop of the main thread lets through besides calls of other threads.
enum class EMainLoop {
    everything, ///< the program's loop, or that of a modal dialog
    waiting     ///< repainting and windows of other threads; posted messages stay queued
};

/// Makes the main thread's loop serve its mailbox and ask its conditions. From any thread; before there is a
/// loop it does nothing.
void WakeMainThread();

/// Whether the main thread has a loop, and with it windows: then it cannot become another.
bool HasMainLoop();

/// Runs the event loop of the main thread until the condition holds; it is asked whenever the thread is
/// woken. False when the deadline passed first. Loops nest.
bool RunMainLoop(EMainLoop eLoop, const std::function<bool()>& fnCondition,
                 const CDeadline& deadline = std::nullopt);

} // namespace tessara
