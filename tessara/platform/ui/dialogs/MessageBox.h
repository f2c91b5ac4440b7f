#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/ui/windows/Styles.h"

class CWnd;

/// Shows a modal message with the buttons and the icon of nType (see MessageBoxStyle) over the active window
/// and waits for the answer: IDOK, IDCANCEL, IDYES and so on. The Escape key and the close box answer Cancel,
/// or OK where that is the only button. When the window beneath is destroyed, the answer is IDCANCEL. The
/// caption is the application's name. From any thread. Where there can be no windows (see
/// CGraphicsException), the caption and the text go to standard error, and the answer is 0.
TESSARA_API int AfxMessageBox(const char* pszText, UINT nType = MB_OK, UINT nHelpID = 0);
/// The same with a string resource. Throws CResourceException when there is none.
TESSARA_API int AfxMessageBox(UINT nTextID, UINT nType = MB_OK, UINT nHelpID = 0);
