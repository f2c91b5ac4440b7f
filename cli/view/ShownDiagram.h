#pragma once

#include "cli/DiagramFile.h"
#include "cli/view/DiagramReadOuts.h"
#include "cli/view/DiagramWalk.h"
#include "cli/view/ShownPlot.h"
#include "cli/view/ViewedDiagram.h"

namespace tessara {

/// A diagram file as a plot. Its zoom is the first that is shown; scales of the file that do not hold all of
/// the zoom are dropped, for in a file a zoom overrules them.
class CShownDiagram : public CShownPlot {
public:
    /// Throws CException when nothing of the diagram lies within its scales.
    explicit CShownDiagram(DIAGRAM diagram);
    ~CShownDiagram() override;

    std::string GetName() const override { return m_diagram.name.value_or(""); }
    bool Follow(CShownPlot& next) override;
    DRAWING GetDrawing() override;
    std::string GetValuesText() const override;

    bool Has(EPlotSwitch eSwitch) const override;
    bool IsOn(EPlotSwitch eSwitch) const override;
    void Toggle(EPlotSwitch eSwitch) override;
    CAxisScales GetScales() const override { return {m_diagram.x.scale, m_diagram.y.scale}; }
    void SetScales(const CAxisScales& scales) override;

    std::optional<CZoomWindow> GetZoom() const override;
    void SetZoom(const std::optional<CZoomWindow>& zoom) override;
    CPixelMap GetPixelMap() const override { return m_pOutput->GetPixelMap(); }
    std::string DescribePoint(double dX, double dY) const override;

    void EnableZoomInMode(bool bEnable) override;
    bool IsZoomInModeEnabled() const override { return m_pOutput->IsZoomInModeEnabled() != 0; }
    void OnLButtonDown(CPoint point) override;
    void OnMouseMove(CPoint point) override;
    void OnLButtonUp(CPoint point) override;
    bool OnSetCursor() override;

    bool Offers(EReadOut eReadOut) const override { return m_readOuts->Offers(eReadOut); }
    void Attach(CWnd* pView) override;
    void Detach() override;
    void ShowReadOut(EReadOut eReadOut, bool bShow) override;
    bool IsReadOutVisible(EReadOut eReadOut) const override { return m_readOuts->IsVisible(eReadOut); }
    bool Walk(EWalk eWalk) override;
    std::optional<CPlotMark> GetMark() const override;
    void SetMark(const CPlotMark& mark) override;
    std::unique_ptr<CShownPlot> OpenSection(int nColumn, std::unique_ptr<CTable> pTable) const override;

private:
    void ApplyFlags();
    void FollowReadOuts() const { m_pOutput->PickFor(GetReadOut()); }

    DIAGRAM m_diagram; ///< as it is shown, without a zoom
    std::unique_ptr<CViewedDiagram> m_pOutput;
    std::optional<CDiagramReadOuts> m_readOuts; ///< both of the output
    std::optional<CDiagramWalk> m_walk;
    CWnd* m_pView = nullptr;     ///< that shows the diagram, or null
    bool m_bOverElement = false; ///< where the mouse was last
};

} // namespace tessara
