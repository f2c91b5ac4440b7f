#pragma once

#include "tessara/platform/base/String.h"

namespace tessara {

/// A string resource; where no table has it, the library's own text of that number, or nothing. A text has
/// lines: the first is shown in the status bar, the second beside the pointer.
CString StandardString(UINT nID);
/// One line of it, from 0.
CString StandardStringLine(UINT nID, int nLine);

/// Part number nPart, from 0, of a text whose parts a character separates.
CString PartOf(const CString& strText, int nPart, char chSeparator);

} // namespace tessara
