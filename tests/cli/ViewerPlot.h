#pragma once

#include <set>
#include <string>
#include <vector>

#include "cli/view/ShownPlot.h"

/// A plot from (0, 0) to the two numbers that its file holds, for tests of the window around it. Writes down
/// what it is asked.
class CViewerPlot : public tessara::CShownPlot {
public:
    CViewerPlot(double dWidth, double dHeight) : m_dWidth(dWidth), m_dHeight(dHeight) {}
    ~CViewerPlot() override;

    /// Reads "WIDTH HEIGHT". Throws CException for a file that does not hold two numbers above 0.
    static std::unique_ptr<CShownPlot> Open(const tessara::CViewSource& source);

    /// How many plots there are, and how many are attached to a view.
    static int s_nPlots;
    static int s_nAttached;

    std::string m_strName = "Test";
    std::set<tessara::EPlotSwitch> m_lacking;
    std::vector<tessara::EWalk> m_walks;
    std::vector<CPoint> m_clicks;
    tessara::CAxisScales m_scales;
    std::optional<tessara::CPlotMark> m_mark;

    std::string GetName() const override { return m_strName; }
    tessara::DRAWING GetDrawing() override;
    std::string GetValuesText() const override { return "x\ty\n1\t2\n"; }
    bool Has(tessara::EPlotSwitch eSwitch) const override { return !m_lacking.count(eSwitch); }
    bool IsOn(tessara::EPlotSwitch eSwitch) const override { return m_switches.count(eSwitch) != 0; }
    void Toggle(tessara::EPlotSwitch eSwitch) override;
    tessara::CAxisScales GetScales() const override { return m_scales; }
    void SetScales(const tessara::CAxisScales& scales) override;
    std::optional<tessara::CZoomWindow> GetZoom() const override { return m_zoom; }
    void SetZoom(const std::optional<tessara::CZoomWindow>& zoom) override { m_zoom = zoom; }
    tessara::CPixelMap GetPixelMap() const override { return m_map; }
    std::string DescribePoint(double dX, double dY) const override;
    void EnableZoomInMode(bool bEnable) override { m_bZoomInMode = bEnable; }
    bool IsZoomInModeEnabled() const override { return m_bZoomInMode; }
    void OnLButtonDown(CPoint point) override { m_clicks.push_back(point); }
    void OnMouseMove(CPoint) override {}
    void OnLButtonUp(CPoint point) override;
    bool OnSetCursor() override { return false; }
    bool Offers(tessara::EReadOut eReadOut) const override;
    void Attach(CWnd* pView) override;
    void Detach() override;
    void ShowReadOut(tessara::EReadOut eReadOut, bool bShow) override;
    bool IsReadOutVisible(tessara::EReadOut eReadOut) const override {
        return m_readOuts.count(eReadOut) != 0;
    }
    bool Walk(tessara::EWalk eWalk) override;
    std::optional<tessara::CPlotMark> GetMark() const override { return m_mark; }
    void SetMark(const tessara::CPlotMark& mark) override { m_mark = mark; }
    std::unique_ptr<CShownPlot> OpenSection(int nColumn, std::unique_ptr<CTable> pTable) const override;

private:
    void Paint(CDC& dc, const RECT& rc);

    double m_dWidth;
    double m_dHeight;
    std::optional<tessara::CZoomWindow> m_zoom;
    tessara::CPixelMap m_map;
    std::set<tessara::EPlotSwitch> m_switches;
    std::set<tessara::EReadOut> m_readOuts;
    CWnd* m_pView = nullptr;
    bool m_bZoomInMode = false;
};
