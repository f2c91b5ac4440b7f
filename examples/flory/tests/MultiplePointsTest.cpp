#include "examples/flory/model/MultiplePoints.h"

#include <cmath>
#include <stdexcept>

#include <gtest/gtest.h>

#include "examples/flory/model/TangentPlane.h"
#include "examples/flory/model/ThreePhaseMap.h"

namespace {

using namespace flory;

constexpr double REACH = 60; ///< of ln(w2/w1)

/// Solvent and polymer have the same chemical potentials in a phase and in one with exp(s r) times as much of
/// each species, at the chi of a critical point.
void ExpectInEquilibrium(const CCriticalEndPoint& point) {
    const CSample& sample = point.sample;
    double dOther = 0, dNu = 0, dOtherNu = 0;
    const double dPhi = point.critical.dPhi, dChi = point.critical.dChi;
    for (std::size_t i = 0; i < sample.Species(); ++i) {
        const double r = sample.Length(i), dAmount = dPhi * sample.Weight(i);
        dOther += dAmount * std::exp(point.dS * r);
        dNu += dAmount / r;
        dOtherNu += dAmount / r * std::exp(point.dS * r);
    }
    EXPECT_NEAR(dOther, point.dOther, 1e-12);
    const auto solvent = [&](double phi, double nu) {
        return std::log1p(-phi) + phi - nu + dChi * phi * phi;
    };
    EXPECT_NEAR(solvent(dPhi, dNu), solvent(dOther, dOtherNu), 1e-11);
    EXPECT_NEAR(-(1 - dPhi) - dNu + dChi * (1 - dPhi) * (1 - dPhi),
                point.dS - (1 - dOther) - dOtherNu + dChi * (1 - dOther) * (1 - dOther), 1e-11);
}

TEST(CriticalEndPointTest, CoexistsWithAnotherPhaseAndBoundsTheStableCriticalPoints) {
    const std::vector<double> pairs[] = {{300, 9000}, {100, 3000}, {3000, 100},
                                         {100, 1100}, {5, 500},    {1, 40}};
    for (const auto& lengths : pairs) {
        const CSampleLine line = LineOfSamples(lengths);
        const auto ends = CriticalEndPoints(line, -REACH, REACH);
        ASSERT_EQ(ends.size(), 2u) << lengths[0] << ' ' << lengths[1];
        for (const CCriticalEndPoint& end : ends) {
            ExpectInEquilibrium(end);
            EXPECT_GT(std::abs(end.dOther - end.critical.dPhi), 0.01 * end.critical.dPhi);
            const double t = std::log(end.sample.Weight(1) / end.sample.Weight(0));
            const bool bFirst = &end == &ends.front();
            EXPECT_GT(CriticalMargin(line(bFirst ? t - 1e-3 : t + 1e-3)).value_or(1), 0);
            EXPECT_LT(CriticalMargin(line(bFirst ? t + 1e-3 : t - 1e-3)).value_or(1), 0);
        }
    }
}

TEST(CriticalEndPointTest, IsFoundAmongThreeLengths) {
    const auto ends = CriticalEndPoints(LineOfSamples({100, 1000, 10000}, 2, 0.01), -REACH, REACH);
    ASSERT_FALSE(ends.empty());
    for (const CCriticalEndPoint& end : ends) {
        EXPECT_NEAR(end.sample.Weight(2), 0.01, 1e-15);
        ExpectInEquilibrium(end);
    }
    // Without the third one it is that of the two.
    const auto limit = CriticalEndPoints(LineOfSamples({100, 3000, 10}, 2, 0), -REACH, REACH);
    const auto two = CriticalEndPoints(LineOfSamples({100, 3000}), -REACH, REACH);
    ASSERT_EQ(limit.size(), two.size());
    EXPECT_NEAR(limit[1].sample.Weight(1) / two[1].sample.Weight(1), 1, 1e-9);
}

TEST(CriticalEndPointTest, EndsTheThreePhasePointsOfAMap) {
    CThreePhaseMap map(100, 3000, 0.03, 0.05, 5);
    ASSERT_TRUE(map.Compute());
    const auto pTable = map.Table();
    int nEnds = 0;
    for (int i = 0; i < pTable->m_nPoints; ++i) {
        if (pTable->m_ppData[6][i] == 2) {
            ++nEnds;
            EXPECT_NEAR(pTable->m_ppData[0][i], 0.0394144444205, 1e-10);
            EXPECT_EQ(pTable->m_ppData[1][i],
                      pTable->m_ppData[4][i]); // the denser of the others is the solution
        }
    }
    EXPECT_EQ(nEnds, 1);
}

TEST(TricriticalPointTest, IsWhereThreePhasesBegin) {
    // The limit of long chains is exact; with the solvent's own length, Solc's ratio.
    EXPECT_NEAR(TricriticalPoint(1e8).sample.Length(1) / 1e8, 5 + 2 * std::sqrt(6.), 2e-3);
    EXPECT_NEAR(TricriticalPoint(1).sample.Length(1), 15.645, 1e-3);
    for (const double r : {0.05, 1., 10., 100., 1e4}) {
        const CTricriticalPoint point = TricriticalPoint(r);
        EXPECT_TRUE(IsObservable(point)) << r;
        // X of a phase s away differs from that of the phase itself by s^4.
        const CTangentPlane plane(point.sample, point.critical.dPhi);
        const double s = 0.1 / point.sample.Longest();
        const double dNear = plane.X(s) - plane.X(0), dFar = plane.X(2 * s) - plane.X(0);
        EXPECT_NEAR(dFar / dNear, 16, 2) << r;
        const double dRatio = point.sample.Length(1) / r;
        EXPECT_TRUE(CriticalEndPoints(LineOfSamples({r, r * dRatio * 0.995}), -REACH, REACH).empty()) << r;
        const auto ends = CriticalEndPoints(LineOfSamples({r, r * dRatio * 1.02}), -REACH, REACH);
        ASSERT_EQ(ends.size(), 2u) << r;
        EXPECT_LT(ends[0].sample.Weight(1), point.sample.Weight(1));
        EXPECT_GT(ends[1].sample.Weight(1), point.sample.Weight(1));
    }
}

TEST(TricriticalPointTest, IsFoundAmongThreeLengths) {
    const auto points = TricriticalPoints({10000, 100, 1000});
    ASSERT_EQ(points.size(), 1u);
    const CTangentPlane plane(points[0].sample, points[0].critical.dPhi);
    const double s = 0.1 / points[0].sample.Longest();
    EXPECT_NEAR((plane.X(2 * s) - plane.X(0)) / (plane.X(s) - plane.X(0)), 16, 2);
    EXPECT_TRUE(TricriticalPoints({100, 200, 300}).empty());
    EXPECT_THROW(TricriticalPoints({100, 200}), std::invalid_argument);
    EXPECT_THROW(TricriticalPoint(0), std::invalid_argument);
    EXPECT_THROW(TricriticalPoint(NAN), std::invalid_argument);
}

} // namespace
