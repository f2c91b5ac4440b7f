#include <algorithm>

#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/ui/windows/WaitCursor.h"
#include "tessara/platform/vellum/Stippled.h"
#include "tessara/plot/AxisGrid.h"
#include "tessara/plot/Canvas.h"
#include "tessara/plot/CurveTrace.h"
#include "tessara/plot/IndexedText.h"
#include "tessara/plot/Page.h"
#include "tessara/plot/PlaceableMetafile.h"
#include "tessara/plot/PlotArea.h"
#include "tessara/plot/PlotText.h"
#include "tessara/plot/SavedState.h"

using tessara::CCanvas;
using tessara::CPlotArea;
using tessara::CSelection;

namespace {

constexpr const char* TEXT_FACE = "Times New Roman";
constexpr int MESSAGE_SIZE = 266;
constexpr int LEGEND_GAP = 100; ///< between the plot and the legend box
constexpr int LEGEND_TEXT = 540;
constexpr int MIN_LEGEND_WIDTH = 1500;
constexpr double LINE_SPACING = 1.1;

/// A font of the given height in the plots' face.
class CTextFont : public CFont {
public:
    explicit CTextFont(LONG nHeight, bool bItalic = false) {
        LOGFONT logFont = tessara::MakeLogFont(nHeight, TEXT_FACE);
        logFont.lfItalic = bItalic;
        CreateFontIndirect(&logFont);
    }
};

/// A background mode of both surfaces; the previous ones come back when it ends.
class CBackMode {
public:
    CBackMode(const CCanvas& canvas, int nMode)
        : m_canvas(canvas), m_nOld(canvas.GetSurface().SetBkMode(nMode)),
          m_nOldInPicture(canvas.GetPicture() ? canvas.GetPicture()->SetBkMode(nMode) : nMode) {}
    ~CBackMode() {
        m_canvas.GetSurface().SetBkMode(m_nOld);
        if (m_canvas.GetPicture()) {
            m_canvas.GetPicture()->SetBkMode(m_nOldInPicture);
        }
    }
    CBackMode(const CBackMode&) = delete;
    CBackMode& operator=(const CBackMode&) = delete;

private:
    const CCanvas& m_canvas;
    const int m_nOld;
    const int m_nOldInPicture;
};

} // namespace

/// The curves as they are shown during one paint: the stored ones, or their pieces in the zoom window.
class CPhaseDiagramOutput::CShownCurves {
public:
    explicit CShownCurves(CPhaseDiagramOutput& diagram) : m_diagram(diagram) {
        m_diagram.FollowCurves();
        m_diagram.m_pShownCloudPointCurve = diagram.m_pCloudPointTrace->GetShown();
        m_diagram.m_pShownShadowCurve = diagram.m_pShadowTrace->GetShown();
        m_diagram.m_pShownSpinodal = diagram.m_pSpinodalTrace->GetShown();
    }
    ~CShownCurves() {
        m_diagram.m_pShownCloudPointCurve = m_diagram.m_pCloudPointCurve.get();
        m_diagram.m_pShownShadowCurve = m_diagram.m_pShadowCurve.get();
        m_diagram.m_pShownSpinodal = m_diagram.m_pSpinodal.get();
    }
    CShownCurves(const CShownCurves&) = delete;
    CShownCurves& operator=(const CShownCurves&) = delete;

private:
    CPhaseDiagramOutput& m_diagram;
};

int CPhaseDiagramOutput::Paint(CDC* pDC, RECT rc, CMetaFileDC* pMetaDC) {
    PaintPage(pDC, rc, pMetaDC);
    if (!pMetaDC) {
        m_Drag.OnPaint(*pDC);
    }
    return 1;
}

