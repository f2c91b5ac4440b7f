#include <cmath>
#include <memory>
#include <set>
#include <vector>

#include "tessara/curveplot/GetValueDialog.h"
#include "tessara/curveplot/OutputCurve.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/Table.h"
#include "tessara/platform/ui/windows/Pointer.h"
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

/// Whether a pixel shows a curve. That of a window that has gone is none.
bool IsCurve(COLORREF crPixel) {
    return crPixel != BLACK && crPixel != WHITE && crPixel != CLR_INVALID;
}

/// Values that differ by more than rounding does.
class CDistinctValues {
public:
    explicit CDistinctValues(double dSame) : m_dSame(dSame) {}

    /// False when there is such a value already.
    bool Add(double dValue) {
        const auto next = m_values.lower_bound(dValue - m_dSame);
        if (next != m_values.end() && *next <= dValue + m_dSame) {
            return false;
        }
        m_values.insert(dValue);
        return true;
    }

private:
    double m_dSame;
    std::set<double> m_values;
};

constexpr double SAME = 1e-12; ///< of the axis

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

/// Of a multipart curve, what each part has at x. A part is looked at as a curve of its own, whose last point
/// counts as well. Parts that meet in a point have one value there.
std::vector<double> COutputCurve::ValuesAt(double x) {
    std::vector<double> values;
    if (!m_pMultipartCurve) {
        for (int i = 0; i < m_nFunctions; ++i) {
            values.push_back(Value(i, x));
        }
        return values;
    }
    CDistinctValues distinct(SAME * (m_FunctionScale.dUpper - m_FunctionScale.dLower));
    const CMultipartCurve& curve = *m_pMultipartCurve;
    for (int i = 0; i < curve.m_nParts; ++i) {
        const CCurvePartInfo part = tessara::ClipPart(curve.m_pParts[i], curve.m_nPoints);
        CCurvePartInfo whole{0, part.nPoints, 0};
        const CMultipartCurve branch(part.nPoints, curve.m_pX + part.nFirst, curve.m_pY + part.nFirst, 1,
                                     &whole, 1);
        const std::unique_ptr<CTable> pReached(branch.Value(0, x));
        for (int j = 0; pReached && j < pReached->m_nPoints; ++j) {
            const double dValue = pReached->m_ppData[1][j];
            if (std::isfinite(dValue) && distinct.Add(dValue)) {
                values.push_back(dValue);
            }
        }
    }
    return values.empty() ? std::vector{Value(0, x)} : values;
}

/// The shown number times ten to the power of minus the axis' exponent is the value.
CString COutputCurve::MakeValueLine(double dValue) const {
    const int nExponent = m_FunctionScale.nExponent;
    const double dFactor = nExponent == 0 ? 1 : m_FunctionScale.dFactor;
    return tessara::ValueLine(m_strCurveSymbol, m_strFunctionFormat, dValue * dFactor, -nExponent);
}

std::vector<CString> COutputCurve::MakeValueLines(double x) {
    std::vector<CString> lines;
    for (const double dValue : ValuesAt(x)) {
        lines.push_back(MakeValueLine(dValue));
    }
    return lines;
}

void COutputCurve::ShowValueLines(const std::vector<CString>& lines) {
    m_ValueLines.SetSize(static_cast<int>(lines.size()));
    for (int i = 0; i < m_ValueLines.GetSize(); ++i) {
        m_ValueLines.SetAt(i, lines[static_cast<std::size_t>(i)]);
    }
    if (m_pGetValueDialog) {
        m_pGetValueDialog->SetValueLines(m_ValueLines);
    }
}

/// A list that is filled again loses its place, so it is left alone while the lines are the same.
void COutputCurve::RefreshValueLines() {
    const std::vector<CString> lines = MakeValueLines(m_dMarkArgument);
    bool bSame = m_ValueLines.GetSize() == static_cast<int>(lines.size());
    for (int i = 0; bSame && i < m_ValueLines.GetSize(); ++i) {
        bSame = m_ValueLines.GetAt(i) == lines[static_cast<std::size_t>(i)];
    }
    if (!bSame) {
        ShowValueLines(lines);
    }
}

void COutputCurve::DisplayValues(double x) {
    ShowValueLines(MakeValueLines(x));
    if (m_pGetValueDialog && m_nFlags & OCF_MARKSHOWN) {
        DrawMark();
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
    if (!IsCurve(crPixel)) {
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
