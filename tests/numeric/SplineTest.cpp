#include "tessara/numeric/Spline.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Bits.h"
#include "tests/numeric/PlainSpline.h"
#include "tests/numeric/Samples.h"

namespace {

using samples::CSampleCurve;

/// Opens what a derived class sees.
class COpenSpline : public CSpline {
public:
    using CSpline::CheckForUnderflow;
    using CSpline::CSpline;
    using CSpline::IValue;
};

/// n points of a function over uneven abscissae of [0, dLength].
template <class FUNCTION>
std::unique_ptr<CSampleCurve> Sample(int n, double dLength, FUNCTION function) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < n; ++i) {
        const double dPlace = static_cast<double>(i) / (n - 1);
        x.push_back(dLength * (dPlace + 0.3 * dPlace * (1 - dPlace)));
        y.push_back(function(x.back()));
    }
    return std::make_unique<CSampleCurve>(x, y);
}

TEST(Spline, CoefficientsAreThoseOfThePlainStepsToTheLastBit) {
    std::mt19937 random(1);
    for (int nRound = 0; nRound < 5000; ++nRound) {
        const std::size_t n = 2 + random() % (nRound % 100 ? 12 : 900);
        CSampleCurve sample(plain::Abscissae(random, n), plain::Ordinates(random, n));
        const bool bInverse = random() % 4 == 0;
        const CSpline spline(&sample.curve, bInverse);
        const plain::CCoefficients expected =
            bInverse ? plain::Spline(sample.y, sample.x) : plain::Spline(sample.x, sample.y);
        ASSERT_TRUE(bits::Same(spline.m_pB, expected.b.data(), spline.m_nPoints)) << "b of round " << nRound;
        ASSERT_TRUE(bits::Same(spline.m_pC, expected.c.data(), spline.m_nPoints)) << "c of round " << nRound;
        ASSERT_TRUE(bits::Same(spline.m_pD, expected.d.data(), spline.m_nPoints)) << "d of round " << nRound;
    }
}

TEST(Spline, TwoKnotsAreALineThreeAParabolaFourACubic) {
    const auto polynomial = [](int nDegree) {
        return [=](double x) {
            return 1 - 2 * x + (nDegree > 1 ? 3 * x * x : 0) - (nDegree > 2 ? x * x * x : 0);
        };
    };
    for (const auto& [nKnots, nDegree] : {std::pair(2, 1), {3, 2}, {4, 3}, {5, 3}, {40, 3}}) {
        const auto pSample = Sample(nKnots, 3, polynomial(nDegree));
        const CSpline spline(&pSample->curve, FALSE);
        for (double x = 0; x <= 3; x += 0.01) {
            EXPECT_NEAR(spline.Value(x), polynomial(nDegree)(x), 1e-13) << nKnots << " knots at " << x;
            EXPECT_NEAR(spline.Value(x + 2, nKnots - 2, nKnots - 1), polynomial(nDegree)(x + 2), 1e-9);
        }
    }
}

TEST(Spline, ConvergesWithTheFourthOrderUpToTheEnds) {
    const auto error = [](int nKnots) {
        const auto pSample = Sample(nKnots, 3, [](double x) { return std::exp(std::sin(x)); });
        const CSpline spline(&pSample->curve, FALSE);
        double dError = 0;
        for (double x = 0; x < 3; x += 0.001) {
            dError = std::max(dError, std::fabs(spline.Value(x) - std::exp(std::sin(x))));
        }
        return dError;
    };
    for (int nKnots = 40; nKnots < 400; nKnots *= 2) {
        EXPECT_NEAR(std::log2(error(nKnots) / error(2 * nKnots)), 4, 0.5) << nKnots;
    }
}

TEST(Spline, IntegralAndDerivativeAreThoseOfTheFunction) {
    const auto pSample = Sample(200, 3, [](double x) { return std::sin(x); });
    const CSpline spline(&pSample->curve, FALSE);
    const std::unique_ptr<CCurve> pIntegral(spline.Integral());
    const std::unique_ptr<CCurve> pDerivative(spline.Derivative());
    EXPECT_EQ(pIntegral->m_pY[0], 0);
    for (int i = 0; i < 200; ++i) {
        const double x = pSample->x[static_cast<std::size_t>(i)];
        EXPECT_EQ(pIntegral->m_pX[i], x);
        EXPECT_NEAR(pIntegral->m_pY[i], 1 - std::cos(x), 1e-9);
        EXPECT_NEAR(pDerivative->m_pY[i], std::cos(x), 3e-6);
    }
    EXPECT_TRUE(pIntegral->m_bOwner && pDerivative->m_bOwner);
}