void CPhaseDiagramOutput::PaintPage(CDC* pDC, RECT rc, CMetaFileDC* pMetaDC) {
    const CShownCurves shown(*this);
    ChooseScales();
    const tessara::CSavedState saved(*pDC);
    m_rcPaint = rc;
    CenterDC(pDC, rc);
    const CCanvas canvas(pDC, pMetaDC);
    const tessara::CPaletteScope palette(
        *pDC, {m_CurveColors.GetData(), static_cast<std::size_t>(m_CurveColors.GetSize())});

    LayOut(canvas);
    RememberPlotDevice(*pDC);
    DrawFrames(canvas);
    DrawGrids(canvas, pMetaDC);
    DrawTitles(canvas, pMetaDC);
    {
        const CWaitCursor wait;
        DrawElements(canvas, pMetaDC);
    }
    PaintEmptyRect(pDC, nullptr, pMetaDC);
    DrawMarkAgain(pDC, pMetaDC);
    if (!m_pSpinodal && !m_pShadowCurve && !m_pCloudPointCurve) {
        DrawNoPhaseSeparation(canvas);
    }
}

int CPhaseDiagramOutput::Export(CDC* pDC, RECT rc, const char* fileName) {
    return tessara::ExportPlaceable(*pDC, rc, fileName,
                                    [&](CMetaFileDC& picture) { Paint(pDC, rc, &picture); });
}

CPlotArea CPhaseDiagramOutput::GetPlotArea() const {
    return {m_nPlotLeft, m_nPlotTop, m_nPlotWidth, m_nPlotHeight};
}

/// Measures the legend and places the plot frame.
void CPhaseDiagramOutput::LayOut(const CCanvas& canvas) {
    CTextFont font(tessara::LABEL_SIZE, true);
    const CSelection selection(canvas, font);
    m_nLineHeight = tessara::ToCoordinate(canvas.Measure("(SCLfpg)").cy * LINE_SPACING);
    FillLabelsArray();
    m_nWidestLabel = 0;
    for (const CStringArray* pLabels : {&m_CurveLabels, &m_PointLabels}) {
        for (int i = 0; i < pLabels->GetSize(); ++i) {
            m_nWidestLabel = std::max<int>(m_nWidestLabel, canvas.Measure(pLabels->GetAt(i).View()).cx);
        }
    }
    const CPlotArea area = CPlotArea::ForLegend(m_bShowLegend != 0);
    m_nPlotLeft = area.nLeft;
    m_nPlotTop = area.nTop;
    m_nPlotWidth = area.nWidth;
    m_nPlotHeight = area.nHeight;
}

void CPhaseDiagramOutput::RememberPlotDevice(const CDC& dc) {
    if (dc.IsPrinting()) {
        return;
    }
    m_rcExactPlotDevice = GetPlotArea().Rect();
    dc.LPtoDP(&m_rcExactPlotDevice);
    m_rcPlotDevice = m_rcExactPlotDevice;
    m_rcPlotDevice.InflateRect(1, 1);
}

int CPhaseDiagramOutput::GetLegendHeight() const {
    const int nGap = m_nCurveLabels > 0 && m_nPointLabels > 0 ? m_nLineHeight / 2 : 0;
    return nGap + (m_nCurveLabels + m_nPointLabels) * m_nLineHeight;
}

void CPhaseDiagramOutput::DrawFrames(const CCanvas& canvas) {
    const CPlotArea area = GetPlotArea();
    CPen pen(PS_SOLID, tessara::FRAME_PEN_WIDTH, RGB(0, 0, 0));
    const CSelection selection(canvas, pen);
    canvas.Rectangle(area.Frame());
    if (m_bShowLegend) {
        const int nLeft = area.Right() + LEGEND_GAP;
        const int nWidth = std::max(m_nWidestLabel + 100, MIN_LEGEND_WIDTH);
        canvas.Rectangle({nLeft, area.nTop - 24, nLeft + nWidth, area.nTop + 74 + GetLegendHeight()});
    }
}

