#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A small moving picture. It moves only while it is seen.
class TESSARA_API CAnimateCtrl : public CWnd {
    DECLARE_DYNCREATE(CAnimateCtrl)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// Shows the animation of that number; with ACS_AUTOPLAY it runs. Throws CResourceException when there is
    /// none.
    BOOL Open(UINT nID);
    /// From one picture to another (-1: the last), so many times (-1: for ever).
    BOOL Play(UINT nFrom, UINT nTo, UINT nRepeat);
    BOOL Stop();
    BOOL Close(); ///< shows nothing any more
};
