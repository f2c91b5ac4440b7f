#include "cli/view/ViewerBanner.h"

#include <algorithm>

#include "cli/view/ViewerResources.h"
#include "tessara/platform/ui/ClientDC.h"
#include "tessara/platform/ui/System.h"

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
    CClientDC dc(this);
    const LOGFONT description = WindowFont(this);
    CFont font;
    font.CreateFontIndirect(&description);
    CFont* const pPrevious = dc.SelectObject(&font);
    const CSize size = dc.GetTextExtent(strText);
    dc.SelectObject(pPrevious);
    return size;
}

CSize CViewerBanner::ButtonSize() {
    const CSize text = TextSize(BUTTON_TEXT);
    return {text.cx + 2 * text.cy, text.cy + text.cy / 2};
}

/// The height of the text. Lines break at words: a tenth of each is left free.
int CViewerBanner::LabelHeight(int nWidth) {
    const CSize text = TextSize(m_strText);
    const int nRoom = std::max(1, nWidth * 9 / 10);
    const int nLines = std::min(MAX_LINES, static_cast<int>(text.cx) / nRoom + 1);
    return nLines * static_cast<int>(text.cy);
}

CViewerBanner::CParts CViewerBanner::LayOut(int nWidth) {
    const CSize button = ButtonSize();
    const int nMargin = static_cast<int>(TextSize(BUTTON_TEXT).cy) / 2;
    const int nButtonLeft = nWidth - nMargin - static_cast<int>(button.cx);
    const int nLabel = LabelHeight(nButtonLeft - 2 * nMargin);
    const int nHeight = std::max(nLabel, static_cast<int>(button.cy)) + 2 * nMargin;
    const int nLabelTop = (nHeight - nLabel) / 2;
    const int nButtonTop = (nHeight - static_cast<int>(button.cy)) / 2;
    return {nHeight, CRect(nMargin, nLabelTop, nButtonLeft - nMargin, nLabelTop + nLabel),
            CRect(nButtonLeft, nButtonTop, nWidth - nMargin, nButtonTop + static_cast<int>(button.cy))};
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
