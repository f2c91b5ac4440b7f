#pragma once

#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/controls/Static.h"

namespace tessara {

/// A line between a frame's toolbar and its view that says what went wrong, until it is closed. It is paper
/// of its own colours, readable on light and dark desktops. Its button sends ID_BANNER_CLOSE to the frame,
/// which places the banner.
class CViewerBanner : public CWnd {
public:
    /// Makes the hidden banner of a frame.
    BOOL Create(CWnd& frame);
    using CWnd::Create;

    /// Keeps the text to show; empty hides the banner. The frame lays itself out afterwards.
    void Say(const CString& strText);
    const CString& GetText() const { return m_strText; }
    /// What the text needs at that width, in pixels; zero while there is nothing to say.
    int GetHeight(int nWidth);
    /// Places the banner, which has something to say, at the top of the frame's client area.
    void Place(int nWidth);

protected:
    void OnPaint();
    void OnCloseButton();
    HBRUSH OnCtlColor(CDC* pDC, CWnd* pControl, UINT nKind);
    DECLARE_MESSAGE_MAP()

private:
    /// Where things are, in the banner's pixels.
    struct CParts {
        int nHeight;
        CRect label;
        CRect button;
    };
    CParts LayOut(int nWidth);
    CSize TextSize(const CString& strText);

    CString m_strText;
    CStatic m_label;
    CButton m_button;
    CBrush m_ground;
};

} // namespace tessara
