#pragma once

#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tests/phasediagram/Diagrams.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

constexpr UINT GET_VALUE = 16406;
constexpr UINT CROSS_SECTION = 16450;
constexpr UINT EXTENDED = 16451;
constexpr UINT LINES = 1008;

constexpr DWORD RED = 0x0000FF;
constexpr DWORD BLUE = 0xFF0000;
constexpr DWORD GREEN = 0x00FF00;
constexpr DWORD MAGENTA = 0xFF00FF;
constexpr DWORD CYAN = 0xFFFF00;
constexpr DWORD YELLOW = 0x00FFFF;
constexpr DWORD CRITICAL = 0x000080;
constexpr DWORD MULTIPHASE = 0x800000;
constexpr DWORD FOUND = 0x008000;
constexpr DWORD ALL_COLORS[] = {RED, BLUE, GREEN, MAGENTA, CYAN, YELLOW, CRITICAL, MULTIPHASE, FOUND};

class CMousePlot : public CTestDiagram {
public:
    using CPhaseDiagramOutput::DrawMark;
    using CPhaseDiagramOutput::DrawZoomTrackingRect;
    using CPhaseDiagramOutput::m_crSelected;
    using CPhaseDiagramOutput::m_ElementValueLines;
    using CPhaseDiagramOutput::SetCloudPointCurve;
    using CPhaseDiagramOutput::SetShadowCurve;
    using CPhaseDiagramOutput::SetSpinodal;
};

class CDiagramWindow : public CPlotWindow<CMousePlot> {
public:
    int m_nSections = 0;
    int m_nColumn = -1;
    std::unique_ptr<CTable> m_pSection;

protected:
    void OnPlotMessage(UINT nMessage, CPoint point) override {
        if (nMessage == WM_MOUSEMOVE) {
            m_plot.OnMouseMove(point, this);
        } else if (nMessage == WM_LBUTTONDOWN) {
            m_plot.OnLButtonDown(point, this);
        } else {
            m_plot.OnLButtonUp(point, this);
        }
    }
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override {
        if (nMessage == WM_SETCURSOR && m_plot.OnSetCursor(this, LOWORD(lParam), HIWORD(lParam))) {
            return TRUE;
        }
        if (nMessage == WM_CROSSSECTION) {
            ++m_nSections;
            m_nColumn = static_cast<int>(wParam);
            m_pSection.reset(reinterpret_cast<CTable*>(lParam));
            return 0;
        }
        return CPlotWindow::WindowProc(nMessage, wParam, lParam);
    }
};

/// A part of a table of three columns: abscissa, ordinate and dThird at nPoints places from dFrom to dTo.
inline void AddLine(CMultipartTable& table, POINT from, POINT to, double dThird, int nColor,
                    double dScale = 1) {
    constexpr int POINTS = 21;
    CTable line(3);
    line.Allocate(POINTS);
    for (int i = 0; i < POINTS; ++i) {
        line.m_ppData[0][i] = (from.x + (to.x - from.x) * i / (POINTS - 1.0)) * dScale;
        line.m_ppData[1][i] = from.y + (to.y - from.y) * i / (POINTS - 1.0);
        line.m_ppData[2][i] = dThird + 0.01 * i;
    }
    table.AddTable(&line, nColor, -1);
}

