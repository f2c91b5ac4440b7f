#include "examples/flory/model/CopolymerSpinodal.h"

#include <cmath>
#include <stdexcept>

#include <gtest/gtest.h>

namespace {

using namespace flory;

/// Homopolymers of length alpha 100 in equal shares at p = 0, the symmetric diblock of length 100 at p = 1.
CCopolymerSpinodal Path(double dAlpha) {
    const double n = 100;
    return {CCopolymerBlend({{dAlpha * n, 1, 0.5}, {dAlpha * n, 0, 0.5}, {n, 0.5, 0}}),
            CCopolymerBlend({{dAlpha * n, 1, 0}, {dAlpha * n, 0, 0}, {n, 0.5, 1}})};
}

/// Homopolymers of lengths 40 and 90 and a share of symmetric diblocks of length 100, from A to B.
CCopolymerSpinodal AcrossAt(double dDiblock) {
    return {CCopolymerBlend({{40, 1, 1 - dDiblock}, {90, 0, 0}, {100, 0.5, dDiblock}}),
            CCopolymerBlend({{40, 1, 0}, {90, 0, 1 - dDiblock}, {100, 0.5, dDiblock}})};
}

TEST(CopolymerBlendTest, SymmetricDiblockOrdersWhereLeiblerFoundIt) {
    const CCopolymerBlend blend({{100, 0.5, 1}});
    const CCopolymerBlend::CMinimum minimum = blend.NontrivialMinimum();
    EXPECT_NEAR(minimum.dChi * 100 / 10.494868, 1, 1e-7);
    EXPECT_NEAR(std::sqrt(minimum.x * 100) / 1.945568, 1, 1e-5);
    EXPECT_TRUE(std::isinf(blend.TrivialChi()));
    EXPECT_EQ(blend.SlopeAtZero(), -INFINITY);
}

TEST(CopolymerBlendTest, HomopolymersSeparateAsFloryHasIt) {
    const CCopolymerBlend blend({{100, 1, 0.3}, {200, 0, 0.7}});
    EXPECT_NEAR(blend.TrivialChi(), (1 / (100 * 0.3) + 1 / (200 * 0.7)) / 2, 1e-14);
    EXPECT_EQ(blend.NontrivialMinimum().x, 0);
    EXPECT_EQ(blend.NontrivialMinimum().dChi, blend.TrivialChi());
    EXPECT_GT(blend.SlopeAtZero(), 0);
}

TEST(CopolymerBlendTest, SlopeIsThatOfR) {
    const CCopolymerBlend blend({{50, 1, 0.2}, {80, 0, 0.4}, {120, 0.3, 0.4}});
    const double h = 1e-6;
    EXPECT_NEAR((blend.R(h) - blend.R(0)) / h / blend.SlopeAtZero(), 1, 1e-3);
}

TEST(CopolymerBlendTest, OfOneMonomerIsAlwaysStable) {
    const CCopolymerBlend blend({{100, 1, 1}});
    EXPECT_TRUE(std::isinf(blend.R(0.1)));
    EXPECT_EQ(blend.NontrivialMinimum().x, 0);
    EXPECT_TRUE(std::isinf(blend.NontrivialMinimum().dChi));
}

TEST(CopolymerBlendTest, RefusesWhatIsNoBlend) {
    EXPECT_THROW(CCopolymerBlend({}), std::invalid_argument);
    EXPECT_THROW(CCopolymerBlend({{100, 1, 0.5}}), std::invalid_argument);
    EXPECT_THROW(CCopolymerBlend({{0, 1, 1}}), std::invalid_argument);
    EXPECT_THROW(CCopolymerBlend({{100, 1.5, 1}}), std::invalid_argument);
    EXPECT_THROW(CCopolymerBlend({{100, 1, NAN}}), std::invalid_argument);
    EXPECT_THROW(CCopolymerBlend({{100, 1, 1}}).R(-1), std::invalid_argument);
}

TEST(CopolymerSpinodalTest, LifshitzPointIsBrosetaAndFredricksons) {
    for (const double dAlpha : {0.2, 0.5, 0.9}) {
        const auto points = Path(dAlpha).LifshitzPoints();
        ASSERT_EQ(points.size(), 1u) << dAlpha;
        EXPECT_NEAR((1 - points[0].p) * (1 + 2 * dAlpha * dAlpha), 1, 1e-6);
        EXPECT_NEAR(points[0].dChi * 100 * dAlpha / (2 * (1 + 2 * dAlpha * dAlpha)), 1, 1e-6);
    }
}

TEST(CopolymerSpinodalTest, OneKindOfChainAloneIsNoLifshitzPoint) {
    // From homopolymer A to the diblock: chi has no bound at p = 0.
    const CCopolymerSpinodal ofA(CCopolymerBlend({{100, 1, 1}, {100, 0, 0}, {100, 0.5, 0}}),
                                 CCopolymerBlend({{100, 1, 0}, {100, 0, 0}, {100, 0.5, 1}}));
    const auto points = ofA.LifshitzPoints();
    ASSERT_EQ(points.size(), 1u);
    EXPECT_GT(points[0].p, 0.01);
    EXPECT_NEAR(ofA.At(points[0].p).SlopeAtZero() / ofA.At(points[0].p).R(0), 0, 1e-9);
    EXPECT_TRUE(AcrossAt(0).LifshitzPoints().empty()) << "homopolymers form no structure";
}

TEST(CopolymerSpinodalTest, NontrivialPartLeavesTheTrivialOneInTheLifshitzPoint) {
    const CCopolymerSpinodal path = Path(0.5);
    const auto pTable = path.Table(101);
    ASSERT_EQ(pTable->m_nParts, 2);
    const CCurvePartInfo& trivial = pTable->m_pParts[0];
    const CCurvePartInfo& nontrivial = pTable->m_pParts[1];
    EXPECT_EQ(trivial.nColor, TRIVIAL);
    EXPECT_EQ(trivial.nPoints, 100) << "the pure diblock has no trivial branch";
    EXPECT_EQ(nontrivial.nColor, NONTRIVIAL);
    EXPECT_NEAR(pTable->m_ppData[0][nontrivial.nFirst], 1 / 3., 1e-6);
    EXPECT_NEAR(pTable->m_ppData[1][nontrivial.nFirst], 0.06, 1e-7);
    const int nLast = nontrivial.nFirst + nontrivial.nPoints - 1;
    EXPECT_NEAR(pTable->m_ppData[1][nLast], 0.10494868, 1e-8);
    for (int i = nontrivial.nFirst + 1; i < nLast; ++i) {
        EXPECT_LT(pTable->m_ppData[1][i], path.At(pTable->m_ppData[0][i]).TrivialChi());
        EXPECT_GT(pTable->m_ppData[2][i], pTable->m_ppData[2][i - 1]);
    }
}

TEST(CopolymerSpinodalTest, CriticalPointOfHomopolymersIsFlorys) {
    const auto points = AcrossAt(0).CriticalPoints();
    ASSERT_EQ(points.size(), 1u);
    EXPECT_NEAR(1 - points[0].p, std::sqrt(90.) / (std::sqrt(40.) + std::sqrt(90.)), 1e-12);
    EXPECT_NEAR(points[0].dChi, std::pow(1 / std::sqrt(40.) + 1 / std::sqrt(90.), 2) / 2, 1e-12);
}

TEST(CopolymerSpinodalTest, CriticalPointsLieOnTheTrivialSpinodalOnly) {
    const auto points = AcrossAt(0.2).CriticalPoints();
    ASSERT_EQ(points.size(), 1u);
    EXPECT_EQ(AcrossAt(0.2).At(points[0].p).TrivialChi(), points[0].dChi);
    EXPECT_TRUE(AcrossAt(0.6).CriticalPoints().empty()) << "a structure forms first";
    const auto symmetric = Path(0.5).CriticalPoints();
    ASSERT_EQ(symmetric.size(), 1u) << "the first of a line of them";
    EXPECT_EQ(symmetric[0].p, 0);
    EXPECT_NEAR(symmetric[0].dChi, 0.04, 1e-15);
}

TEST(CopolymerSpinodalTest, RefusesEndsOfOtherComponents) {
    EXPECT_THROW(CCopolymerSpinodal(CCopolymerBlend({{100, 1, 1}}), CCopolymerBlend({{200, 1, 1}})),
                 std::invalid_argument);
    EXPECT_THROW(Path(0.5).At(1.5), std::invalid_argument);
    EXPECT_THROW(Path(0.5).Table(1), std::invalid_argument);
}

} // namespace