TEST(Spline, IntegralAndDerivativeAreSumsAndDifferencesOfItsValues) {
    std::mt19937 random(2);
    for (int nRound = 0; nRound < 300; ++nRound) {
        const std::size_t n = 2 + random() % 30;
        CSampleCurve sample(plain::Abscissae(random, n), plain::Ordinates(random, n));
        const COpenSpline spline(&sample.curve, FALSE);
        const std::unique_ptr<CCurve> pIntegral(spline.Integral());
        const std::unique_ptr<CCurve> pDerivative(spline.Derivative());
        const int nLast = spline.m_nPoints - 1;
        double dSum = 0;
        for (int i = 0; i < nLast; ++i) {
            dSum += spline.IValue(i, sample.curve.m_pX[i + 1]) - spline.IValue(i, sample.curve.m_pX[i]);
            EXPECT_TRUE(bits::Same(pIntegral->m_pY[i + 1], dSum));
            if (std::is_sorted(sample.x.begin(), sample.x.end())) {
                const double dAhead = spline.Value(sample.curve.m_pX[i] + 1e-6);
                EXPECT_TRUE(bits::Same(pDerivative->m_pY[i], (dAhead - sample.curve.m_pY[i]) / 1e-6));
            }
        }
        const double dBehind = spline.Value(sample.curve.m_pX[nLast] - 1e-6);
        if (std::is_sorted(sample.x.begin(), sample.x.end())) {
            EXPECT_TRUE(bits::Same(pDerivative->m_pY[nLast], (sample.curve.m_pY[nLast] - dBehind) / 1e-6));
        }
    }
}

TEST(Spline, IsConstantOutsideItsKnotsAndTheRestrictedValueIsExtended) {
    CSampleCurve sample({0, 1, 2, 4}, {0, 1, 8, 64});
    const CSpline spline(&sample.curve, FALSE);
    const struct {
        double x, dAll, dRestricted;
    } cases[] = {{-1, 0, -1}, {0, 0, 0}, {1, 1, 1}, {1.5, 3.375, 3.375}, {4, 64, 64}, {5, 64, 125}};
    for (const auto& item : cases) {
        EXPECT_NEAR(spline.Value(item.x), item.dAll, 1e-12) << item.x;
        EXPECT_NEAR(spline.Value(item.x, 0, 3), item.dRestricted, 1e-12) << item.x;
    }
    EXPECT_EQ(spline.Value(0.5, 2, 2), 8);
    EXPECT_EQ(spline.Value(0.5, 3, 1), 64);
    EXPECT_TRUE(std::isnan(spline.Value(std::nan(""))) && std::isnan(spline.Value(std::nan(""), 1, 3)));
}

TEST(Spline, AnInverseSplineFindsTheAbscissaOfEveryOrdinate) {
    const auto pSample = Sample(30, 2, [](double x) { return std::exp(x); });
    const CSpline spline(30, pSample->x.data(), pSample->y.data(), TRUE);
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(spline.Value(pSample->curve.m_pY[i]), pSample->curve.m_pX[i]);
    }
    EXPECT_NEAR(spline.Value(std::exp(1.0)), 1, 1e-5);
}

TEST(Spline, WidthsBelowTheGuardTurnTheirSignAndCoincidentKnotsDivideByIt) {
    CSampleCurve sample({2, 2}, {1, 3});
    const COpenSpline spline(&sample.curve, FALSE);
    EXPECT_EQ(spline.m_pB[0], 2 / -1e-16);
    const double cases[][2] = {{-1e-17, 1e-16}, {1e-17, -1e-16},  {0.0, -1e-16}, {-0.0, -1e-16},
                               {1e-16, 1e-16},  {-1e-16, -1e-16}, {-3, -3}};
    for (const auto& [dWidth, dGuarded] : cases) {
        double v = dWidth;
        spline.CheckForUnderflow(v);
        EXPECT_EQ(v, dGuarded) << dWidth;
    }
}

TEST(Spline, CopiesShareTheKnotsAndKeepTheirOwnCoefficients) {
    CSampleCurve first({0, 1, 2, 3}, {0, 1, 4, 9});
    CSampleCurve second({0, 2}, {5, 7});
    auto pOriginal = std::make_unique<CSpline>(&first.curve, FALSE);
    const CSpline copy(*pOriginal);
    CSpline assigned(&second.curve, FALSE);
    assigned = *pOriginal;
    const CSpline& same = assigned;
    assigned = same;
    pOriginal.reset();
    for (const CSpline* pSpline : {&copy, static_cast<const CSpline*>(&assigned)}) {
        EXPECT_EQ(pSpline->m_pX, first.x.data());
        EXPECT_NEAR(pSpline->Value(1.5), 2.25, 1e-14);
    }
    EXPECT_STREQ(copy.GetRuntimeClass()->m_lpszClassName, "CSpline");
}

TEST(Spline, RejectsFewerThanTwoKnots) {
    CSampleCurve single({1}, {2});
    EXPECT_THROW(CSpline(&single.curve, FALSE), CInvalidArgException);
    EXPECT_THROW(CSpline(0, nullptr, nullptr, FALSE), CInvalidArgException);
    EXPECT_THROW(CSpline(-3, nullptr, nullptr, TRUE), CInvalidArgException);
}

} // namespace
