#include <vector>

#include "tessara/curveplot/GetValueDialog.h"
#include "tessara/curveplot/OutputCurve.h"
#include "tessara/platform/ui/Pointer.h"
#include "tessara/plot/LibraryCursors.h"
#include "tessara/plot/PageDC.h"
#include "tessara/plot/PlotArea.h"
#include "tessara/plot/PlotMap.h"
#include "tessara/plot/PlotText.h"

namespace {

constexpr COLORREF MARK_COLOR = 0x7F7F7F;
constexpr int MARK_WIDTH = 4;
constexpr COLORREF BLACK = 0x000000;
constexpr COLORREF WHITE = 0xFFFFFF;

} // namespace

void COutputCurve::CreateGetValue(CWnd* pParent) {
    DestroyGetValue();
    m_nFlags &= ~DWORD{OCF_MARKSHOWN}; // nothing has drawn it
    m_pParentWnd = pParent;
    auto pDialog = std::make_unique<CGetValueDialog>(pParent);
    if (pDialog->Create(CGetValueDialog::TEMPLATE, pParent)) {
        pDialog->m_pPlot = this;
        m_pGetValueDialog = pDialog.release();
    }
}

void COutputCurve::DestroyGetValue() {
    if (!m_pGetValueDialog) {
        return;
    }
    if (IsWindow(m_pGetValueDialog->m_hWnd)) { // and so is the parent, with which it would have gone
        ShowGetValue(FALSE);
    }
    m_nFlags &= ~DWORD{OCF_MARKSHOWN | OCF_GETVALUE};
    m_pGetValueDialog->DestroyWindow();
    delete m_pGetValueDialog;
    m_pGetValueDialog = nullptr;
}

int COutputCurve::IsGetValueVisible() {
    return m_pGetValueDialog && m_pGetValueDialog->IsWindowVisible();
}

void COutputCurve::ShowGetValue(int bShow) {
    if (bShow) {
        m_nFlags |= OCF_GETVALUE;
        if (m_pGetValueDialog) {
            m_pGetValueDialog->ShowWindow(SW_SHOW);
            m_pGetValueDialog->SetArgumentLabel(m_strArgumentName);
        }
        return;
    }
    if (m_pGetValueDialog) {
        m_pGetValueDialog->ShowWindow(SW_HIDE);
        if (m_nFlags & OCF_MARKSHOWN) {
            DrawMark();
        }
    }
    m_nFlags &= ~DWORD{OCF_MARKSHOWN | OCF_GETVALUE};
}

/// The shown number times ten to the power of minus the axis' exponent is the value.
CString COutputCurve::MakeValueLine(int nFunction, double x) {
    const int nExponent = m_FunctionScale.nExponent;
    const double dFactor = nExponent == 0 ? 1 : m_FunctionScale.dFactor;
    return tessara::ValueLine(m_strCurveSymbol, m_strFunctionFormat, Value(nFunction, x) * dFactor,
                              -nExponent);
}

void COutputCurve::DisplayValues(double x) {
    std::vector<CString> lines(static_cast<std::size_t>(m_nFunctions));
    for (int i = 0; i < m_nFunctions; ++i) {
        lines[static_cast<std::size_t>(i)] = MakeValueLine(i, x);
    }
    m_ValueLines.SetSize(m_nFunctions);
    for (int i = 0; i < m_nFunctions; ++i) {
        m_ValueLines.SetAt(i, lines[static_cast<std::size_t>(i)]);
    }
    if (m_pGetValueDialog) {
        m_pGetValueDialog->SetValueLines(m_ValueLines);
        if (m_nFlags & OCF_MARKSHOWN) {
            DrawMark();
        }
    }
    m_dMarkArgument = x;
    m_nFlags |= OCF_MARKSHOWN;
    if (m_pGetValueDialog) {
        DrawMark();
    }
}

void COutputCurve::PickArgument(double x) {
    if (m_pGetValueDialog) {
        m_pGetValueDialog->SetArgument(x);
    }
    DisplayValues(x);
}

void COutputCurve::DrawMark() {
    if (!m_pParentWnd) {
        return;
    }
    tessara::CPageDC dc(m_pParentWnd);
    DrawMarkOnDC(&dc);
}

/// An argument off the axis has no place in the plot.
void COutputCurve::DrawMarkOnDC(CDC* pDC) {
    pDC->SetROP2(R2_NOTXORPEN);
    if (!IsValidValue(m_dMarkArgument)) {
        return;
    }
    const tessara::CPlotArea area = tessara::CPlotArea::ForLegend(m_bShowLegend != 0);
    const int nX = GetPlotMap().MapX(m_dMarkArgument);
    CPen pen(PS_SOLID, MARK_WIDTH, MARK_COLOR);
    CPen* const pOldPen = pDC->SelectObject(&pen);
    pDC->MoveTo(nX, area.nTop);
    pDC->LineTo(nX, area.Bottom());
    pDC->SelectObject(pOldPen);
}

void COutputCurve::OnMouseMove(CPoint pt, CWnd* pWnd) {
    if (!m_rcPlotDevice.PtInRect(pt) || !(m_nFlags & OCF_GETVALUE)) {
        return;
    }
    const COLORREF crPixel = CClientDC(pWnd).GetPixel(pt.x, pt.y);
    if (crPixel == BLACK || crPixel == WHITE) {
        m_nFlags &= ~DWORD{OCF_OVERCURVE};
        return;
    }
    SetCursor(LoadCursor(CURSOR_READ_OUT));
    m_nFlags |= OCF_OVERCURVE;
}

void COutputCurve::OnMouseClick(CPoint pt, CWnd*) {
    constexpr DWORD READY = OCF_GETVALUE | OCF_OVERCURVE;
    if (m_rcPlotDevice.PtInRect(pt) && (m_nFlags & READY) == READY) {
        PickArgument(GetPixelMap().GetX(pt.x));
    }
}