/// Every kind of element on a field of 10 by 10: a cloud-point curve that crosses itself, with a non-physical
/// part, its shadow curve of abscissae times 0.5, two branches of a spinodal, and points.
class DiagramInteraction : public ::testing::Test {
protected:
    DiagramInteraction() : m_section(4), m_spinodal(3), m_critical(3), m_multiphase(2) {
        CMultipartTable lines(3);
        AddLine(lines, {1, 1}, {9, 9}, 0.1, 0);
        AddLine(lines, {9, 3}, {1, 8}, 0.5, 0); // they cross at (5.31, 5.31), between rows
        AddLine(lines, {6, 0}, {10, 0}, 0.9, 1);
        m_section.AddMultipartTable(&lines4(lines), -1);
        m_section.SetNumColors(2);
        AddLine(m_spinodal, {0, 8}, {4, 10}, 0, 0);
        AddLine(m_spinodal, {0, 9}, {4, 5}, 0, 1);
        m_spinodal.SetNumColors(2);
        FillRow(m_critical, {3, 8, 0.75});
        FillRow(m_multiphase, {8, 5});
    }
    ~DiagramInteraction() override {
        Plot().DestroyGetValue();
        Plot().DestroyExtendedGetValue();
        Plot().DestroyCrossSection();
        m_window.DestroyWindow();
        TakeExitCode();
    }
    void SetUp() override {
        Plot().SetNames("Diagram", "T~N", "x~N");
        Plot().SetBinodalSection(0, 3, 1, &m_section, 0);
        Plot().SetSpinodalSection(0, 1, &m_spinodal);
        Plot().SetCriticalPoints(0, 1, &m_critical);
        Plot().SetMultiphasePoints(0, 1, &m_multiphase);
        m_window.Open();
        m_app.m_pMainWnd = &m_window;
        Plot().CreateGetValue(&m_window);
        Plot().CreateExtendedGetValue(&m_window);
        Plot().CreateCrossSection(&m_window);
    }

    CMousePlot& Plot() { return m_window.m_plot; }
    void Click(DWORD color) { m_window.Click(m_window.Find(color, Plot().m_rcPlotDevice)); }
    bool IsMarked() { return Plot().m_nFlags & MF_MARKSHOWN; }
    /// Clicks each colour that is on the screen; those that took a mark.
    std::vector<DWORD> Pickable() {
        std::vector<DWORD> colors;
        for (const DWORD color : ALL_COLORS) {
            if (color == FOUND && !Plot().AreMultiphasePointsVisible()) {
                continue;
            }
            Plot().m_nFlags &= ~DWORD{MF_MARKSHOWN};
            m_window.RedrawWindow();
            Click(color);
            if (IsMarked()) {
                colors.push_back(color);
                EXPECT_EQ(Plot().m_crSelected, color);
            }
        }
        return colors;
    }
    std::string Line(const char* pszSymbol, double dValue) {
        CString strLine;
        strLine.Format("%s = %.2lf~N", pszSymbol, dValue);
        return std::string(strLine);
    }
    CListBox& SectionLines() {
        return dynamic_cast<CListBox&>(
            *CWnd::FromHandle(CPeer::Of(&ControlOf(CROSS_SECTION, LINES))->GetHandle()));
    }
    void PressCalculate() {
        QTest::mouseClick(&ControlOf(CROSS_SECTION, IDOK), Qt::LeftButton);
        QApplication::processEvents();
    }

    CWinApp m_app{"Diagrams"};
    CMultipartTable m_section; ///< cloud-point abscissa, ordinate, value, shadow abscissa
    CMultipartTable m_spinodal;
    CTable m_critical;
    CTable m_multiphase;
    CDiagramWindow m_window;

private:
    /// The same with the half of the abscissa as a fourth column.
    CMultipartTable& lines4(const CMultipartTable& lines) {
        m_pLines = std::make_unique<CMultipartTable>(4);
        for (int i = 0; i < lines.m_nParts; ++i) {
            const CCurvePartInfo& part = lines.m_pParts[i];
            CTable rows(4);
            rows.Allocate(part.nPoints);
            for (int k = 0; k < part.nPoints; ++k) {
                for (int j = 0; j < 3; ++j) {
                    rows.m_ppData[j][k] = lines.m_ppData[j][part.nFirst + k];
                }
                rows.m_ppData[3][k] = rows.m_ppData[0][k] / 2;
            }
            m_pLines->AddTable(&rows, part.nColor, -1);
        }
        return *m_pLines;
    }
    static void FillRow(CTable& table, std::initializer_list<double> values) {
        table.Allocate(1);
        int nColumn = 0;
        for (const double dValue : values) {
            table.m_ppData[nColumn++][0] = dValue;
        }
    }
    std::unique_ptr<CMultipartTable> m_pLines;
};

} // namespace tessara
