#pragma once

#include <span>

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/resources/MenuResources.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

// What frames ask of the room that has the widgets. Main thread.

namespace tessara {

/// Names of the classes of windows below.
constexpr const char* FRAME_CLASS = "TessaraFrame";
constexpr const char* VIEW_CLASS = "TessaraView";
constexpr const char* STATUS_BAR_CLASS = "TessaraStatusBar";
constexpr const char* TOOL_BAR_CLASS = "TessaraToolBar";

/// Puts a resource's entries into a frame's menu bar, in place of what was there.
void SetFrameMenu(HWND hFrame, const CMenuResource& resource);
/// Whether a menu item of the frame lets its command through: null where no item has it. The item is updated
/// first.
enum class EItemState { none, enabled, greyed };
EItemState UpdateMenuItem(HWND hFrame, UINT nCommand);

/// Puts buttons into a toolbar.
void SetToolButtons(HWND hToolBar, std::span<const CToolButton> buttons);
/// Asks the frame of a toolbar what its buttons look like.
void UpdateToolButtons(HWND hToolBar);

/// Makes the panes of a status bar: the first is wide, the others are as wide as their texts.
void SetPanes(HWND hStatusBar, std::span<const CString> texts);
bool SetPaneText(HWND hStatusBar, int nPane, const CString& strText);
CString GetPaneText(HWND hStatusBar, int nPane);
void EnablePane(HWND hStatusBar, int nPane, bool bEnable);

/// AcceleratorKeys held during the key message that is being handled.
UINT HeldAcceleratorKeys();
/// Whether a modal dialog other than the window itself keeps input from it.
bool IsBlocked(HWND hWnd);

/// Updates the controls of all visible frames.
void UpdateFrames();

} // namespace tessara
