#pragma once

#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

// What dialogs ask of the room that has the widgets; from any thread.

namespace tessara {

/// The class name of a dialog's own window.
constexpr const char* CLASS_DIALOG = "Dialog";

/// Places a dialog and its controls, which are the template's in its order, and ties labels and radio buttons
/// to what they belong to.
void LayOutDialog(HWND hDialog, const CDialogTemplate& resource);
/// Gives the keyboard to the first control that takes it.
void FocusFirstControl(HWND hDialog);
/// Keeps a window from input; false when there is none or it takes none already.
bool BlockOwner(HWND hOwner);
/// Lets it take input again and makes it active.
void UnblockOwner(HWND hOwner);
/// The window of the calling thread that is active, or null.
HWND FindActiveWindow();

} // namespace tessara
