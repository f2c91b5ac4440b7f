// Evaluates a sampled curve at random abscissae, and the same points with the GNU Scientific Library. What
// counts is the ratio of the medians of <work>/tessara and <work>/<peer>; report.sh prints it.

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <gsl/gsl_interp.h>

#include "tessara/numeric/Curve.h"

namespace {

constexpr std::size_t QUERIES = 1 << 16; ///< too many for the branch predictor to learn

/// A curve on unevenly spaced abscissae and random places to look it up at.
struct CSample {
    explicit CSample(int nPoints) : curve(nPoints), queries(QUERIES) {
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> step(0.5, 1.5);
        double dX = 0;
        for (int i = 0; i < nPoints; ++i) {
            curve.m_pX[i] = dX;
            curve.m_pY[i] = std::sin(dX);
            dX += step(random);
        }
        std::uniform_real_distribution<double> place(0, curve.m_pX[nPoints - 1]);
        std::generate(queries.begin(), queries.end(), [&] { return place(random); });
    }

    CCurve curve;
    std::vector<double> queries;
};

/// Times value(x) over all queries; the time reported is that of one.
template <class FUNCTION>
void Evaluate(benchmark::State& state, const std::vector<double>& queries, FUNCTION value) {
    for (auto _ : state) {
        for (const double x : queries) {
            benchmark::DoNotOptimize(value(x));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(queries.size()));
    state.counters["each"] =
        benchmark::Counter(static_cast<double>(queries.size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Tessara(benchmark::State& state) {
    const CSample sample(static_cast<int>(state.range(0)));
    Evaluate(state, sample.queries, [&](double x) { return sample.curve.Value(x); });
}

void Gsl(benchmark::State& state) {
    const CSample sample(static_cast<int>(state.range(0)));
    const CCurve& curve = sample.curve;
    const auto nPoints = static_cast<std::size_t>(curve.m_nPoints);
    const std::unique_ptr<gsl_interp, decltype(&gsl_interp_free)> pInterp(
        gsl_interp_alloc(gsl_interp_linear, nPoints), &gsl_interp_free);
    const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> pAccel(gsl_interp_accel_alloc(),
                                                                                     &gsl_interp_accel_free);
    gsl_interp_init(pInterp.get(), curve.m_pX, curve.m_pY, nPoints);
    Evaluate(state, sample.queries, [&](double x) {
        return gsl_interp_eval(pInterp.get(), curve.m_pX, curve.m_pY, x, pAccel.get());
    });
}

#define BENCHMARK_PAIR(count, text)                                                                          \
    BENCHMARK(Tessara)->Name("CurveValue" text "/tessara")->Arg(count);                                      \
    BENCHMARK(Gsl)->Name("CurveValue" text "/gsl")->Arg(count)

BENCHMARK_PAIR(100, "1e2");
BENCHMARK_PAIR(1000, "1e3");
BENCHMARK_PAIR(100000, "1e5");

} // namespace
