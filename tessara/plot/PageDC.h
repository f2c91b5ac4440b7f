#pragma once

#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/plot/Page.h"

namespace tessara {

/// A surface on a window's client area with the page of a plot mapped into it, as painting does.
class CPageDC : public CClientDC {
public:
    explicit CPageDC(CWnd* pWnd) : CClientDC(pWnd) {
        CRect client;
        pWnd->GetClientRect(&client);
        CenterDC(this, client);
    }
};

} // namespace tessara
