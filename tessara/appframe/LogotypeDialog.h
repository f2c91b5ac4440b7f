#pragma once

#include "tessara/platform/gdi/Bitmap.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

/// A picture in the middle of its owner, until the user presses a key or a button of the mouse; it ends with
/// OK then.
///
/// Throws CResourceException when it opens and there is no such picture.
class TESSARA_API CLogotypeDialog : public CDialog {
    DECLARE_DYNAMIC(CLogotypeDialog)

public:
    /// nBitmapID is a bitmap of the resources, nBitmapID256 another one for displays of at most 256 colours.
    CLogotypeDialog(unsigned int nBitmapID, CWnd* pParent);
    CLogotypeDialog(unsigned int nBitmapID, unsigned int nBitmapID256, CWnd* pParent);

    unsigned int m_nBitmapID;
    unsigned int m_nBitmapID256; ///< 0xFFFFFFFF for none
    CBitmap m_bitmap;
    BITMAP m_bitmapInfo{};

protected:
    BOOL OnInitDialog() override;
    void OnCancel() override; // the Escape key is one like others

    void OnPaint();
    void OnKeyDown(UINT nKey, UINT nRepeat, UINT nFlags);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnRButtonDown(UINT nFlags, CPoint point);
    void OnDestroy();
    DECLARE_MESSAGE_MAP()
};
