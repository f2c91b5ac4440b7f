// Crossings of polylines, beside well-known libraries on the same polylines. What counts is the ratio of the
// medians of <work>/tessara and the best <work>/<peer>; report.sh prints it.
//
// The last benchmark has no peer: it shows how the time grows with the length of a smooth curve.

#include <string>

#include <benchmark/benchmark.h>

#include "bench/CrossingPeers.h"
#include "tessara/numeric/Intersections.h"

namespace {

using namespace bench;

std::size_t CountAndDelete(CMultipartTable* pCrossings) {
    const std::unique_ptr<CMultipartTable> pOwned(pCrossings);
    return pOwned ? static_cast<std::size_t>(pOwned->m_nParts) : 0;
}

CRun TessaraSelf(const CPicture& picture) {
    return [pTable = std::shared_ptr<CMultipartTable>(Table(picture))] {
        return CountAndDelete(Find2DSelfIntersections(pTable.get(), 0, 1));
    };
}

CRun Tessara(const CPicture& a, const CPicture& b) {
    return
        [pA = std::shared_ptr<CMultipartTable>(Table(a)), pB = std::shared_ptr<CMultipartTable>(Table(b))] {
            return CountAndDelete(FindIntersections(pA.get(), pB.get(), 0, 1, 0, 1));
        };
}

/// Input is made when the benchmark runs, not before.
void Register(const std::string& strWork, const char* pszPeer, std::function<CRun()> prepare) {
    benchmark::RegisterBenchmark((strWork + "/" + pszPeer).c_str(), [prepare](benchmark::State& state) {
        const CRun run = prepare();
        std::size_t nCrossings = 0;
        for (auto _ : state) {
            nCrossings = run();
            benchmark::DoNotOptimize(nCrossings);
        }
        state.counters["crossings"] = static_cast<double>(nCrossings);
    })->Unit(benchmark::kMicrosecond);
}

/// IsSimpleOp compares each point that it finds with all before: on long walks it takes minutes.
void RegisterSelf(const std::string& strWork, const std::function<CPicture()>& make,
                  bool bIsSimpleOp = true) {
    Register(strWork, "tessara", [make] { return TessaraSelf(make()); });
    if (bIsSimpleOp) {
        Register(strWork, "GEOS IsSimpleOp", [make] { return GeosIsSimple(make()); });
    }
    Register(strWork, "GEOS MCIndexNoder", [make] { return GeosNoder(make()); });
    Register(strWork, "CGAL box_self_intersection_d", [make] { return CgalBoxes(make()); });
    Register(strWork, "Boost packed rtree", [make] { return BoostTree(make()); });
}

void RegisterPair(const std::string& strWork, const std::function<CPicture()>& a,
                  const std::function<CPicture()>& b) {
    Register(strWork, "tessara", [=] { return Tessara(a(), b()); });
    Register(strWork, "GEOS MCIndex", [=] { return GeosMutualIntersector(a(), b()); });
    Register(strWork, "GEOS STRtree", [=] { return GeosTree(a(), b()); });
    Register(strWork, "GEOS intersection", [=] { return GeosIntersection(a(), b()); });
    Register(strWork, "CGAL box_intersection_d", [=] { return CgalBoxes(a(), b()); });
    Register(strWork, "Boost packed rtree", [=] { return BoostTree(a(), b()); });
}

CPicture TenLoops() {
    CPicture loops;
    for (unsigned nSeed = 1; nSeed <= 10; ++nSeed) {
        loops.push_back(Loop(10000, nSeed));
    }
    return loops;
}

void RegisterAll() {
    constexpr int LONG = 100000;
    RegisterSelf("SelfCrossingsLoop", [] { return CPicture{Loop(LONG, 1)}; });
    RegisterSelf("SelfCrossingsTenLoops", TenLoops);
    RegisterSelf("SelfCrossingsWalk1e4", [] { return CPicture{Walk(LONG / 10, 1)}; });
    RegisterSelf(
        "SelfCrossingsWalk1e5", [] { return CPicture{Walk(LONG, 1)}; }, false);
    RegisterSelf(
        "SelfCrossingsWalk1e6", [] { return CPicture{Walk(LONG * 10, 1)}; }, false);
    RegisterPair(
        "CrossingsSpirals", [] { return CPicture{Spiral(LONG, 0, 50)}; },
        [] { return CPicture{Spiral(LONG, 0.3, 50)}; });
    RegisterPair(
        "CrossingsLoops", [] { return CPicture{Loop(LONG, 2)}; }, [] { return CPicture{Loop(LONG, 3)}; });
    RegisterPair(
        "CrossingsWalks", [] { return CPicture{Walk(LONG, 2)}; }, [] { return CPicture{Walk(LONG, 3)}; });
    for (int nSegments = 10000; nSegments <= 1280000; nSegments *= 2) {
        Register("SelfCrossingsGrowth", std::to_string(nSegments).c_str(),
                 [nSegments] { return TessaraSelf(CPicture{Loop(nSegments, 1)}); });
    }
}

} // namespace

int main(int argc, char** argv) {
    RegisterAll();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
