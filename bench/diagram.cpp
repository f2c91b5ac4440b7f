// Paints a phase diagram of three curves of a million points each on an image of 800 x 575 pixels. The peer,
// which brings another application object, is a program of its own: replot.cpp.

#include <algorithm>

#include <benchmark/benchmark.h>

#include "bench/DiagramSamples.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/gdi/ImageDC.h"

namespace {

constexpr int POINTS = 1'000'000;

/// The sample as a section of four columns and one part.
void FillTable(CMultipartTable& table, const CDiagramSample& sample) {
    table.Allocate(POINTS);
    int nColumn = 0;
    for (const auto* pColumn : {&sample.x, &sample.shadowX, &sample.spinodalY, &sample.cloudY}) {
        std::copy(pColumn->begin(), pColumn->end(), table.m_ppData[nColumn++]);
    }
    table.BeginPart(0, 0);
    table.EndPart(POINTS - 1);
}

void SetCurves(CPhaseDiagramOutput& diagram, CMultipartTable& table) {
    diagram.SetNames("Diagram", "T, K~N", "f~G");
    diagram.SetSpinodalSection(0, 2, &table);
    diagram.SetBinodalSection(0, 1, 3, &table, 0);
}

/// Each paint is the first of its data, as after a calculation.
void FirstPaint(benchmark::State& state, bool bNoisy) {
    CMultipartTable table(4);
    FillTable(table, MakeDiagramSample(POINTS, bNoisy));
    CImageDC dc(800, 575);
    for (auto _ : state) {
        CPhaseDiagramOutput diagram;
        diagram.AnnounceChanges(true);
        SetCurves(diagram, table);
        diagram.Paint(&dc, dc.GetClientRect(), nullptr);
    }
}

/// Each paint repeats the last, as when a window is uncovered or an element is switched. The peer takes its
/// data to be as they were given, which is what announced changes allow.
void Repaint(benchmark::State& state, bool bNoisy, bool bAnnounced) {
    CMultipartTable table(4);
    FillTable(table, MakeDiagramSample(POINTS, bNoisy));
    CImageDC dc(800, 575);
    CPhaseDiagramOutput diagram;
    diagram.AnnounceChanges(bAnnounced);
    SetCurves(diagram, table);
    diagram.Paint(&dc, dc.GetClientRect(), nullptr);
    for (auto _ : state) {
        diagram.Paint(&dc, dc.GetClientRect(), nullptr);
    }
}

BENCHMARK_CAPTURE(Repaint, smooth, false, true)->Name("DiagramSmooth/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Repaint, noisy, true, true)->Name("DiagramNoisy/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Repaint, smoothUnannounced, false, false)
    ->Name("UnannouncedDiagramSmooth/tessara")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Repaint, noisyUnannounced, true, false)
    ->Name("UnannouncedDiagramNoisy/tessara")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FirstPaint, smooth, false)->Name("NewDiagramSmooth/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FirstPaint, noisy, true)->Name("NewDiagramNoisy/tessara")->Unit(benchmark::kMillisecond);

} // namespace
