#include "tessara/appframe/BitmapStatic.h"

#include "tessara/appframe/BitmapDrawing.h"
#include "tessara/platform/ui/windows/ClientDC.h"

IMPLEMENT_DYNCREATE(CBitmapStatic, CStatic)

void CBitmapStatic::LoadBitmapA(unsigned int nID) {
    m_bitmapInfo = tessara::LoadBitmapOrThrow(m_bitmap, nID);
    m_nBitmapID = nID;
    Invalidate();
}

void CBitmapStatic::OnPaint() {
    CPaintDC dc(this);
    if (m_nBitmapID == tessara::NO_BITMAP) {
        return;
    }
    CRect client;
    GetClientRect(&client);
    CBrush white(RGB(255, 255, 255));
    dc.FillRect(&client, &white);
    tessara::DrawBitmap(
        dc, {(client.Width() - m_bitmapInfo.bmWidth) / 2, (client.Height() - m_bitmapInfo.bmHeight) / 2},
        m_bitmap, m_bitmapInfo);
}

BEGIN_MESSAGE_MAP(CBitmapStatic, CStatic)
ON_WM_PAINT()
END_MESSAGE_MAP()
