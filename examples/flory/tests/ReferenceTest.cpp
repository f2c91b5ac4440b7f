#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "examples/flory/model/CloudPointCurve.h"
#include "examples/flory/model/MultiplePoints.h"
#include "examples/flory/model/PhysicalPath.h"
#include "examples/flory/model/Spinodal.h"

// Against states that programs in `reference` found by other equations, in 57 digits, and proved to be the
// ones of least free energy.

namespace {

using namespace flory;
using CJson = nlohmann::json;

/// The entries of a file or of a list in it; never none.
std::vector<CJson> Read(const char* pszName, const char* pszList = nullptr) {
    std::ifstream file(std::string(FLORY_REFERENCE) + "/" + pszName);
    const CJson whole = CJson::parse(file);
    const CJson& list = pszList ? whole[pszList] : whole;
    EXPECT_FALSE(list.empty());
    return {list.begin(), list.end()};
}

CSample SampleOf(const CJson& entry) {
    return {entry["r"].get<std::vector<double>>(), entry["w"].get<std::vector<double>>()};
}

void ExpectNear(double dValue, const CJson& expected, double dRelative, const CJson& entry) {
    const double dExpected = expected;
    EXPECT_NEAR(dValue, dExpected, dRelative * std::abs(dExpected)) << entry["r"] << ' ' << entry["w"];
}

/// A state's phases, thinnest first, and their volumes.
void ExpectPhases(const CPhaseState& state, const CJson& phases, double dRelative, const CJson& entry) {
    ASSERT_EQ(state.Phases(), phases.size()) << entry["r"] << ' ' << entry["phi0"];
    for (std::size_t k = 0; k < state.Phases(); ++k) {
        ExpectNear(state.phis[k], phases[k]["phi"], dRelative, entry);
        EXPECT_NEAR(state.volumes[k], phases[k]["volume"].get<double>(), dRelative) << entry["r"];
    }
}

TEST(ReferenceTest, SectionsChangeTheirPhasesWhereTheyShould) {
    int nThreePhases = 0;
    for (const CJson& entry : Read("sections.json")) {
        const CSample sample = SampleOf(entry);
        const CPhysicalPath path(sample, entry["phi0"], entry["chi_max"]);
        EXPECT_TRUE(path.IsComplete());
        const CJson& borders = entry["borders"];
        ASSERT_EQ(path.Runs().size(), borders.size()) << entry["r"] << ' ' << entry["phi0"];
        for (std::size_t i = 0; i < borders.size(); ++i) {
            const CPhysicalPath::CRun& run = path.Runs()[i];
            EXPECT_EQ(run.back().Phases(), entry["counts"][i + 1].get<std::size_t>());
            ExpectNear(run.front().dChi, borders[i]["chi"], 1e-9, entry);
            // The state at the border has the phase that comes or goes, without volume.
            const bool bGoes = borders[i]["kind"] == "vanishes";
            ExpectPhases(bGoes ? path.Runs()[i - 1].back() : run.front(), borders[i]["phases"], 1e-6, entry);
            nThreePhases += run.back().Phases() == 3;
        }
    }
    EXPECT_GT(nThreePhases, 60);
}

TEST(ReferenceTest, CloudPointCurvesHaveTheirCuspsAndCorners) {
    for (const CJson& entry : Read("critical.json", "cloud_curves")) {
        const CCloudPointCurve curve(SampleOf(entry));
        ASSERT_EQ(curve.Cusps().size(), entry["cusps"].size());
        ASSERT_EQ(curve.ThreePhasePoints().size(), entry["three_phase_points"].size());
        for (std::size_t i = 0; i < curve.ThreePhasePoints().size(); ++i) {
            ExpectNear(curve.ThreePhasePoints()[i].dPhi, entry["three_phase_points"][i]["phi0"], 1e-9, entry);
            ExpectNear(curve.ThreePhasePoints()[i].dChi, entry["three_phase_points"][i]["chi"], 1e-9, entry);
        }
        const CCriticalPoint critical = CriticalPoint(curve.Function().Sample());
        ExpectNear(critical.dPhi, entry["critical"]["phi"], 1e-13, entry);
        ExpectNear(critical.dChi, entry["critical"]["chi"], 1e-13, entry);
    }
}

TEST(ReferenceTest, CriticalEndPointsAreFound) {
    // Two shares of the last length for each mixture of the others.
    const std::vector<CJson> points = Read("critical.json", "critical_end_points");
    for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
        const CSample first = SampleOf(points[i]);
        const std::size_t nLast = first.Species() - 1;
        const CSampleLine line = [&](double t) {
            std::vector<double> weights = first.Weights();
            const double dOthers = 1 - weights[nLast];
            for (std::size_t k = 0; k < nLast; ++k) {
                weights[k] /= dOthers;
            }
            weights[nLast] = std::exp(t);
            return CSample(first.Lengths(), weights);
        };
        const auto ends = CriticalEndPoints(line, -60, 60);
        ASSERT_EQ(ends.size(), 2u) << points[i]["r"];
        for (std::size_t n = 0; n < 2; ++n) {
            const CJson& expected = points[i + n];
            ExpectNear(ends[n].sample.Weight(nLast), expected["w"][nLast], 1e-8, expected);
            ExpectNear(ends[n].critical.dPhi, expected["phi"], 1e-8, expected);
            ExpectNear(ends[n].critical.dChi, expected["chi"], 1e-8, expected);
            ExpectNear(ends[n].dOther, expected["third"]["phi"], 1e-8, expected);
        }
    }
}

TEST(ReferenceTest, TricriticalPointsAreFound) {
    for (const CJson& entry : Read("critical.json", "tricritical_points")) {
        const auto lengths = entry["r"].get<std::vector<double>>();
        const CTricriticalPoint point =
            lengths.size() == 2 ? TricriticalPoint(lengths[0]) : TricriticalPoints(lengths).at(0);
        for (std::size_t k = 0; k < lengths.size(); ++k) {
            ExpectNear(point.sample.Length(k), lengths[k], 1e-8, entry);
            ExpectNear(point.sample.Weight(k), entry["w"][k], 1e-8, entry);
        }
        ExpectNear(point.critical.dPhi, entry["phi"], 1e-8, entry);
        ExpectNear(point.critical.dChi, entry["chi"], 1e-8, entry);
        EXPECT_TRUE(IsObservable(point)) << lengths[0];
    }
}

} // namespace
