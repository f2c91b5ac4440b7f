#pragma once

#include "tessara/platform/base/Types.h"

/// Numbers of the library's cursor resources, for LoadCursor.
enum LibraryCursor : UINT {
    CURSOR_READ_OUT = 16386, ///< a click reads a curve out
    CURSOR_ZOOM = 16387,     ///< a drag zooms in
    CURSOR_NO_ZOOM = 16389   ///< no drag may begin here
};
