#include "tessara/platform/ui/ClientDC.h"

#include "tessara/platform/ui/PeerSeam.h"

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CClientDC)
IMPLEMENT_DYNAMIC(CPaintDC, CClientDC)

CClientDC::CClientDC(CWnd* pWnd) : CDC(tessara::MakeWindowSink(pWnd ? pWnd->GetSafeHwnd() : nullptr)) {}

CClientDC::~CClientDC() = default;
