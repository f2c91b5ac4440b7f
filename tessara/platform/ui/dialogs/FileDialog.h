#pragma once

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/windows/Styles.h"

class CWnd;

/// What a file dialog does; combined with '|'.
enum FileDialogFlag : DWORD {
    OFN_OVERWRITEPROMPT = 0x2, ///< asks before an existing file is chosen to be written
    OFN_HIDEREADONLY = 0x4     ///< always: there is no box for reading alone
};

/// Asks for a file: for one that exists, to open it, or for one to write.
///
/// The filter is pairs of a text and its patterns, which semicolons separate, ended by two bars. Patterns
/// that the text does not show are added to what the user sees. The filter that fits the proposed name, else
/// the default extension, is chosen at first. A name to write that has no extension gets the default one
/// where the chosen filter shows such files or has none itself ("*.*"), else the filter's first. The question
/// whether a file shall be replaced is about the completed name; answering No goes back to the dialog. From
/// any thread.
///
///     CFileDialog dialog(FALSE, "png", "plot", OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
///                        "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg||", this);
///     if (dialog.DoModal() == IDOK) ... dialog.GetPathName()
class TESSARA_API CFileDialog {
public:
    explicit CFileDialog(BOOL bOpenFileDialog, const char* lpszDefExt = nullptr,
                         const char* lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                         const char* lpszFilter = nullptr, CWnd* pParentWnd = nullptr);
    virtual ~CFileDialog() = default;

    /// IDOK when a file was chosen, otherwise IDCANCEL. Without parent the dialog is over the active window.
    virtual int DoModal();

    CString GetPathName() const { return m_strPath; } ///< before DoModal and after IDCANCEL the proposal
    CString GetFileName() const;                      ///< without the folder
    CString GetFileExt() const;                       ///< without the dot

private:
    BOOL m_bOpen;
    CString m_strExtension; ///< the default, without the dot
    CString m_strPath;
    DWORD m_dwFlags;
    CString m_strFilter;
    CWnd* m_pParentWnd;
};
