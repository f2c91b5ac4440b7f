#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/DiagramSamples.h"
#include "tessara/plot/ZoomWindow.h"

// What the library and its peer answer to alike: the turns of a wheel over one curve of a million points, the
// first of the sample's with the temperatures of the cloud points, in a window of that many pixels.

constexpr int INTERACTION_POINTS = 1'000'000;
constexpr int INTERACTION_WIDTH = 1600;
constexpr int INTERACTION_HEIGHT = 1150;

/// The windows that a wheel asks for: twenty steps of a factor of 1.25 nearer to a point of the curve and
/// twenty back, to 1/87 of the axes, each about another point, so that no window comes twice.
class CWheel {
public:
    explicit CWheel(const CDiagramSample& sample) : m_sample(sample) {
        const auto [itLowest, itHighest] = std::minmax_element(sample.cloudY.begin(), sample.cloudY.end());
        m_whole = {1, 0, *itHighest, *itLowest};
    }

    /// What the curve spans.
    const tessara::CZoomWindow& GetWhole() const { return m_whole; }

    tessara::CZoomWindow Turn() {
        constexpr int STEPS = 20;
        constexpr double GOLDEN = 0.6180339887498949; // spreads the points evenly, however many they are
        const int nStep = m_nTurns % (2 * STEPS);
        const double dPart = std::pow(1.25, nStep < STEPS ? -nStep - 1 : nStep - 2 * STEPS);
        const double dPlace = std::fmod(++m_nTurns * GOLDEN, 1);
        const auto nPoint = static_cast<std::size_t>(dPlace * static_cast<double>(m_sample.x.size()));
        const double dX = m_sample.x[nPoint];
        const double dY = m_sample.cloudY[nPoint];
        return {dX + (m_whole.dXMax - dX) * dPart, dX + (m_whole.dXMin - dX) * dPart,
                dY + (m_whole.dYMax - dY) * dPart, dY + (m_whole.dYMin - dY) * dPart};
    }

private:
    const CDiagramSample& m_sample;
    tessara::CZoomWindow m_whole;
    int m_nTurns = 0;
};

/// Times each answer by itself: the median and the longest of so many count.
inline void EachAnswer(benchmark::internal::Benchmark* pBenchmark) {
    constexpr int ANSWERS = 200;
    pBenchmark->Iterations(1)->Repetitions(ANSWERS)->ReportAggregatesOnly(true);
    pBenchmark->Unit(benchmark::kMillisecond);
    pBenchmark->ComputeStatistics("max", [](const std::vector<double>& times) {
        return *std::max_element(times.begin(), times.end());
    });
}
