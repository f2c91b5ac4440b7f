#include "examples/flory/model/BinodalSection.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "examples/flory/model/CloudPointCurve.h"
#include "examples/flory/model/LevelContour.h"
#include "examples/flory/model/PairGrid.h"
#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/Spinodal.h"

namespace {

using namespace flory;

CSample Bidisperse() {
    return CSample({100, 3000}, {0.9, 0.1});
}

/// Phases, each a volume and a sigma relative to the first, and the first one's species from the balance.
struct CBalance {
    std::vector<double> volumes;
    std::vector<double> sigmas;

    double Species(const CSample& sample, std::size_t i, double dPhi, std::size_t nPhase) const {
        double dSum = 0;
        for (std::size_t k = 0; k < volumes.size(); ++k) {
            dSum += volumes[k] * std::exp(sigmas[k] * sample.Length(i));
        }
        return dPhi * sample.Weight(i) / dSum * std::exp(sigmas[nPhase] * sample.Length(i));
    }
};

/// The phases hold together what the solution has of every species, have the fractions stated, and the same
/// chemical potentials.
void ExpectPhases(const CSample& sample, double dPhi, const CBalance& balance,
                  const std::vector<double>& fractions, double dChi) {
    double dWhole = 0;
    std::vector<double> solvent, chains;
    for (std::size_t k = 0; k < fractions.size(); ++k) {
        double dSum = 0, dNu = 0;
        for (std::size_t i = 0; i < sample.Species(); ++i) {
            const double dSpecies = balance.Species(sample, i, dPhi, k);
            dSum += dSpecies;
            dNu += dSpecies / sample.Length(i);
        }
        EXPECT_NEAR(dSum, fractions[k], 1e-9 * dSum);
        dWhole += balance.volumes[k] * dSum;
        solvent.push_back(std::log1p(-dSum) + dSum - dNu + dChi * dSum * dSum);
        chains.push_back(balance.sigmas[k] - (1 - dSum) - dNu + dChi * (1 - dSum) * (1 - dSum));
    }
    EXPECT_NEAR(dWhole, dPhi, 1e-9 * dPhi);
    for (std::size_t k = 1; k < fractions.size(); ++k) {
        EXPECT_NEAR(solvent[k], solvent[0], 1e-9);
        EXPECT_NEAR(chains[k], chains[0], 1e-9);
    }
}

void ExpectConserved(const CSample& sample, double dPhi, const CBinodalSection& section) {
    ASSERT_FALSE(section.Arcs().empty());
    for (const auto& arc : section.Arcs()) {
        for (const CCoexistence& c : arc.states) {
            ExpectPhases(sample, dPhi, {{1 - c.dVolume, c.dVolume}, {-c.dSigma, 0}}, {c.dFirst, c.dSecond},
                         c.dChi);
        }
    }
    for (const auto& line : section.MultiphaseLines()) {
        for (const CPhaseState& s : line) {
            ExpectPhases(sample, dPhi,
                         {{s.volumes.begin(), s.volumes.end()}, {s.sigmas.begin(), s.sigmas.end()}},
                         {s.phis.begin(), s.phis.end()}, s.dChi);
        }
    }
}

TEST(LevelContourTest, FollowsACircleAndLinesThatEndOnTheBorder) {
    const CLevelContour circle(21, 21, [](double x, double y) { return std::hypot(x - 10, y - 10) - 5.3; });
    ASSERT_EQ(circle.Lines().size(), 1u);
    const auto& line = circle.Lines()[0];
    EXPECT_EQ(line.front().x, line.back().x);
    for (std::size_t i = 0; i < line.size(); ++i) {
        EXPECT_NEAR(std::hypot(line[i].x - 10, line[i].y - 10), 5.3, 1e-12);
        EXPECT_LT(i == 0 ? 0 : std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y), 1.5);
    }
    EXPECT_GT(line.size(), 30u);
    const CLevelContour waves(31, 21, [](double x, double y) { return std::sin(y - 0.1 * x - 0.3); });
    EXPECT_EQ(waves.Lines().size(), 8u);
    const CLevelContour none(5, 5, [](double, double) { return 1.; });
    EXPECT_TRUE(none.Lines().empty());
}

