#include "examples/flory/model/CloudPointCurve.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/Spinodal.h"

namespace {

using namespace flory;

void ExpectRelative(double dValue, double dExpected, double dTolerance = 1e-7) {
    EXPECT_NEAR(dValue / dExpected, 1, dTolerance) << dValue << " instead of " << dExpected;
}

CSample Bidisperse() {
    return CSample({100, 3000}, {0.9, 0.1});
}

CSample RandomSample(std::mt19937& random) {
    const auto uniform = [&](double dLow, double dHigh) {
        return std::uniform_real_distribution<>(dLow, dHigh)(random);
    };
    const double r = std::exp(uniform(std::log(5.), std::log(1000.)));
    return CSample({r, r * std::exp(uniform(0.3, 4.))}, {1, std::exp(uniform(-7., 2.))});
}

std::string ListOf(const CSample& sample) {
    return testing::PrintToString(sample.Lengths()) + testing::PrintToString(sample.Weights());
}

/// Two numbers are equal when they differ by 1e-9 of themselves, or by what rounding leaves of their terms.
void ExpectSamePotential(double dFirst, double dSecond, double dTerms) {
    EXPECT_NEAR(dFirst, dSecond, 1e-9 * std::abs(dFirst) + 1e-14 * dTerms);
}

/// The chemical potentials of the two phases of a cloud point, from their definition.
void ExpectEquilibrium(const CSample& sample, const CCoexistence& c) {
    const double dSolvent = std::log1p(-c.dFirst);
    double dNu1 = 0, dNu2 = 0, dSum = 0;
    for (std::size_t i = 0; i < sample.Species(); ++i) {
        const double dFirst = c.dFirst * sample.Weight(i);
        const double dSecond = dFirst * std::exp(c.dSigma * sample.Length(i));
        dNu1 += dFirst / sample.Length(i);
        dNu2 += dSecond / sample.Length(i);
        dSum += dSecond;
    }
    EXPECT_NEAR(dSum, c.dSecond, 1e-12 * dSum);
    EXPECT_NEAR(std::log1p(-c.dSecond), dSolvent - c.dSolventLog, 1e-12 / (1 - c.dSecond));
    const auto solvent = [&](double dLog, double dPhi, double dNu) {
        return dLog + dPhi - dNu + c.dChi * dPhi * dPhi;
    };
    ExpectSamePotential(solvent(dSolvent, c.dFirst, dNu1), solvent(dSolvent - c.dSolventLog, c.dSecond, dNu2),
                        std::abs(dSolvent) + std::abs(c.dSolventLog) + 1 + c.dChi);
    for (std::size_t i = 0; i < sample.Species(); ++i) {
        const double r = sample.Length(i);
        const double dLog = std::log(c.dFirst * sample.Weight(i));
        const auto species = [&](double dLogPhi, double dPhi, double dNu) {
            return (dLogPhi + 1) / r - (1 - dPhi) - dNu + c.dChi * (1 - dPhi) * (1 - dPhi);
        };
        ExpectSamePotential(species(dLog, c.dFirst, dNu1), species(dLog + c.dSigma * r, c.dSecond, dNu2),
                            std::abs(dLog) / r + std::abs(c.dSigma) + 1 + c.dChi);
    }
}

TEST(CoexistenceFunctionTest, SolvesTheSymmetricMixture) {
    const CCoexistence c = CCoexistenceFunction(CSample(1)).At(1, 0);
    ExpectRelative(c.dFirst, 0.2689414214);
    ExpectRelative(c.dSecond, 1 - 0.2689414214);
    ExpectRelative(c.dChi, 2.1639534137);
}

TEST(CoexistenceFunctionTest, SolvesTheBidisperseSample) {
    const CCoexistence c = CCoexistenceFunction(Bidisperse()).At(-0.005, 0);
    ExpectRelative(c.dChi, 0.607663302996, 1e-11);
    ExpectRelative(c.dFirst, 0.167719452616, 1e-11);
    ExpectRelative(c.dSecond, 0.091554296348, 1e-11);
}

TEST(CoexistenceFunctionTest, MeetsTheCriticalPointFromBothSidesAtEveryVolume) {
    const CCoexistenceFunction function(Bidisperse());
    const CCriticalPoint critical = CriticalPoint(function.Sample());
    for (const double dSigma : {0., 1e-11, -1e-11}) {
        for (const double dVolume : {0., 0.3, 1.}) {
            ExpectRelative(function.At(dSigma, dVolume).dPhi, critical.dPhi);
            ExpectRelative(function.At(dSigma, dVolume).dChi, critical.dChi);
        }
    }
}

TEST(CoexistenceFunctionTest, IsTheSameWithPhasesExchanged) {
    const CCoexistenceFunction function(Bidisperse());
    const CCoexistence a = function.At(0.002, 0.25);
    const CCoexistence b = function.At(-0.002, 0.75);
    ExpectRelative(a.dFirst, b.dSecond, 1e-13);
    ExpectRelative(a.dSecond, b.dFirst, 1e-13);
    ExpectRelative(a.dChi, b.dChi, 1e-13);
    ExpectRelative(a.dPhi, b.dPhi, 1e-13);
    ExpectRelative(a.dFirst * 0.75 + a.dSecond * 0.25, a.dPhi, 1e-13);
}

TEST(CoexistenceFunctionTest, RefusesWhatHasNoEquilibrium) {
    const CCoexistenceFunction function(Bidisperse());
    EXPECT_THROW(function.At(NAN, 0), std::invalid_argument);
    EXPECT_THROW(function.At(0.1, -0.1), std::invalid_argument);
    EXPECT_THROW(function.At(0.1, 1.1), std::invalid_argument);
    EXPECT_THROW(function.At(1, 0), std::invalid_argument);
    EXPECT_THROW(function.At(-1, 1), std::invalid_argument);
    EXPECT_TRUE(std::isfinite(function.At(1, 0.5).dChi));
    EXPECT_TRUE(std::isfinite(function.At(-50, 0).dChi));
}

TEST(PhaseVolumeLineTest, WithoutVolumeIsTheCloudPointCurve) {
    const CCoexistenceFunction function(Bidisperse());
    const auto pCloud = PhaseVolumeLine(function, 0, 41);
    const auto pMiddle = PhaseVolumeLine(function, 0.4, 41);
    ASSERT_EQ(pCloud->m_nPoints, 41);
    for (int i = 0; i < 41; ++i) {
        ExpectRelative(pCloud->m_ppData[0][i], pCloud->m_ppData[2][i], 1e-13);
        ExpectRelative(pMiddle->m_ppData[0][i], 0.6 * pMiddle->m_ppData[2][i] + 0.4 * pMiddle->m_ppData[3][i],
                       1e-12);
    }
    EXPECT_THROW(PhaseVolumeLine(function, 0.5, 1), std::invalid_argument);
    EXPECT_THROW(PhaseVolumeLine(function, 2, 41), std::invalid_argument);
}

TEST(CloudPointCurveTest, FindsCuspsAndThreePhases) {
    const CCloudPointCurve curve(Bidisperse());
    ASSERT_EQ(curve.Cusps().size(), 2u);
    ExpectRelative(curve.Cusps()[0].dFirst, 0.165575091);
    ExpectRelative(curve.Cusps()[0].dChi, 0.606767716);
    ExpectRelative(curve.Cusps()[1].dFirst, 0.184246054);
    ExpectRelative(curve.Cusps()[1].dChi, 0.616105299);
    ASSERT_EQ(curve.ThreePhasePoints().size(), 1u);
    const CThreePhasePoint& point = curve.ThreePhasePoints()[0];
    ExpectRelative(point.dPhi, 0.173241989);
    ExpectRelative(point.dChi, 0.6094427926);
    EXPECT_THAT(point.dShadows, testing::ElementsAre(testing::DoubleNear(0.0536483692, 5e-9),
                                                     testing::DoubleNear(0.1433846500, 1e-8)));
    EXPECT_LT(point.dSigmas[0], point.dSigmas[1]);
}

TEST(CloudPointCurveTest, HasTheTemperaturesOfPolystyreneInCyclohexane) {
    const CSample sample({300, 9000}, {0.99, 0.01});
    const CInteraction interaction(-0.2956, 243.29);
    const CCriticalPoint critical = CriticalPoint(sample);
    EXPECT_NEAR(interaction.Temperature(critical.dChi), 279.792, 1e-3);
    EXPECT_NEAR(critical.dPhi, 0.110754, 1e-6);
    EXPECT_FALSE(critical.bStable);
    const CCloudPointCurve curve(sample);
    ASSERT_EQ(curve.Cusps().size(), 2u);
    EXPECT_NEAR(interaction.Temperature(curve.Cusps()[0].dChi), 284.461, 1e-3);
    EXPECT_NEAR(interaction.Temperature(curve.Cusps()[1].dChi), 279.680, 1e-3);
    ASSERT_EQ(curve.ThreePhasePoints().size(), 1u);
    EXPECT_NEAR(interaction.Temperature(curve.ThreePhasePoints()[0].dChi), 283.650, 1e-3);
    EXPECT_NEAR(curve.ThreePhasePoints()[0].dPhi, 0.0891387, 1e-7);
}

TEST(CloudPointCurveTest, OfOneSpeciesIsAllPhysical) {
    const CCloudPointCurve curve(CSample(1000));
    EXPECT_TRUE(curve.Cusps().empty());
    EXPECT_TRUE(curve.ThreePhasePoints().empty());
    ASSERT_EQ(curve.Stretches().size(), 1u);
    EXPECT_TRUE(curve.Stretches()[0].bPhysical);
    EXPECT_EQ(curve.Table()->m_nPoints, CCloudPointCurve::POINTS);
}

TEST(CloudPointCurveTest, PartsMeetInTheThreePhasePoint) {
    const CCloudPointCurve curve(Bidisperse(), 400);
    const auto pTable = curve.Table(CInteraction(0, 180));
    ASSERT_EQ(pTable->m_nParts, 3);
    EXPECT_EQ(pTable->GetNumColors(), 2);
    const double dPhi = curve.ThreePhasePoints()[0].dPhi;
    for (int i = 0; i < 3; ++i) {
        const CCurvePartInfo& part = pTable->m_pParts[i];
        EXPECT_EQ(part.nColor, i == 1 ? NON_PHYSICAL : PHYSICAL);
        if (i > 0) {
            EXPECT_NEAR(pTable->m_ppData[0][part.nFirst], dPhi, 1e-8);
            EXPECT_NEAR(pTable->m_ppData[1][part.nFirst], 180 / curve.ThreePhasePoints()[0].dChi, 1e-5);
            EXPECT_EQ(pTable->m_ppData[0][part.nFirst], pTable->m_ppData[0][part.nFirst - 1]);
            EXPECT_EQ(pTable->m_ppData[1][part.nFirst], pTable->m_ppData[1][part.nFirst - 1]);
        }
    }
}

TEST(CloudPointCurveTest, RunsReachBeyondTheThreePhasePointByAHair) {
    const CSample samples[] = {Bidisperse(), CSample({20, 5000}, {1, 1e-4}), CSample({100, 90000}, {1, 1e-5}),
                               CSample({300, 9000}, {0.99, 0.01})};
    for (const CSample& sample : samples) {
        const CCloudPointCurve curve(sample);
        const auto pTable = curve.Table();
        ASSERT_EQ(curve.ThreePhasePoints().size(), 1u);
        ASSERT_EQ(pTable->m_nParts, 3);
        const CThreePhasePoint& corner = curve.ThreePhasePoints()[0];
        for (const int i : {pTable->m_pParts[1].nFirst, pTable->m_pParts[2].nFirst}) {
            const double dPhi = pTable->m_ppData[0][i] / corner.dPhi - 1;
            const double dChi = pTable->m_ppData[1][i] / corner.dChi - 1;
            EXPECT_NEAR(std::max(std::abs(dPhi), std::abs(dChi)), CCloudPointCurve::HAIR,
                        0.1 * CCloudPointCurve::HAIR)
                << sample.Longest();
        }
    }
}

/// A sample of short chains: two lengths, a Schulz-Zimm distribution or a log-normal one.
CSample RandomShortSample(std::mt19937& random) {
    const auto uniform = [&](double dLow, double dHigh) {
        return std::uniform_real_distribution<>(dLow, dHigh)(random);
    };
    const double dShortest = std::exp(uniform(0, std::log(8.)));
    const int nKind = std::uniform_int_distribution<>(0, 2)(random);
    if (nKind == 0) {
        return CSample({dShortest, dShortest * std::exp(uniform(0.3, 6.))}, {1, std::exp(uniform(-7., 4.))});
    }
    const double dMean = dShortest * std::exp(uniform(0.5, 5.)), dShape = uniform(0.5, 20.);
    const double dWidth = uniform(0.2, 1.2);
    std::vector<double> lengths, weights;
    for (int i = 0; i < 30; ++i) {
        const double r = dShortest * std::pow(10 * dMean / dShortest, i / 29.);
        lengths.push_back(r);
        const double dLog = std::log(r / dMean);
        weights.push_back(nKind == 1 ? std::exp(dShape * (dLog - r / dMean))
                                     : std::exp(-dLog * dLog / (2 * dWidth * dWidth)));
    }
    return CSample(lengths, weights);
}

/// FLORY_CURVES=2000 looks at as many. In a cusp the shadow phase turns unstable against small changes.
TEST(CloudPointCurveTest, CuspsOfShortChainsAreWhereTheShadowPhaseIsOnItsSpinodal) {
    const char* pszCount = std::getenv("FLORY_CURVES");
    const int nCount = pszCount ? std::atoi(pszCount) : 150;
    std::mt19937 random(20240403);
    int nCusps = 0;
    for (int n = 0; n < nCount; ++n) {
        // As far as a diagram needs it: there the densest cloud points are pure polymer to the last digit.
        const CCloudPointCurve curve(RandomShortSample(random), CCloudPointCurve::POINTS, 1e-100);
        const CSample& sample = curve.Function().Sample();
        EXPECT_EQ(curve.Cusps().size() % 2, 0u) << ListOf(sample);
        for (const CCoexistence& cusp : curve.Cusps()) {
            double dPhi = 0, dMoment = 0;
            for (std::size_t i = 0; i < sample.Species(); ++i) {
                const double r = sample.Length(i);
                const double dSpecies = cusp.dFirst * sample.Weight(i) * std::exp(cusp.dSigma * r);
                dPhi += dSpecies;
                dMoment += dSpecies * r;
            }
            EXPECT_NEAR((1 / dMoment + 1 / (1 - dPhi)) / 2 / cusp.dChi, 1, 1e-4) << ListOf(sample);
            ++nCusps;
        }
    }
    EXPECT_GT(nCusps, nCount / 10) << "the samples show too little";
}

TEST(CloudPointCurveTest, RefusesTooFewPointsAndNoEnd) {
    EXPECT_THROW(CCloudPointCurve(Bidisperse(), 15), std::invalid_argument);
    EXPECT_THROW(CCloudPointCurve(Bidisperse(), 16, 0), std::invalid_argument);
}

TEST(CloudPointCurveTest, PhasesOfRandomSamplesAreInEquilibrium) {
    std::mt19937 random(20240401);
    for (int n = 0; n < 200 && !testing::Test::HasFailure(); ++n) {
        const CCloudPointCurve curve(RandomSample(random), 200);
        for (const CCoexistence& c : curve.Points()) {
            ExpectEquilibrium(curve.Function().Sample(), c);
        }
    }
}

/// chi where a polyline of a part reaches the fraction, by its segments.
std::vector<double> Levels(const CMultipartTable& table, double dPhi, int nColor) {
    std::vector<double> levels;
    for (int n = 0; n < table.m_nParts; ++n) {
        const CCurvePartInfo& part = table.m_pParts[n];
        for (int i = part.nFirst; part.nColor == nColor && i + 1 < part.nFirst + part.nPoints; ++i) {
            const double* pPhi = table.m_ppData[0];
            const double* pChi = table.m_ppData[1];
            if ((pPhi[i] < dPhi) != (pPhi[i + 1] < dPhi)) {
                levels.push_back(pChi[i] +
                                 (dPhi - pPhi[i]) / (pPhi[i + 1] - pPhi[i]) * (pChi[i + 1] - pChi[i]));
            }
        }
    }
    return levels;
}

TEST(CloudPointCurveTest, PhysicalPartsOfRandomSamplesAreTheLowerEnvelope) {
    std::mt19937 random(20240402);
    int nCorners = 0;
    for (int n = 0; n < 200 && !testing::Test::HasFailure(); ++n) {
        const CCloudPointCurve curve(RandomSample(random), 1000);
        nCorners += static_cast<int>(curve.ThreePhasePoints().size());
        const auto pTable = curve.Table();
        for (std::size_t i = 20; i + 20 < curve.Points().size(); i += 7) {
            const double dPhi = curve.Points()[i].dFirst;
            const std::vector<double> physical = Levels(*pTable, dPhi * (1 + 1e-9), PHYSICAL);
            ASSERT_EQ(physical.size(), 1u) << dPhi;
            for (const double dOther : Levels(*pTable, dPhi * (1 + 1e-9), NON_PHYSICAL)) {
                EXPECT_GT(dOther, physical[0] - 1e-5) << dPhi;
            }
        }
    }
    EXPECT_GT(nCorners, 10) << "the samples show too little";
}

} // namespace
