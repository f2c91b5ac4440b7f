#pragma once

#include "tessara/platform/base/String.h"

class CDocTemplate;

namespace tessara {

/// Asks for a file over the active window: for one that exists with the title AFX_IDS_OPENFILE, for one to
/// write with AFX_IDS_SAVEFILE. The template, if any, says which files are shown and which extension a name
/// gets that has none. strPath is the proposal and, when the answer is true, the choice.
bool AskFileName(CString& strPath, UINT nTitleID, const CDocTemplate* pTemplate);

} // namespace tessara
