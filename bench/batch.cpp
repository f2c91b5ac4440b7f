// Evaluates a spline at very many abscissae in one call, ascending and in random order, and one by one with
// the accelerator of the GNU Scientific Library. What counts is the ratio of the two medians of one work:
//
//     bench_batch --benchmark_repetitions=9 --benchmark_report_aggregates_only

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/GslSpline.h"
#include "tessara/numeric/Curve.h"
#include "tessara/numeric/Spline.h"

namespace {

constexpr int KNOTS = 1000000;
constexpr int QUERIES = 1000000;

/// A curve over unevenly spaced abscissae, and where to evaluate it.
struct CSample {
    explicit CSample(bool bSorted) : curve(KNOTS), queries(QUERIES), values(QUERIES) {
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> step(0.5, 1.5);
        double dX = 0;
        for (int i = 0; i < KNOTS; ++i) {
            curve.m_pX[i] = dX += step(random);
            curve.m_pY[i] = std::sin(0.3 * dX);
        }
        std::uniform_real_distribution<double> place(curve.m_pX[0], dX);
        std::generate(queries.begin(), queries.end(), [&] { return place(random); });
        if (bSorted) {
            std::sort(queries.begin(), queries.end());
        }
    }

    CCurve curve;
    std::vector<double> queries;
    std::vector<double> values;
};

void BatchWithTessara(benchmark::State& state, bool bSorted) {
    CSample sample(bSorted);
    const CSpline spline(&sample.curve, FALSE);
    for (auto _ : state) {
        spline.Values(sample.queries.data(), sample.values.data(), QUERIES);
        benchmark::ClobberMemory();
    }
}

void BatchWithGsl(benchmark::State& state, bool bSorted) {
    CSample sample(bSorted);
    CGslSpline spline(KNOTS);
    spline.Init(sample.curve.m_pX, sample.curve.m_pY);
    for (auto _ : state) {
        std::transform(sample.queries.begin(), sample.queries.end(), sample.values.begin(),
                       [&](double x) { return spline.Value(x); });
        benchmark::ClobberMemory();
    }
}

BENCHMARK_CAPTURE(BatchWithTessara, , true)->Name("SortedBatch/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BatchWithGsl, , true)->Name("SortedBatch/gsl")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BatchWithTessara, , false)->Name("RandomBatch/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BatchWithGsl, , false)->Name("RandomBatch/gsl")->Unit(benchmark::kMillisecond);

} // namespace
