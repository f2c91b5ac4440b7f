#include "tessara/plot/Page.h"

void CenterDC(CDC* pDC, RECT& rc) {
    pDC->SetMapMode(MM_ISOTROPIC);
    pDC->SetWindowExtEx(tessara::PAGE_WIDTH, tessara::PAGE_HEIGHT);
    pDC->SetViewportExtEx(rc.right, rc.bottom);
    CRect page(0, 0, tessara::PAGE_WIDTH, tessara::PAGE_HEIGHT);
    pDC->LPtoDP(&page);
    pDC->SetViewportOrgEx((rc.right - page.Width()) / 2, (rc.bottom - page.Height()) / 2);
}
