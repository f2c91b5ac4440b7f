#pragma once

#include "tessara/platform/gdi/Bitmap.h"
#include "tessara/platform/ui/controls/Static.h"

/// A picture in the middle of a white control. Without one it paints nothing.
///
///     CBitmapStatic m_picture;                          // a member of a dialog
///     DDX_Control(pDX, 1005, m_picture);                // of the template's static
///     m_picture.LoadBitmapA(IDB_MOLECULE);
class TESSARA_API CBitmapStatic : public CStatic {
    DECLARE_DYNCREATE(CBitmapStatic)

public:
    CBitmapStatic() = default;

    unsigned int m_nBitmapID = 0xFFFFFFFF; ///< until one is loaded
    CBitmap m_bitmap;
    BITMAP m_bitmapInfo{};

    /// Shows a bitmap of the resources. Throws CResourceException when there is none, and goes on with what
    /// it has.
    void LoadBitmapA(unsigned int nID);

protected:
    void OnPaint();
    DECLARE_MESSAGE_MAP()
};
