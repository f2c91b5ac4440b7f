// Replots the curves of diagram.cpp and interaction.cpp with QCustomPlot on widgets of the same sizes: graphs
// with adaptive sampling, nothing antialiased, lines one pixel wide.

#include <QApplication>

#include <benchmark/benchmark.h>
#include <qcustomplot.h>

#include "bench/Interaction.h"

namespace {

constexpr int POINTS = 1'000'000;

QVector<double> ToQt(const std::vector<double>& column) {
    return {column.begin(), column.end()};
}

QCPGraph* AddCurve(QCustomPlot& plot, QColor color) {
    QCPGraph* const pGraph = plot.addGraph();
    pGraph->setAdaptiveSampling(true);
    pGraph->setAntialiased(false);
    pGraph->setPen(QPen(color, 1));
    return pGraph;
}

/// The plot of the sample at the size of the images of diagram.cpp.
class CSamplePlot {
public:
    explicit CSamplePlot(bool bNoisy) : m_sample(MakeDiagramSample(POINTS, bNoisy)) {
        m_plot.resize(800, 575);
        m_plot.setNotAntialiasedElements(QCP::aeAll);
        SetData();
        m_plot.rescaleAxes();
        Replot();
        if (const char* const pszPicture = std::getenv("TESSARA_BENCH_PICTURE")) {
            m_plot.savePng(pszPicture, 800, 575);
        }
    }

    void SetData() {
        const QVector<double> x = ToQt(m_sample.x);
        const QVector<double> cloudY = ToQt(m_sample.cloudY);
        m_pSpinodal->setData(x, ToQt(m_sample.spinodalY), true);
        m_pCloudPoints->setData(x, cloudY, true);
        m_pShadow->setData(ToQt(m_sample.shadowX), cloudY, true);
    }
    void Replot() { m_plot.replot(QCustomPlot::rpImmediateRefresh); }

private:
    CDiagramSample m_sample;
    QCustomPlot m_plot;
    QCPGraph* m_pSpinodal = AddCurve(m_plot, Qt::red);
    QCPGraph* m_pCloudPoints = AddCurve(m_plot, Qt::blue);
    QCPGraph* m_pShadow = AddCurve(m_plot, Qt::magenta);
};

void Replot(benchmark::State& state, bool bNoisy) {
    CSamplePlot plot(bNoisy);
    for (auto _ : state) {
        plot.Replot();
    }
}

/// With the data given anew before.
void FirstReplot(benchmark::State& state, bool bNoisy) {
    CSamplePlot plot(bNoisy);
    for (auto _ : state) {
        plot.SetData();
        plot.Replot();
    }
}

/// The plot of the one curve of interaction.cpp.
class CCurvePlot {
public:
    explicit CCurvePlot(bool bNoisy) : m_sample(MakeDiagramSample(INTERACTION_POINTS, bNoisy)) {
        m_plot.resize(INTERACTION_WIDTH, INTERACTION_HEIGHT);
        m_plot.setNotAntialiasedElements(QCP::aeAll);
        AddCurve(m_plot, Qt::red)->setData(ToQt(m_sample.x), ToQt(m_sample.cloudY), true);
        Show(m_whole);
    }

    void Show(const tessara::CZoomWindow& window) {
        m_plot.xAxis->setRange(window.dXMin, window.dXMax);
        m_plot.yAxis->setRange(window.dYMin, window.dYMax);
        m_plot.replot(QCustomPlot::rpImmediateRefresh);
    }

    CDiagramSample m_sample;
    CWheel m_wheel{m_sample};
    const tessara::CZoomWindow m_whole = m_wheel.GetWhole();

private:
    QCustomPlot m_plot;
};

template <bool NOISY>
CCurvePlot& CurvePlot() {
    static auto* const s_pPlot = new CCurvePlot(NOISY);
    return *s_pPlot;
}

template <bool NOISY>
void ReplotWhole(benchmark::State& state) {
    CCurvePlot& plot = CurvePlot<NOISY>();
    for (auto _ : state) {
        plot.Show(plot.m_whole);
    }
}

template <bool NOISY>
void Zoom(benchmark::State& state) {
    CCurvePlot& plot = CurvePlot<NOISY>();
    for (auto _ : state) {
        plot.Show(plot.m_wheel.Turn());
    }
}

BENCHMARK(ReplotWhole<false>)->Name("ReplotSmooth/QCustomPlot")->Apply(EachAnswer);
BENCHMARK(ReplotWhole<true>)->Name("ReplotNoisy/QCustomPlot")->Apply(EachAnswer);
BENCHMARK(Zoom<false>)->Name("ReplotZoomSmooth/QCustomPlot")->Apply(EachAnswer);
BENCHMARK(Zoom<true>)->Name("ReplotZoomNoisy/QCustomPlot")->Apply(EachAnswer);
BENCHMARK_CAPTURE(Replot, smooth, false)->Name("DiagramSmooth/QCustomPlot")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Replot, noisy, true)->Name("DiagramNoisy/QCustomPlot")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Replot, smoothAgain, false)
    ->Name("UnannouncedDiagramSmooth/QCustomPlot")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Replot, noisyAgain, true)
    ->Name("UnannouncedDiagramNoisy/QCustomPlot")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FirstReplot, smooth, false)
    ->Name("NewDiagramSmooth/QCustomPlot")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FirstReplot, noisy, true)
    ->Name("NewDiagramNoisy/QCustomPlot")
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
