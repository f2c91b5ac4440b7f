#include "tessara/platform/ui/windows/ClientDC.h"

#include "tessara/platform/ui/windows/PeerSeam.h"

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CClientDC)
IMPLEMENT_DYNAMIC(CPaintDC, CClientDC)

CClientDC::CClientDC(CWnd* pWnd) : CDC(tessara::MakeWindowSink(pWnd ? pWnd->GetSafeHwnd() : nullptr)) {}

CClientDC::~CClientDC() = default;
