#include "examples/flory/model/Sample.h"

#include <cmath>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "examples/flory/model/Interaction.h"
#include "examples/flory/model/Spinodal.h"

namespace {

using namespace flory;

TEST(SampleTest, HasTheMomentsOfItsSpecies) {
    const CSample sample({100, 3000}, {9, 1});
    EXPECT_NEAR(sample.WeightAverage(), 390, 1e-9);
    EXPECT_NEAR(sample.ZAverage(), 909000. / 390, 1e-9);
    EXPECT_NEAR(sample.ZPlusOneAverage(), (0.9e6 + 0.1 * 27e9) / 909000, 1e-7);
}

TEST(SampleTest, PassesOverAbsentSpeciesForItsLongestChain) {
    const CSample sample({10, 100, 1000}, {0, 1, 0});
    EXPECT_EQ(sample.Shortest(), 100);
    EXPECT_EQ(sample.Longest(), 100);
}

TEST(SampleTest, RefusesWhatIsNoSample) {
    EXPECT_THROW(CSample({}, {}), std::invalid_argument);
    EXPECT_THROW(CSample({1, 2}, {1}), std::invalid_argument);
    EXPECT_THROW(CSample({0}, {1}), std::invalid_argument);
    EXPECT_THROW(CSample({NAN}, {1}), std::invalid_argument);
    EXPECT_THROW(CSample({10, 20}, {2, -1}), std::invalid_argument);
    EXPECT_THROW(CSample({10, 20}, {0, 0}), std::invalid_argument);
    EXPECT_THROW(CSample({10, 20}, {1e308, 1e308}), std::invalid_argument);
}

TEST(CriticalPointTest, IsStockmayers) {
    const CCriticalPoint shortChains = CriticalPoint(CSample(100));
    EXPECT_NEAR(shortChains.dPhi, 1. / 11, 1e-8);
    EXPECT_NEAR(shortChains.dChi, 0.605, 1e-8);
    const CCriticalPoint longChains = CriticalPoint(CSample(1000));
    EXPECT_NEAR(longChains.dPhi / 0.0306534300, 1, 1e-7);
    EXPECT_NEAR(longChains.dChi / 0.5321227766, 1, 1e-7);
    const CCriticalPoint mixed = CriticalPoint(CSample({100, 3000}, {0.9, 0.1}));
    EXPECT_NEAR(mixed.dPhi / 0.1101539123, 1, 1e-7);
    EXPECT_NEAR(mixed.dChi / 0.5735336509, 1, 1e-7);
    EXPECT_TRUE(mixed.bStable);
}

TEST(CriticalPointTest, TouchesTheSpinodalAndOfOneSpeciesIsItsLowestPoint) {
    const CSample mixed({300, 9000}, {0.99, 0.01});
    const CCriticalPoint point = CriticalPoint(mixed);
    EXPECT_FALSE(point.bStable);
    EXPECT_NEAR(SpinodalChi(mixed, point.dPhi), point.dChi, 1e-12);
    const CCriticalPoint single = CriticalPoint(CSample(100));
    EXPECT_LT(single.dChi, SpinodalChi(CSample(100), single.dPhi * 1.01));
    EXPECT_LT(single.dChi, SpinodalChi(CSample(100), single.dPhi * 0.99));
}

TEST(SpinodalTest, TableRunsBetweenTheGivenFractions) {
    const auto pTable = SpinodalTable(CSample(100), 0.001, 0.9, 50);
    ASSERT_EQ(pTable->m_nPoints, 50);
    EXPECT_EQ(pTable->m_nParts, 1);
    EXPECT_NEAR(pTable->m_ppData[0][0], 0.001, 1e-12);
    EXPECT_NEAR(pTable->m_ppData[0][49], 0.9, 1e-12);
    EXPECT_NEAR(pTable->m_ppData[1][49], (1 / 90. + 10) / 2, 1e-9);
    EXPECT_THROW(SpinodalTable(CSample(100), 0, 0.9, 50), std::invalid_argument);
    EXPECT_THROW(SpinodalTable(CSample(100), 0.1, 0.9, 1), std::invalid_argument);
}

TEST(InteractionTest, LeavesOutWhatHasNoTemperature) {
    const CInteraction interaction(-0.2956, 243.29);
    EXPECT_NEAR(interaction.Temperature(interaction.Chi(300)), 300, 1e-10);
    EXPECT_TRUE(std::isnan(interaction.Temperature(-0.2956)));
    EXPECT_TRUE(std::isnan(interaction.Temperature(-0.5)));
    EXPECT_THROW(static_cast<void>(interaction.Chi(0)), std::invalid_argument);
    EXPECT_THROW(CInteraction(0.5, 0), std::invalid_argument);
    // A lower critical solution: the spinodal has a temperature only below chi = A.
    const auto pTable = SpinodalTable(CSample(100), 0.001, 0.999, 101, CInteraction(0.7, -30));
    EXPECT_EQ(pTable->m_nParts, 1);
    EXPECT_LT(pTable->Max(2), 0.7);
}

} // namespace
