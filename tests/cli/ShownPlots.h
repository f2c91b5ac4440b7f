#pragma once

#include "cli/view/ShownPlot.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tests/cli/Folder.h"
#include "tests/cli/Outcome.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

/// A plot as the window fixture paints it.
struct CPaintedPlot {
    std::unique_ptr<CShownPlot> pPlot;
    int Paint(CDC* pDC, RECT rc, CMetaFileDC*) { return pPlot->GetDrawing().paint(*pDC, rc); }
};

/// A window that shows a plot as the viewer does.
class CShownWindow : public CPlotWindow<CPaintedPlot> {
public:
    CShownPlot& Plot() { return *m_plot.pPlot; }
    int m_nSectionColumn = -1;
    std::unique_ptr<CTable> m_pSection;

protected:
    void OnPlotMessage(UINT nMessage, CPoint point) override {
        if (nMessage == WM_MOUSEMOVE) {
            Plot().OnMouseMove(point);
        } else if (nMessage == WM_LBUTTONDOWN) {
            Plot().OnLButtonDown(point);
        } else {
            Plot().OnLButtonUp(point);
        }
    }
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override {
        if (nMessage == WM_CROSSSECTION) {
            m_nSectionColumn = static_cast<int>(wParam);
            m_pSection.reset(reinterpret_cast<CTable*>(lParam));
            return 0;
        }
        return CPlotWindow::WindowProc(nMessage, wParam, lParam);
    }
};

/// Files in a folder of the test's own, opened and shown in a window.
class ShownPlotFixture : public ::testing::Test {
protected:
    ~ShownPlotFixture() override {
        Close();
        TakeExitCode();
    }

    CShownPlot& Plot() { return m_window.Plot(); }
    /// Opens a file with this text.
    std::unique_ptr<CShownPlot> Read(const std::string& strText, const char* pszName = "data.txt") {
        return OpenShownPlot({m_folder.Write(pszName, strText), {}, {}, false});
    }
    void Show(std::unique_ptr<CShownPlot> pPlot) {
        m_window.m_plot.pPlot = std::move(pPlot);
        m_window.Open();
        m_app.m_pMainWnd = &m_window;
        Plot().Attach(&m_window);
    }
    void Close() {
        if (m_window.m_hWnd) {
            Plot().Detach();
            m_window.DestroyWindow();
        }
    }
    /// The pixels of the window, painted anew.
    std::vector<COLORREF> Painted() {
        m_window.RedrawWindow();
        return m_window.Pixels();
    }
    CPoint PixelOf(double dX, double dY) const {
        const POINT at = m_window.m_plot.pPlot->GetPixelMap().GetPixel(dX, dY);
        return {at.x, at.y};
    }

    CFolder m_folder;
    CWinApp m_app;
    CShownWindow m_window;
};

} // namespace tessara
