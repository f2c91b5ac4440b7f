// Answers to the pointer and the wheel over one curve of a million points, in a window of the layer without a
// display. The peer, which brings another application object, is a program of its own: replot.cpp.

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Interaction.h"
#include "tessara/curveplot/OutputCurve.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/platform/ui/threads/MessageUnpack.h"
#include "tessara/platform/ui/threads/Sync.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/Wnd.h"

namespace {

void SetCurve(COutputCurve& plot, CDiagramSample& sample, CMultipartTable&) {
    plot.SetNames("Cloud points", "T / K~N", "Volume fraction", "f~G");
    plot.SetOutputData(sample.x.data(), sample.cloudY.data(), INTERACTION_POINTS);
}

void SetCurve(CPhaseDiagramOutput& diagram, CDiagramSample& sample, CMultipartTable& table) {
    diagram.SetNames("Diagram", "T, K~N", "f~G");
    table.Allocate(INTERACTION_POINTS);
    int nColumn = 0;
    for (const auto* pColumn : {&sample.x, &sample.shadowX, &sample.cloudY}) {
        std::copy(pColumn->begin(), pColumn->end(), table.m_ppData[nColumn++]);
    }
    table.BeginPart(0, 0);
    table.EndPart(INTERACTION_POINTS - 1);
    diagram.SetBinodalSection(0, -1, 2, &table, 0);
}

void Pick(COutputCurve& plot, CPoint at, CWnd&) {
    plot.PickArgument(plot.GetPixelMap().GetX(at.x));
}

void Pick(CPhaseDiagramOutput& diagram, CPoint at, CWnd& wnd) {
    const tessara::CPixelMap map = diagram.GetPixelMap();
    diagram.PickPoint(map.GetX(at.x), map.GetY(at.y), CClientDC(&wnd).GetPixel(at.x, at.y));
}

/// A window that shows a plot, with the plot's read-out beside it.
template <class PLOT>
class CPlotWnd : public CWnd {
public:
    explicit CPlotWnd(bool bNoisy) : m_sample(MakeDiagramSample(INTERACTION_POINTS, bNoisy)) {
        m_plot.AnnounceChanges(true);
        SetCurve(m_plot, m_sample, m_table);
        const CRect place(0, 0, INTERACTION_WIDTH, INTERACTION_HEIGHT);
        Create(nullptr, "Plot", WS_POPUP | WS_VISIBLE, place, nullptr, 0);
        m_plot.CreateGetValue(this);
        m_plot.ShowGetValue(TRUE);
        UpdateWindow();
        FindPath();
        if (const char* const pszPicture = std::getenv("TESSARA_BENCH_PICTURE")) {
            SaveImage(pszPicture);
        }
    }

    /// The next pixel of the curve, one column further.
    CPoint NextPixel() { return m_path[m_nPixels++ % m_path.size()]; }

    PLOT m_plot;
    CDiagramSample m_sample;
    CMultipartTable m_table{3};
    CWheel m_wheel{m_sample};

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override {
        if (nMessage == WM_PAINT) {
            CPaintDC dc(this);
            dc.SetBkMode(TRANSPARENT);
            m_plot.Paint(&dc, CRect(0, 0, INTERACTION_WIDTH, INTERACTION_HEIGHT), nullptr);
            return 0;
        }
        if (nMessage == WM_MOUSEMOVE) {
            m_plot.OnMouseMove(tessara::unpack::ToPoint(lParam), this);
            return 0;
        }
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }

private:
    /// The pixels over which the pointer follows the curve: one of each column, in the curve's colour.
    void FindPath() {
        constexpr int NEAR = 3; // the coordinates of a pixel are rounded
        CClientDC dc(this);
        const tessara::CPixelMap map = m_plot.GetPixelMap();
        for (int nColumn = map.rect.left; nColumn < map.rect.right; ++nColumn) {
            const double dPoint = map.GetX(nColumn) * INTERACTION_POINTS;
            const int nPoint = std::clamp(static_cast<int>(dPoint), 0, INTERACTION_POINTS - 1);
            CPoint at = map.GetPixel(map.GetX(nColumn), m_sample.cloudY[static_cast<std::size_t>(nPoint)]);
            for (at.y -= NEAR; !IsCurve(dc.GetPixel(at.x, at.y)) && at.y < map.rect.bottom;) {
                ++at.y;
            }
            if (at.y < map.rect.bottom) {
                m_path.push_back(at);
            }
        }
        if (m_path.empty()) {
            throw std::runtime_error("the curve is not in the window");
        }
    }
    static bool IsCurve(COLORREF color) { return color == RGB(255, 0, 0) || color == RGB(0, 255, 0); }

    std::vector<CPoint> m_path;
    std::size_t m_nPixels = 0;
};

/// The window of a plot and a sample, which all its benchmarks share: making it takes longer than they do.
template <class PLOT, bool NOISY>
CPlotWnd<PLOT>& WndOf() {
    static auto* const s_pWnd = new CPlotWnd<PLOT>(NOISY);
    return *s_pWnd;
}

/// The pointer moves to the next pixel while the read-out is shown.
template <class PLOT, bool NOISY>
void Move(benchmark::State& state) {
    CPlotWnd<PLOT>& wnd = WndOf<PLOT, NOISY>();
    for (auto _ : state) {
        const CPoint at = wnd.NextPixel();
        wnd.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
    }
}

/// The curve is read out at each pixel that the pointer moves to, until the mark and the values are on the
/// screen.
template <class PLOT, bool NOISY>
void ReadOut(benchmark::State& state) {
    CPlotWnd<PLOT>& wnd = WndOf<PLOT, NOISY>();
    for (auto _ : state) {
        const CPoint at = wnd.NextPixel();
        wnd.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
        Pick(wnd.m_plot, at, wnd);
        Sleep(1); // windows are repainted while the thread waits
    }
}

/// The wheel turns: another window of the data, painted.
template <class PLOT, bool NOISY>
void Zoom(benchmark::State& state) {
    CPlotWnd<PLOT>& wnd = WndOf<PLOT, NOISY>();
    static auto* const s_pSurface = new CImageDC(INTERACTION_WIDTH, INTERACTION_HEIGHT);
    for (auto _ : state) {
        wnd.m_plot.ZoomTo(wnd.m_wheel.Turn());
        wnd.m_plot.Paint(s_pSurface, s_pSurface->GetClientRect(), nullptr);
    }
    wnd.m_plot.ShowWhole();
}

template <class PLOT, bool NOISY>
void Register(const std::string& strPlot) {
    const auto fnRegister = [&](const char* pszAnswer, void (*pAnswer)(benchmark::State&)) {
        const std::string strName = strPlot + pszAnswer + (NOISY ? "Noisy/tessara" : "Smooth/tessara");
        EachAnswer(benchmark::RegisterBenchmark(strName.c_str(), pAnswer));
    };
    fnRegister("Move", &Move<PLOT, NOISY>);
    fnRegister("ReadOut", &ReadOut<PLOT, NOISY>);
    fnRegister("Zoom", &Zoom<PLOT, NOISY>);
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Register<COutputCurve, false>("Curve");
    Register<COutputCurve, true>("Curve");
    Register<CPhaseDiagramOutput, false>("Diagram");
    Register<CPhaseDiagramOutput, true>("Diagram");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
