#pragma once

#include "cli/PlotSetup.h"
#include "cli/view/FunctionWalk.h"
#include "cli/view/ShownPlot.h"
#include "cli/view/ZoomPointer.h"
#include "tessara/curveplot/OutputCurve.h"

namespace tessara {

class CValuesText;

/// Columns as a curve plot. Scales cut what is drawn; values are read out from all of the data.
class CShownCurvePlot : public CShownPlot {
public:
    /// Throws CException for columns that cannot be drawn.
    CShownCurvePlot(PLOTOPTIONS options, PLOTSOURCE source);
    ~CShownCurvePlot() override;

    std::string GetName() const override;
    bool Follow(CShownPlot& next) override;
    DRAWING GetDrawing() override;
    std::string GetValuesText() const override;

    bool Has(EPlotSwitch eSwitch) const override;
    bool IsOn(EPlotSwitch eSwitch) const override;
    void Toggle(EPlotSwitch eSwitch) override;
    CAxisScales GetScales() const override { return m_scales; }
    void SetScales(const CAxisScales& scales) override;

    std::optional<CZoomWindow> GetZoom() const override;
    void SetZoom(const std::optional<CZoomWindow>& zoom) override;
    CPixelMap GetPixelMap() const override { return m_plot.GetPixelMap(); }
    std::string DescribePoint(double dX, double dY) const override;

    void EnableZoomInMode(bool bEnable) override { m_zoomPointer.Enable(bEnable); }
    bool IsZoomInModeEnabled() const override { return m_zoomPointer.IsEnabled(); }
    void OnLButtonDown(CPoint point) override;
    void OnMouseMove(CPoint point) override;
    void OnLButtonUp(CPoint point) override;
    bool OnSetCursor() override;

    bool Offers(EReadOut eReadOut) const override { return eReadOut == EReadOut::getValue; }
    void Attach(CWnd* pView) override;
    void Detach() override;
    void ShowReadOut(EReadOut eReadOut, bool bShow) override;
    bool IsReadOutVisible(EReadOut eReadOut) const override;
    bool Walk(EWalk eWalk) override;
    std::optional<CPlotMark> GetMark() const override;
    void SetMark(const CPlotMark& mark) override;

private:
    void ShowData(const CAxisScales& scales);
    void FitAxis(COutputCurve& cut);
    int* FindSwitch(EPlotSwitch eSwitch) const;
    int PaintPicture(const std::function<int()>& fnPaint);
    void AddValues(CValuesText& text, const CColumnFile& file) const;
    std::string GetArgumentTitle() const;
    std::string GetFunctionTitle() const;

    PLOTOPTIONS m_options;
    PLOTSOURCE m_source;
    CAxisScales m_scales;
    std::unique_ptr<CPlotData> m_pData; ///< shown by the plot, which follows
    mutable COutputCurve m_plot;        ///< what only asks it is not const there
    CFunctionWalk m_walk;
    CZoomPointer m_zoomPointer;
    bool m_bLegendOffered = false;
    bool m_bOverCurve = false; ///< where the mouse was last
    CWnd* m_pView = nullptr;   ///< that shows the plot, or null
};

} // namespace tessara
