#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

// Lists of indexed text, as read-out windows have them. The list is drawn by its owner and keeps no strings:
// an item's data is the address of its text.

namespace tessara {

/// The height of a line: 22 pixels at 96 dots per inch.
void MeasureValueListItem(CWnd& dialog, MEASUREITEMSTRUCT& measure);

/// Draws a line in the desktop's colours for lists.
void DrawValueListItem(const DRAWITEMSTRUCT& item);

} // namespace tessara
