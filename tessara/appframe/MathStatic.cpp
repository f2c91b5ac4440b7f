#include "tessara/appframe/MathStatic.h"

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/Geometry.h"
#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/System.h"
#include "tessara/plot/IndexedText.h"

IMPLEMENT_DYNCREATE(CMathStatic, CWnd)

namespace {

std::unique_ptr<CWnd> MakeMathStatic() {
    return std::make_unique<CMathStatic>();
}

} // namespace

CMathStatic::CMathStatic() {
    if (!RegisterWindowClass()) {
        AfxThrowResourceException();
    }
}

int CMathStatic::RegisterWindowClass() {
    static const bool s_bRegistered = tessara::RegisterControlClass("CPMathStaticControl", &MakeMathStatic);
    return s_bRegistered;
}

void CMathStatic::SetFontScale(double dScale) {
    m_dFontScale = dScale;
    Invalidate();
}

/// The parent's line is taken for points. On a dense screen both it and an inch have more pixels: the scale
/// must count once.
int CMathStatic::GetTextSize() const {
    CWnd* const pParent = GetParent();
    CClientDC dc(pParent);
    CFont* const pOld = dc.SelectObject(pParent->GetFont());
    TEXTMETRIC metric{};
    dc.GetTextMetrics(&metric);
    dc.SelectObject(pOld);
    constexpr int POINTS_PER_INCH = 72;
    const int nPoints = tessara::ToCoordinate(-static_cast<double>(metric.tmHeight) * m_dFontScale);
    const double dPixelsPerInch = dc.GetDeviceCaps(LOGPIXELSY) / tessara::WindowScale(this);
    return tessara::ToCoordinate(nPoints * dPixelsPerInch / POINTS_PER_INCH);
}

void CMathStatic::OnPaint() {
    CPaintDC dc(this);
    CRect clip;
    if (dc.GetClipBox(&clip) == NULLREGION || !GetParent()) {
        return;
    }
    CString strText;
    GetWindowText(strText);
    const int nSize = GetTextSize();
    CRect client;
    GetClientRect(&client);
    CRect extent;
    GetIndexedTextExtent(&dc, strText, nSize, &extent);
    const int nRoom = static_cast<int>(client.Width() - extent.Width());
    const int nX = static_cast<int>(client.left) + (m_nAlignment == centred ? nRoom / 2
                                                    : m_nAlignment == right ? nRoom
                                                                            : 0);
    const int nY = static_cast<int>(client.top);
    const int nOldMode = dc.SetBkMode(TRANSPARENT);
    const COLORREF oldGround = dc.SetBkColor(GetSysColor(COLOR_BTNFACE));
    const COLORREF oldColor = dc.SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
    if (!IsWindowEnabled()) {
        dc.SetTextColor(GetSysColor(COLOR_BTNHIGHLIGHT));
        IndexedTextOut(&dc, nX + 1, nY + 1, strText, nSize, nullptr);
        dc.SetTextColor(GetSysColor(COLOR_BTNSHADOW));
    }
    IndexedTextOut(&dc, nX, nY, strText, nSize, nullptr);
    dc.SetTextColor(oldColor);
    dc.SetBkColor(oldGround);
    dc.SetBkMode(nOldMode);
}

void CMathStatic::OnEnable(BOOL bEnable) {
    CWnd::OnEnable(bEnable);
    Invalidate();
}

BEGIN_MESSAGE_MAP(CMathStatic, CWnd)
ON_WM_PAINT()
ON_WM_ENABLE()
END_MESSAGE_MAP()
