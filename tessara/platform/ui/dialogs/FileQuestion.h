#pragma once

#include <vector>

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

class CDocTemplate;

namespace tessara {

/// One kind of file that a dialog offers to show: "PNG picture (*.png)" and "*.png". Semicolons separate
/// patterns.
struct CFileFilter {
    CString strText;
    CString strPatterns;
};

/// What a file dialog asks, and its answer.
struct CFileQuestion {
    bool bSave = false;
    bool bAskToReplace = true; ///< whether an existing file is written without a question
    CString strTitle;
    CString strPath; ///< the proposal and, when it was accepted, the choice
    CString strDefaultExtension;
    std::vector<CFileFilter> filters; ///< never empty
    HWND hOwner = nullptr;            ///< null: the active window
};

/// Shows the dialog. True when a file was chosen. From any thread.
bool AskFile(CFileQuestion& question);

/// Asks for a file over the active window: for one that exists with the title AFX_IDS_OPENFILE, for one to
/// write with AFX_IDS_SAVEFILE. The template, if any, says which files are shown and which extension a name
/// gets that has none. strPath is the proposal and, when the answer is true, the choice.
bool AskFileName(CString& strPath, UINT nTitleID, const CDocTemplate* pTemplate);

} // namespace tessara
