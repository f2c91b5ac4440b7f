#include "tessara/appframe/LogotypeDialog.h"

#include "tessara/appframe/BitmapDrawing.h"
#include "tessara/appframe/FrameControls.h"
#include "tessara/platform/ui/windows/ClientDC.h"

IMPLEMENT_DYNAMIC(CLogotypeDialog, CDialog)

CLogotypeDialog::CLogotypeDialog(unsigned int nBitmapID, CWnd* pParent)
    : CLogotypeDialog(nBitmapID, tessara::NO_BITMAP, pParent) {}

CLogotypeDialog::CLogotypeDialog(unsigned int nBitmapID, unsigned int nBitmapID256, CWnd* pParent)
    : CDialog(tessara::IDD_LOGOTYPE, pParent), m_nBitmapID(nBitmapID), m_nBitmapID256(nBitmapID256) {}

BOOL CLogotypeDialog::OnInitDialog() {
    constexpr int FEW_COLORS = 256;
    const int nColors = CClientDC(this).GetDeviceCaps(NUMCOLORS);
    const bool bFew = nColors != -1 && nColors <= FEW_COLORS && m_nBitmapID256 != tessara::NO_BITMAP;
    m_bitmapInfo = tessara::LoadBitmapOrThrow(m_bitmap, bFew ? m_nBitmapID256 : m_nBitmapID);
    SetWindowPos(nullptr, 0, 0, static_cast<int>(m_bitmapInfo.bmWidth),
                 static_cast<int>(m_bitmapInfo.bmHeight), SWP_NOMOVE | SWP_NOZORDER);
    CenterWindow();
    return CDialog::OnInitDialog();
}

void CLogotypeDialog::OnCancel() {
    OnOK();
}

void CLogotypeDialog::OnPaint() {
    CPaintDC dc(this);
    tessara::DrawBitmap(dc, {}, m_bitmap, m_bitmapInfo);
}

void CLogotypeDialog::OnKeyDown(UINT, UINT, UINT) {
    OnOK();
}

void CLogotypeDialog::OnLButtonDown(UINT, CPoint) {
    OnOK();
}

void CLogotypeDialog::OnRButtonDown(UINT, CPoint) {
    OnOK();
}

void CLogotypeDialog::OnDestroy() {
    m_bitmap.DeleteObject();
    CDialog::OnDestroy();
}

BEGIN_MESSAGE_MAP(CLogotypeDialog, CDialog)
ON_WM_PAINT()
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
ON_WM_DESTROY()
END_MESSAGE_MAP()
