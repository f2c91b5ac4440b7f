// Builds cubic splines and evaluates them one value at a time, and the same with the GNU Scientific Library.
// What counts is the ratio of the two medians of one work:
//
//     bench_spline --benchmark_repetitions=9 --benchmark_report_aggregates_only

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/GslSpline.h"
#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultiSpline.h"
#include "tessara/numeric/Spline.h"

namespace {

constexpr int BUILD_KNOTS = 1000000;
constexpr int COLUMNS = 16;
constexpr int COLUMN_KNOTS = 100000;
constexpr int VALUE_KNOTS = 1000;
constexpr std::size_t QUERIES = 1 << 16; ///< too many for the branch predictor to learn

void FillAbscissae(double* pX, int nPoints) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> step(0.5, 1.5);
    double dX = 0;
    for (int i = 0; i < nPoints; ++i) {
        pX[i] = dX += step(random);
    }
}

void FillOrdinates(const double* pX, double* pY, int nPoints, double dFrequency) {
    std::transform(pX, pX + nPoints, pY, [=](double x) { return std::sin(dFrequency * x); });
}

struct CSample {
    explicit CSample(int nPoints) : curve(nPoints) {
        FillAbscissae(curve.m_pX, nPoints);
        FillOrdinates(curve.m_pX, curve.m_pY, nPoints, 0.3);
    }

    CCurve curve;
};

void BuildWithTessara(benchmark::State& state) {
    CSample sample(BUILD_KNOTS);
    for (auto _ : state) {
        const CSpline spline(&sample.curve, FALSE);
        benchmark::DoNotOptimize(spline.m_pD);
    }
}

void BuildWithGsl(benchmark::State& state) {
    const CSample sample(BUILD_KNOTS);
    CGslSpline spline(BUILD_KNOTS);
    for (auto _ : state) {
        spline.Init(sample.curve.m_pX, sample.curve.m_pY);
    }
}

/// All columns over their abscissae.
struct CColumnsSample {
    CColumnsSample() : curve(COLUMNS) {
        curve.Allocate(COLUMN_KNOTS);
        FillAbscissae(curve.m_pX, COLUMN_KNOTS);
        for (int j = 0; j < COLUMNS; ++j) {
            FillOrdinates(curve.m_pX, curve.m_ppY[j], COLUMN_KNOTS, 0.1 * (j + 1));
        }
    }

    CMultiCurve curve;
};

void BuildColumnsWithTessara(benchmark::State& state) {
    CColumnsSample sample;
    for (auto _ : state) {
        const CMultiSpline spline(&sample.curve);
        benchmark::DoNotOptimize(spline.m_ppD);
    }
}

void BuildColumnsWithGsl(benchmark::State& state) {
    const CColumnsSample sample;
    std::vector<std::unique_ptr<CGslSpline>> splines;
    splines.reserve(COLUMNS);
    for (int j = 0; j < COLUMNS; ++j) {
        splines.push_back(std::make_unique<CGslSpline>(COLUMN_KNOTS));
    }
    for (auto _ : state) {
        for (int j = 0; j < COLUMNS; ++j) {
            splines[static_cast<std::size_t>(j)]->Init(sample.curve.m_pX, sample.curve.m_ppY[j]);
        }
    }
}

/// Times value(x) over random abscissae.
template <class FUNCTION>
void Evaluate(benchmark::State& state, const CCurve& curve, FUNCTION value) {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> place(curve.m_pX[0], curve.m_pX[curve.m_nPoints - 1]);
    std::vector<double> queries(QUERIES);
    std::generate(queries.begin(), queries.end(), [&] { return place(random); });
    for (auto _ : state) {
        for (const double x : queries) {
            benchmark::DoNotOptimize(value(x));
        }
    }
}

void ValueWithTessara(benchmark::State& state) {
    CSample sample(VALUE_KNOTS);
    const CSpline spline(&sample.curve, FALSE);
    Evaluate(state, sample.curve, [&](double x) { return spline.Value(x); });
}

void ValueWithGsl(benchmark::State& state) {
    const CSample sample(VALUE_KNOTS);
    CGslSpline spline(VALUE_KNOTS);
    spline.Init(sample.curve.m_pX, sample.curve.m_pY);
    Evaluate(state, sample.curve, [&](double x) { return spline.Value(x); });
}

BENCHMARK(BuildWithTessara)->Name("SplineBuild/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK(BuildWithGsl)->Name("SplineBuild/gsl")->Unit(benchmark::kMillisecond);
BENCHMARK(BuildColumnsWithTessara)->Name("MultiSplineBuild/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK(BuildColumnsWithGsl)->Name("MultiSplineBuild/gsl")->Unit(benchmark::kMillisecond);
BENCHMARK(ValueWithTessara)->Name("SplineValue/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK(ValueWithGsl)->Name("SplineValue/gsl")->Unit(benchmark::kMillisecond);

} // namespace
