#pragma once

#include <memory>

#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {

/// Tells a window that a file has changed, as long as this object lives.
///
/// Posts the message, with zero words, when the file was written in place, replaced by renaming another, or
/// removed and made again: once the file has rested for about 0.15 s, so that it is not read half written,
/// and about every 2 s while it never rests. A file that is missing posts nothing until it exists; it may be
/// missing from the start, its folder may not. A path relative to the current folder is resolved once. What
/// happens to other files of the folder posts nothing. A window that has gone gets nothing. Main thread.
///
///     m_pWatch = std::make_unique<tessara::CFileWatch>(strPath, *this, WM_USER + 1);
class TESSARA_API CFileWatch {
public:
    CFileWatch(const char* pszPath, CWnd& wnd, UINT nMessage);
    ~CFileWatch();
    CFileWatch(const CFileWatch&) = delete;
    CFileWatch& operator=(const CFileWatch&) = delete;

private:
    class CBody;
    std::unique_ptr<CBody> m_pBody;
};

} // namespace tessara
