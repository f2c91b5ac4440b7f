#include "tessara/platform/ui/windows/ClientDC.h"

#include "tessara/platform/ui/windows/PeerSeam.h"
#include "tessara/platform/ui/windows/System.h"

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CClientDC)
IMPLEMENT_DYNAMIC(CPaintDC, CClientDC)

CClientDC::CClientDC(CWnd* pWnd) : CDC(tessara::MakeWindowSink(pWnd ? pWnd->GetSafeHwnd() : nullptr)) {
    const LOGFONT font = tessara::WindowFont(pWnd);
    m_font.CreateFontIndirect(&font);
    SelectObject(&m_font);
}

CClientDC::~CClientDC() = default;