TEST(PairGridTest, ExcessHasTheSignOfWhatThePairHasMore) {
    const CCoexistenceFunction function(CSample({5, 100, 4000}, {0.5, 0.4, 0.1}));
    CPairGrid grid(function, 2);
    int nMore = 0;
    for (double x = 3; x < CPairGrid::COLUMNS; x += 7.5) {
        for (double y = 0; y < CPairGrid::ROWS; y += 2.5) {
            const double dMore = grid.At(x, y).dPhi - 0.1;
            EXPECT_EQ(grid.Excess(x, y, 0.1) > 0, dMore > 0) << x << ", " << y;
            nMore += dMore > 0;
        }
    }
    EXPECT_GT(nMore, 100);
}

TEST(BinodalSectionTest, OfOneSpeciesIsTheCoexistenceCurve) {
    const CSample sample(100);
    for (const double dPhi : {0.02, 0.3}) {
        const CBinodalSection section(sample, dPhi);
        ASSERT_EQ(section.Arcs().size(), 1u);
        EXPECT_TRUE(section.Arcs()[0].bPhysical);
        EXPECT_TRUE(section.MultiphaseLines().empty());
        for (const CCoexistence& c : section.Arcs()[0].states) {
            const CCoexistence curve = CCoexistenceFunction(sample).At(c.dSigma, 0);
            EXPECT_NEAR(c.dFirst, curve.dFirst, 1e-10);
            EXPECT_NEAR(c.dSecond, curve.dSecond, 1e-10);
        }
        ExpectConserved(sample, dPhi, section);
    }
}

TEST(BinodalSectionTest, BeginsAtTheCloudPointWithTheShadow) {
    // Below the three-phase region, and above it.
    for (const double dSigma : {0.004, -0.02}) {
        const CCoexistence cloud = CCoexistenceFunction(Bidisperse()).At(dSigma, 0);
        const CBinodalSection section(Bidisperse(), cloud.dFirst);
        ExpectConserved(Bidisperse(), cloud.dFirst, section);
        double dLeast = 9, dPhi = 0, dShadow = 0;
        for (const auto& arc : section.Arcs()) {
            for (const CCoexistence& c : arc.states) {
                if (arc.bPhysical && c.dChi < dLeast) {
                    dLeast = c.dChi;
                    dPhi = dSigma > 0 ? c.dFirst : c.dSecond;
                    dShadow = dSigma > 0 ? c.dSecond : c.dFirst;
                }
            }
        }
        EXPECT_NEAR(dLeast, cloud.dChi, 1e-9);
        EXPECT_NEAR(dPhi, cloud.dFirst, 1e-9);
        EXPECT_NEAR(dShadow, cloud.dSecond, 1e-9);
    }
}

TEST(BinodalSectionTest, AtTheCriticalFractionBeginsInTheCriticalPoint) {
    const CCriticalPoint critical = CriticalPoint(Bidisperse());
    const CBinodalSection section(Bidisperse(), critical.dPhi);
    ExpectConserved(Bidisperse(), critical.dPhi, section);
    double dLeast = 9;
    for (const auto& arc : section.Arcs()) {
        for (const CCoexistence& c : arc.states) {
            dLeast = std::min(dLeast, c.dChi);
        }
    }
    EXPECT_NEAR(dLeast, critical.dChi, 1e-7);
}

