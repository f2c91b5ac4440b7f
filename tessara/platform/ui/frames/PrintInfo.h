#pragma once

#include <memory>

#include "tessara/platform/base/String.h"
#include "tessara/platform/gdi/Geometry.h"

namespace tessara {
class CPrintTarget;
}

/// One printing: what is asked for before it, and the page at hand during it. Pages count from 1.
struct TESSARA_API CPrintInfo {
    CPrintInfo();
    ~CPrintInfo();
    CPrintInfo(const CPrintInfo&) = delete;
    CPrintInfo& operator=(const CPrintInfo&) = delete;

    BOOL m_bPreview = FALSE;         ///< for the preview
    BOOL m_bDirect = FALSE;          ///< without a dialog: on the default printer, or into m_strFileName
    BOOL m_bContinuePrinting = TRUE; ///< OnPrepareDC clears it past the last page
    UINT m_nCurPage = 1;
    CRect m_rectDraw;             ///< the printable area in device units
    void* m_lpUserData = nullptr; ///< the program's
    CString m_strFileName;        ///< a PDF to print into instead of a printer

    void SetMinPage(UINT nPage) { m_nMinPage = nPage; }
    void SetMaxPage(UINT nPage) { m_nMaxPage = nPage; }
    UINT GetMinPage() const { return m_nMinPage; }
    UINT GetMaxPage() const { return m_nMaxPage; }   ///< UNKNOWN_PAGE where nobody has said
    UINT GetFromPage() const { return m_nFromPage; } ///< the first page that the user wants
    UINT GetToPage() const { return m_nToPage; }

    static constexpr UINT UNKNOWN_PAGE = 0xFFFF;

    // Filled by DoPreparePrinting.
    UINT m_nMinPage = 1;
    UINT m_nMaxPage = UNKNOWN_PAGE;
    UINT m_nFromPage = 1;
    UINT m_nToPage = UNKNOWN_PAGE;
    std::unique_ptr<tessara::CPrintTarget> m_pTarget; ///< where it is printed to
};
