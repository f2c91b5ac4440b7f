#pragma once

#include <string>

#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/resources/MenuResources.h"

// The viewer's menus, keys, buttons, texts and icons.

namespace tessara {

enum ViewerResource : UINT {
    IDR_VIEWER = 128,   ///< menu, accelerators, toolbar, title and icon
    IDR_VIEWER_CONTEXT, ///< the view's context menu
    IDD_VIEWER_SCALES,  ///< see ScaleDialog.h
    IDD_VIEWER_KEYS,    ///< see ViewerKeysDialog.h
    IDD_VIEWER_ABOUT,   ///< see ViewerAboutDialog.h
    IDS_VIEWER_ZOOMED,  ///< a pane of the status bar
};

/// Commands beyond the standard ones. Those that the code counts through stand together.
enum ViewerCommand : UINT {
    ID_FILE_RELOAD = 32771,
    ID_FILE_EXPORT,
    ID_EDIT_COPY,
    ID_EDIT_COPY_VALUES,
    ID_ZOOM_AREA,
    ID_ZOOM_IN,
    ID_ZOOM_OUT,
    ID_ZOOM_BACK,
    ID_ZOOM_FORWARD,
    ID_ZOOM_WHOLE,
    ID_PAN_LEFT,
    ID_PAN_RIGHT,
    ID_PAN_UP,
    ID_PAN_DOWN,
    ID_ARROW_LEFT, ///< of the keyboard: walk along a curve, or move what is shown
    ID_ARROW_RIGHT,
    ID_ARROW_UP,
    ID_ARROW_DOWN,
    ID_SWITCH_MULTIPHASE,
    ID_SWITCH_LEGEND,
    ID_SWITCH_CAPTION,
    ID_SWITCH_MONOCHROME,
    ID_VIEW_SCALES,
    ID_VIEW_FULL_SCREEN,
    ID_VIEW_CONTEXT_MENU,
    ID_VIEW_NEXT_WINDOW, ///< from the plot to a read-out and back
    ID_READ_VALUE,
    ID_READ_EXTENDED,
    ID_READ_SECTION,
    ID_HELP_KEYS,
    ID_LEAVE, ///< Escape: ends what is going on
    ID_BANNER_CLOSE,

    ID_SWITCH_FIRST = ID_SWITCH_MULTIPHASE,
    ID_SWITCH_LAST = ID_SWITCH_MONOCHROME,
    ID_READ_FIRST = ID_READ_VALUE,
    ID_READ_LAST = ID_READ_SECTION
};

/// Adds the tables to the program's resources, once.
void AddViewerResources();

/// "Ctrl+Shift+P".
std::string KeyText(const CAccelerator& accelerator);

} // namespace tessara
