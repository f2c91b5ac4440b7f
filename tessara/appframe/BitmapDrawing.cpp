#include "tessara/appframe/BitmapDrawing.h"

#include "tessara/platform/base/Exception.h"

namespace tessara {

BITMAP LoadBitmapOrThrow(CBitmap& bitmap, unsigned int nID) {
    BITMAP info{};
    if (!bitmap.LoadBitmap(nID) || !bitmap.GetBitmap(&info)) {
        AfxThrowResourceException();
    }
    return info;
}

void DrawBitmap(CDC& dc, CPoint place, CBitmap& bitmap, const BITMAP& info) {
    CDC memory;
    memory.CreateCompatibleDC(&dc);
    CBitmap* const pOld = memory.SelectObject(&bitmap);
    dc.BitBlt(static_cast<int>(place.x), static_cast<int>(place.y), static_cast<int>(info.bmWidth),
              static_cast<int>(info.bmHeight), &memory, 0, 0, SRCCOPY);
    memory.SelectObject(pOld);
}

} // namespace tessara
