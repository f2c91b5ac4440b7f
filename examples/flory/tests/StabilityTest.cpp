#include <cmath>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "examples/flory/model/CloudPointCurve.h"
#include "examples/flory/model/Spinodal.h"
#include "examples/flory/model/StabilityMap.h"
#include "examples/flory/model/TangentPlane.h"
#include "examples/flory/model/ThreePhaseMap.h"

namespace {

using namespace flory;

CSample Bidisperse() {
    return CSample({100, 3000}, {0.9, 0.1});
}

TEST(TangentPlaneTest, IsTheSpinodalAtZeroAndSmoothThere) {
    const CTangentPlane plane(Bidisperse(), 0.1);
    EXPECT_EQ(plane.X(0), SpinodalChi(Bidisperse(), 0.1));
    EXPECT_NEAR(plane.X(1e-9), plane.X(0), 1e-5 * plane.X(0));
    EXPECT_NEAR(plane.X(1e-10) + plane.X(-1e-10), 2 * plane.X(0), 1e-10);
    EXPECT_TRUE(std::isinf(plane.X(1)));
}

TEST(TangentPlaneTest, ItsMinimumIsThePhysicalCloudPoint) {
    const CCloudPointCurve curve(Bidisperse(), 300);
    for (const CCloudPointCurve::CStretch& stretch : curve.Stretches()) {
        for (const CCoexistence& c : curve.Points()) {
            if (c.dSigma <= stretch.dFirst || c.dSigma >= stretch.dLast) {
                continue;
            }
            const CTangentPlane plane(Bidisperse(), c.dFirst);
            EXPECT_NEAR(plane.X(c.dSigma), c.dChi, 1e-10 * c.dChi);
            if (stretch.bPhysical) {
                EXPECT_NEAR(plane.Minimum().dX, c.dChi, 1e-9 * c.dChi) << c.dFirst;
            } else {
                EXPECT_LT(plane.Minimum().dX, c.dChi) << c.dFirst;
            }
        }
    }
}

TEST(TangentPlaneTest, HasTwoEqualMinimaInAThreePhasePoint) {
    const CThreePhasePoint point = CCloudPointCurve(Bidisperse()).ThreePhasePoints().at(0);
    auto minima = CTangentPlane(Bidisperse(), point.dPhi).Minima();
    std::erase_if(minima, [&](const auto& minimum) { return minimum.dX > point.dChi + 1e-6; });
    ASSERT_EQ(minima.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_NEAR(minima[i].dX, point.dChi, 1e-12);
        EXPECT_NEAR(minima[i].dS, point.dSigmas[i], 1e-6 * std::abs(point.dSigmas[i]));
    }
}

TEST(TangentPlaneTest, IsTotalOverFractionsAndRefusesOthers) {
    for (const double dPhi : {1e-12, 1e-3, 0.999999}) {
        EXPECT_TRUE(std::isfinite(CTangentPlane(CSample({1, 1e6}, {1, 1}), dPhi).Minimum().dX)) << dPhi;
    }
    EXPECT_THROW(CTangentPlane(Bidisperse(), 0), std::invalid_argument);
    EXPECT_THROW(CTangentPlane(Bidisperse(), NAN), std::invalid_argument);
}

TEST(StabilityMapTest, IsNegativeExactlyInsideTheCloudPointCurve) {
    const CSample sample = Bidisperse();
    const CCoexistence cloud = CCoexistenceFunction(sample).At(-0.02, 0);
    // One row of w = 0.1, with columns on both sides of the cloud point.
    CStabilityMap map(100, 3000, cloud.dChi, 1, {cloud.dFirst * 0.98, cloud.dFirst}, {0.05, 0.15});
    ASSERT_TRUE(map.Compute());
    EXPECT_NEAR(map.W(0), 0.1, 1e-15);
    EXPECT_LT(map.Value(0, 0), 0);
    CStabilityMap outside(100, 3000, cloud.dChi, 1, {cloud.dFirst, cloud.dFirst * 1.02}, {0.05, 0.15});
    ASSERT_TRUE(outside.Compute());
    EXPECT_GT(outside.Value(0, 0), 0);
}

TEST(StabilityMapTest, TellsItsRowsAndStopsBetweenThem) {
    CStabilityMap map(100, 3000, 0.55, 8);
    std::vector<int> done;
    EXPECT_TRUE(map.Compute([&](int nDone, int nRows) {
        EXPECT_EQ(nRows, 8);
        EXPECT_EQ(map.RowsDone(), nDone);
        done.push_back(nDone);
        return true;
    }));
    EXPECT_THAT(done, testing::ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8));
    const double dValue = map.Value(2, 5);
    EXPECT_FALSE(map.Compute([](int nDone, int) { return nDone < 3; }));
    EXPECT_EQ(map.RowsDone(), 3);
    EXPECT_EQ(map.Value(2, 5), dValue);
    EXPECT_THROW(map.Value(3, 0), std::out_of_range);
}

TEST(StabilityMapTest, RefusesWhatIsNoGrid) {
    EXPECT_THROW(CStabilityMap(0, 3000, 0.5, 8), std::invalid_argument);
    EXPECT_THROW(CStabilityMap(100, 3000, NAN, 8), std::invalid_argument);
    EXPECT_THROW(CStabilityMap(100, 3000, 0.5, 0), std::invalid_argument);
    EXPECT_THROW(CStabilityMap(100, 3000, 0.5, 8, {0.5, 0.5}), std::invalid_argument);
    EXPECT_THROW(CStabilityMap(100, 3000, 0.5, 8, {0, 1}, {0, 1.1}), std::invalid_argument);
}

TEST(ThreePhaseMapTest, ContainsTheKnownPointAndNoneWithoutLongChains) {
    CThreePhaseMap map(300, 9000, 0.01, 0.9999, 3);
    ASSERT_TRUE(map.Compute());
    ASSERT_FALSE(map.Points().empty());
    EXPECT_NEAR(map.Points()[0].dW, 0.01, 1e-15);
    EXPECT_NEAR(map.Points()[0].point.dPhi, 0.0891387, 1e-7);
    EXPECT_LT(map.Points().back().dW, 0.9999) << "almost one species: no three phases";
    const auto pTable = map.Table(CInteraction(-0.2956, 243.29));
    EXPECT_NEAR(pTable->m_ppData[2][0], 283.650, 1e-3);
    EXPECT_FALSE(map.Compute([](int nDone, int) { return nDone < 1; }));
    EXPECT_EQ(map.Points().size(), 1u);
    EXPECT_THROW(CThreePhaseMap(300, 9000, 0, 0.5, 3), std::invalid_argument);
    EXPECT_THROW(CThreePhaseMap(300, 9000, 0.1, 0.5, 0), std::invalid_argument);
}

} // namespace
