#pragma once

#include <vector>

#include "tessara/platform/base/String.h"

// What the application's object asks of the room that has the widgets. Main thread.

namespace tessara {

/// Starts the window system, if it does not run yet, and takes its options out of the command line. Returns
/// the arguments that are left, without the program's name.
std::vector<CString> StartWindowSystem(int argc, char** argv);

/// The name that message boxes and the desktop show.
void SetApplicationName(const CString& strName);

/// Lets widgets go that are to be destroyed later.
void FinishDestroying();

} // namespace tessara