TEST(BinodalSectionTest, PhysicalPartsLeadFromTwoPhasesOverThreeToTwo) {
    const CThreePhasePoint corner = CCloudPointCurve(Bidisperse()).ThreePhasePoints().at(0);
    for (const double dFactor : {0.8, 0.95, 0.999}) {
        const double dPhi = corner.dPhi * dFactor;
        const CBinodalSection section(Bidisperse(), dPhi);
        ExpectConserved(Bidisperse(), dPhi, section);
        ASSERT_EQ(section.MultiphaseLines().size(), 1u) << dFactor;
        const auto& line = section.MultiphaseLines()[0];
        ASSERT_GE(line.size(), 2u);
        for (const CPhaseState& s : line) {
            EXPECT_THAT(s.volumes, testing::Each(testing::Ge(0)));
            EXPECT_LT(s.phis[0], s.phis[1]);
            EXPECT_LT(s.phis[1], s.phis[2]);
        }
        // Each end has a phase without volume, and the other two are the end of a physical part.
        for (const CPhaseState& s : {line.front(), line.back()}) {
            EXPECT_EQ(*std::min_element(s.volumes.begin(), s.volumes.end()), 0) << dFactor;
            double dNearest = 9;
            for (const auto& arc : section.Arcs()) {
                for (const CCoexistence& c : {arc.states.front(), arc.states.back()}) {
                    dNearest = arc.bPhysical ? std::min(dNearest, std::abs(c.dChi - s.dChi)) : dNearest;
                }
            }
            EXPECT_LT(dNearest, 1e-9) << dFactor;
        }
    }
}

TEST(BinodalSectionTest, BeyondTheCornerHasNoThreePhases) {
    const double dPhi = 1.02 * CCloudPointCurve(Bidisperse()).ThreePhasePoints().at(0).dPhi;
    EXPECT_TRUE(CBinodalSection(Bidisperse(), dPhi).MultiphaseLines().empty());
}

TEST(BinodalSectionTest, OneStateAtEveryChi) {
    const double dPhi = 0.09;
    const CInteraction interaction(-0.2956, 243.29);
    const CBinodalSection section(CSample({300, 9000}, {0.99, 0.01}), dPhi);
    const auto pTable = section.Table(interaction);
    for (const double dT : {283., 282., 281., 280., 279., 275.}) {
        int nStates = 0;
        for (int n = 0; n < pTable->m_nParts; ++n) {
            const CCurvePartInfo& part = pTable->m_pParts[n];
            for (int i = part.nFirst; part.nColor == PHYSICAL && i + 1 < part.nFirst + part.nPoints; ++i) {
                const bool bMiddle = pTable->m_ppData[0][i] == pTable->m_ppData[1][i];
                nStates += !bMiddle && (pTable->m_ppData[2][i] < dT) != (pTable->m_ppData[2][i + 1] < dT);
            }
        }
        EXPECT_EQ(nStates, 1) << dT;
    }
}

TEST(BinodalSectionTest, FourPhasesAreFollowed) {
    const CBinodalSection section(CSample({10, 200, 4000}, {1, 0.03, 0.001}), 0.3);
    const auto& lines = section.MultiphaseLines();
    EXPECT_TRUE(
        std::any_of(lines.begin(), lines.end(), [](const auto& line) { return line.front().Phases() == 4; }));
}

TEST(BinodalSectionTest, IsNotWholeWhenAborted) {
    const CBinodalSection section(Bidisperse(), 0.12, 0, [](int nDone, int) { return nDone < 30; });
    EXPECT_FALSE(section.IsComplete());
    EXPECT_LT(section.LastChi(), 0.7 * section.MaxChi());
    EXPECT_GT(section.LastChi(), CriticalPoint(Bidisperse()).dChi);
}

TEST(BinodalSectionTest, RefusesWhatIsNoSection) {
    EXPECT_THROW(CBinodalSection(Bidisperse(), 0), std::invalid_argument);
    EXPECT_THROW(CBinodalSection(Bidisperse(), NAN), std::invalid_argument);
    EXPECT_THROW(CBinodalSection(Bidisperse(), 0.1, 0.5), std::invalid_argument);
}

} // namespace
