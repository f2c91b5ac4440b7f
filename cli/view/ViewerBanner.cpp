#include "cli/view/ViewerBanner.h"

#include <algorithm>

#include "cli/view/ViewerResources.h"
#include "tessara/platform/ui/windows/ClientDC.h"

namespace tessara {

namespace {

constexpr COLORREF GROUND = RGB(255, 232, 176);
constexpr COLORREF TEXT = RGB(64, 36, 0);
constexpr COLORREF EDGE = RGB(214, 160, 60);
constexpr UINT IDC_LABEL = 1;
constexpr const char* BUTTON_TEXT = "Close";
constexpr int MAX_LINES = 4;

} // namespace

BOOL CViewerBanner::Create(CWnd& frame) {
    m_ground.CreateSolidBrush(GROUND);
    return CreateEx(0, nullptr, "", WS_CHILD, CRect(), &frame, ID_BANNER_CLOSE) &&
           m_label.Create("", WS_CHILD | WS_VISIBLE | SS_NOPREFIX, CRect(), this, IDC_LABEL) &&
           m_button.Create(BUTTON_TEXT, WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(), this, ID_BANNER_CLOSE);
}

void CViewerBanner::Say(const CString& strText) {
    m_strText = strText;
    m_label.SetWindowText(strText);
    ShowWindow(strText.IsEmpty() ? SW_HIDE : SW_SHOW);
}

CSize CViewerBanner::TextSize(const CString& strText) {
    return CClientDC(this).GetTextExtent(strText);
}

CViewerBanner::CParts CViewerBanner::LayOut(int nWidth) {
    const CSize buttonText = TextSize(BUTTON_TEXT);
    const auto nLine = static_cast<int>(buttonText.cy);
    const int nMargin = nLine / 2;
    const int nButton = nLine + nLine / 2;
    const int nButtonLeft = nWidth - nMargin - static_cast<int>(buttonText.cx) - 2 * nLine;
    // Lines break at words: a tenth of each is left free.
    const int nRoom = std::max(1, (nButtonLeft - 2 * nMargin) * 9 / 10);
    const int nLabel = nLine * std::min(MAX_LINES, static_cast<int>(TextSize(m_strText).cx) / nRoom + 1);
    const int nHeight = std::max(nLabel, nButton) + 2 * nMargin;
    const int nLabelTop = (nHeight - nLabel) / 2;
    const int nButtonTop = (nHeight - nButton) / 2;
    return {nHeight, CRect(nMargin, nLabelTop, nButtonLeft - nMargin, nLabelTop + nLabel),
            CRect(nButtonLeft, nButtonTop, nWidth - nMargin, nButtonTop + nButton)};
}

int CViewerBanner::GetHeight(int nWidth) {
    return m_strText.IsEmpty() ? 0 : LayOut(nWidth).nHeight;
}

void CViewerBanner::Place(int nWidth) {
    const CParts parts = LayOut(nWidth);
    MoveWindow(0, 0, nWidth, parts.nHeight);
    m_label.MoveWindow(parts.label);
    m_button.MoveWindow(parts.button);
    Invalidate();
}

void CViewerBanner::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    dc.FillRect(&client, &m_ground);
    CBrush edge(EDGE);
    client.top = client.bottom - 1;
    dc.FillRect(&client, &edge);
}

void CViewerBanner::OnCloseButton() {
    GetParent()->SendMessage(WM_COMMAND, ID_BANNER_CLOSE);
}

HBRUSH CViewerBanner::OnCtlColor(CDC* pDC, CWnd*, UINT) {
    pDC->SetTextColor(TEXT);
    return &m_ground;
}

BEGIN_MESSAGE_MAP(CViewerBanner, CWnd)
ON_WM_PAINT()
ON_WM_CTLCOLOR()
ON_BN_CLICKED(ID_BANNER_CLOSE, OnCloseButton)
END_MESSAGE_MAP()

} // namespace tessara