void CPhaseDiagramOutput::DrawLegendTexts(const CCanvas& canvas, CMetaFileDC* pMetaDC) {
    CTextFont font(tessara::LABEL_SIZE, true);
    const CSelection selection(canvas, font);
    const int nLeft = GetPlotArea().Right() + LEGEND_TEXT;
    const int nTop = m_nPlotTop + 24;
    for (int i = 0; i < m_nCurveLabels; ++i) {
        canvas.Text(nLeft, nTop + i * m_nLineHeight, m_CurveLabels.GetAt(i).View());
    }
    const int nGap = m_nCurveLabels > 0 ? m_nLineHeight / 2 : 0;
    for (int j = 0; j < m_nPointLabels; ++j) {
        canvas.Text(nLeft, nTop + (j + m_nCurveLabels) * m_nLineHeight + nGap, m_PointLabels.GetAt(j).View());
    }
    DrawLegendCurveColors(&canvas.GetSurface(), pMetaDC);
}

/// Legend and grids share the thin pen.
void CPhaseDiagramOutput::DrawGrids(const CCanvas& canvas, CMetaFileDC* pMetaDC) {
    CPen pen(PS_SOLID, tessara::THIN_PEN_WIDTH, RGB(0, 0, 0));
    const CSelection thin(canvas, pen);
    if (m_bShowLegend) {
        DrawLegendTexts(canvas, pMetaDC);
    }
    CTextFont font(tessara::LABEL_SIZE);
    const CSelection labels(canvas, font);
    DrawHorizontalGrid(&canvas.GetSurface(), pMetaDC);
    DrawVerticalGrid(&canvas.GetSurface(), pMetaDC);
}

void CPhaseDiagramOutput::DrawHorizontalGrid(CDC* pDC, CMetaFileDC* pMetaDC) {
    tessara::DrawHorizontalGrid(CCanvas(pDC, pMetaDC), GetPlotArea(), m_AbscissaScale,
                                tessara::LineTruncation::way);
}

void CPhaseDiagramOutput::DrawVerticalGrid(CDC* pDC, CMetaFileDC* pMetaDC) {
    tessara::DrawVerticalGrid(CCanvas(pDC, pMetaDC), GetPlotArea(), m_OrdinateScale,
                              tessara::TickChoice::onAxis);
}

void CPhaseDiagramOutput::DrawTitles(const CCanvas& canvas, CMetaFileDC* pMetaDC) {
    CDC* pDC = &canvas.GetSurface();
    const CPlotArea area = GetPlotArea();
    IndexedTextOut(pDC, area.nLeft - 100, area.nTop - 280,
                   tessara::AxisTitle(m_strOrdinateSymbol, m_OrdinateScale.nExponent), tessara::TITLE_SIZE,
                   pMetaDC);
    if (!m_strSlideName.IsEmpty() && m_bShowLegend) {
        IndexedTextOut(pDC, area.Right() + LEGEND_GAP, area.nTop + 274 + GetLegendHeight(), m_strSlideName,
                       tessara::TITLE_SIZE, pMetaDC);
    }
    IndexedTextOut(pDC, area.Right() + 60, tessara::ToCoordinate(area.Bottom() - 106.4), m_strAbscissaSymbol,
                   tessara::TITLE_SIZE, pMetaDC);
    if (m_bShowCaption) {
        DrawCaption(pDC, tessara::ToCoordinate(area.nLeft + area.nWidth * 0.6), 8, TRUE, pMetaDC);
    }
}

void CPhaseDiagramOutput::DrawCaption(CDC* pDC, int x, int y, int bCentered, CMetaFileDC* pMetaDC) {
    tessara::DrawCaption(CCanvas(pDC, pMetaDC), x, y, bCentered != 0, m_strName);
}

void CPhaseDiagramOutput::DrawLegend(CDC*, int, int, CPen*) {}

void CPhaseDiagramOutput::DrawNoPhaseSeparation(const CCanvas& canvas) {
    constexpr const char* MESSAGE = "No phase separation";
    CTextFont font(MESSAGE_SIZE);
    const CSelection selection(canvas, font);
    const CPoint centre = CRect(GetPlotArea().Frame()).CenterPoint();
    const CSize size = canvas.Measure(MESSAGE);
    // On a ground of its own, since grid lines run through the middle.
    const CBackMode ground(canvas, OPAQUE);
    canvas.Text(centre.x - size.cx / 2, centre.y - size.cy / 2, MESSAGE);
}
