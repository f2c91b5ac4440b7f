#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A small moving picture, as large as the control allows. It moves only while it is seen. Its ground is the
/// desktop's, or with ACS_TRANSPARENT what the parent has painted there.
///
/// The widget and the methods are in qt/controls/Animate.cpp; animations are resources (Resources.h).
class TESSARA_API CAnimateCtrl : public CWnd {
    DECLARE_DYNCREATE(CAnimateCtrl)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and AnimateStyle.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// Shows the first picture of the animation of that number; with ACS_AUTOPLAY it runs. Throws
    /// CResourceException when there is none, and goes on with what is open.
    BOOL Open(UINT nID);
    /// From one picture to another (-1: the last), so many times (-1: for ever); then the last of them stays.
    /// Pictures count from 0; a number too large is the last. Zero when nothing is open.
    BOOL Play(UINT nFrom, UINT nTo, UINT nRepeat);
    BOOL Stop();  ///< leaves the picture that is shown
    BOOL Close(); ///< shows nothing any more
};
