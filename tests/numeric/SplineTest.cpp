#include "tessara/numeric/Spline.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultiSpline.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Bits.h"
#include "tests/numeric/PlainSpline.h"

namespace {

/// Opens what a derived class sees.
class COpenSpline : public CSpline {
public:
    using CSpline::CheckForUnderflow;
    using CSpline::CSpline;
    using CSpline::IValue;
};

TEST(Spline, CoefficientsAreThoseOfThePlainStepsToTheLastBitAloneAndAsColumns) {
    std::mt19937 random(1);
    for (int nRound = 0; nRound < 2000; ++nRound) {
        SCOPED_TRACE(nRound);
        const std::size_t n = 2 + random() % (nRound % 50 ? 12 : 1200);
        const int nPoints = static_cast<int>(n);
        std::vector<double> x = plain::Abscissae(random, n);
        CMultiCurve curve(static_cast<int>(random() % 10));
        curve.Allocate(nPoints);
        std::copy(x.begin(), x.end(), curve.m_pX);
        std::vector<plain::CCoefficients> expected;
        for (int j = 0; j < curve.m_nDimensions; ++j) {
            std::vector<double> y = plain::Ordinates(random, n);
            std::copy(y.begin(), y.end(), curve.m_ppY[j]);
            expected.push_back(plain::Spline(x, y));
            const CSpline spline(nPoints, x.data(), y.data(), FALSE);
            ASSERT_TRUE(plain::Same(expected.back(), spline.m_pB, spline.m_pC, spline.m_pD)) << j;
            const CSpline inverse(nPoints, x.data(), y.data(), TRUE);
            ASSERT_TRUE(plain::Same(plain::Spline(y, x), inverse.m_pB, inverse.m_pC, inverse.m_pD)) << j;
            ASSERT_TRUE(inverse.m_pX == y.data() && inverse.m_pY == x.data());
        }
        const CMultiSpline all(&curve);
        for (int j = 0; j < curve.m_nDimensions; ++j) {
            ASSERT_TRUE(
                plain::Same(expected[static_cast<std::size_t>(j)], all.m_ppB[j], all.m_ppC[j], all.m_ppD[j]))
                << j;
        }
    }
}

TEST(Spline, TwoKnotsAreALineThreeAParabolaFourACubicWithItsIntegralAndDerivative) {
    for (const auto& [nKnots, nDegree] : {std::pair(2, 1), {3, 2}, {4, 3}, {5, 3}, {40, 3}}) {
        const double a = nDegree > 1 ? 3 : 0;
        const double b = nDegree > 2 ? -1 : 0;
        const auto value = [&](double x) { return 1 - 2 * x + a * x * x + b * x * x * x; };
        std::vector<double> x, y; // uneven
        for (int i = 0; i < nKnots; ++i) {
            const double dPlace = static_cast<double>(i) / (nKnots - 1);
            x.push_back(3 * dPlace + 0.9 * dPlace * (1 - dPlace));
            y.push_back(value(x.back()));
        }
        const CSpline spline(nKnots, x.data(), y.data(), FALSE);
        for (double t = 0; t <= 3; t += 0.01) {
            EXPECT_NEAR(spline.Value(t), value(t), 1e-13) << nKnots << " knots at " << t;
            EXPECT_NEAR(spline.Value(t + 2, nKnots - 2, nKnots - 1), value(t + 2), 1e-9);
        }
        EXPECT_TRUE(spline.Value(-1) == y[0] && spline.Value(4) == y.back()) << "constant outside";
        EXPECT_TRUE(spline.Value(1, 1, 1) == y[1] && spline.Value(1, 1, 0) == y[1]);
        EXPECT_TRUE(std::isnan(spline.Value(std::nan(""))) && std::isnan(spline.Value(std::nan(""), 0, 1)));
        const std::unique_ptr<CCurve> pIntegral(spline.Integral());
        const std::unique_ptr<CCurve> pDerivative(spline.Derivative());
        for (int i = 0; i < nKnots; ++i) {
            const double t = pIntegral->m_pX[i];
            EXPECT_EQ(t, x[static_cast<std::size_t>(i)]);
            EXPECT_NEAR(pIntegral->m_pY[i], t - t * t + a * t * t * t / 3 + b * t * t * t * t / 4, 1e-12);
            EXPECT_NEAR(pDerivative->m_pY[i], -2 + 2 * a * t + 3 * b * t * t, 2e-5);
        }
    }
}

TEST(Spline, IntegralAndDerivativeAreSumsAndDifferencesOfItsValues) {
    std::mt19937 random(2);
    for (int nRound = 0; nRound < 300; ++nRound) {
        const std::size_t n = 2 + random() % 30;
        std::vector<double> x = plain::Abscissae(random, n), y = plain::Ordinates(random, n);
        std::sort(x.begin(), x.end());
        const double* pX = x.data();
        const COpenSpline spline(static_cast<int>(n), x.data(), y.data(), FALSE);
        const std::unique_ptr<CCurve> pIntegral(spline.Integral());
        const std::unique_ptr<CCurve> pDerivative(spline.Derivative());
        double dSum = 0;
        for (int i = 0; i < spline.m_nPoints; ++i) {
            ASSERT_TRUE(bits::Same(pIntegral->m_pY[i], dSum));
            const bool bLast = i + 1 == spline.m_nPoints;
            const double dBeside = spline.Value(bLast ? pX[i] - 1e-6 : pX[i] + 1e-6);
            const double dRise = bLast ? spline.m_pY[i] - dBeside : dBeside - spline.m_pY[i];
            ASSERT_TRUE(bits::Same(pDerivative->m_pY[i], dRise / 1e-6));
            dSum += bLast ? 0 : spline.IValue(i, pX[i + 1]) - spline.IValue(i, pX[i]);
        }
    }
}

TEST(Spline, WidthsBelowTheGuardTurnTheirSign) {
    CMultiCurve curve(1);
    curve.Allocate(2);
    const double cases[][2] = {{-1e-17, 1e-16}, {1e-17, -1e-16},  {0.0, -1e-16}, {-0.0, -1e-16},
                               {1e-16, 1e-16},  {-1e-16, -1e-16}, {-3, -3}};
    for (const auto& [dWidth, dGuarded] : cases) {
        double v = dWidth, w = dWidth;
        COpenSpline(2, curve.m_pX, curve.m_pX, FALSE).CheckForUnderflow(v);
        CMultiSpline(&curve).CheckForUnderflow(w);
        EXPECT_TRUE(v == dGuarded && w == dGuarded) << dGuarded;
    }
}

TEST(Spline, CopiesOutliveTheirSourceShareItsKnotsAndKeepTheirOwnCoefficients) {
    CMultiCurve squares(2), lines(3); // the columns x and x^2 over 0, 1, 2, 3; and another shape
    squares.Allocate(4);
    lines.Allocate(2);
    for (int i = 0; i < 4; ++i) {
        squares.m_pX[i] = squares.m_ppY[0][i] = lines.m_pX[i / 2] = i;
        squares.m_ppY[1][i] = lines.m_ppY[0][i / 2] = lines.m_ppY[1][i / 2] = lines.m_ppY[2][i / 2] = i * i;
    }
    auto pSource = std::make_unique<CSpline>(4, squares.m_pX, squares.m_ppY[1], FALSE);
    auto pSources = std::make_unique<CMultiSpline>(&squares);
    const CSpline copy(*pSource);
    const CMultiSpline copies(*pSources);
    CSpline assigned(2, lines.m_pX, lines.m_ppY[0], FALSE);
    CMultiSpline allAssigned(&lines);
    assigned = *pSource;
    assigned = *&assigned;
    allAssigned = *pSources;
    allAssigned = *&allAssigned;
    pSource.reset();
    pSources.reset();
    for (const double dValue :
         {copy.Value(1.5), assigned.Value(1.5), copies.Value(1, 1.5), allAssigned.Value(1, 1.5)}) {
        EXPECT_NEAR(dValue, 2.25, 1e-14);
    }
    EXPECT_EQ(copy.m_pY, squares.m_ppY[1]);
    squares.m_ppY[1][3] = 27;
    allAssigned.ComputeMultiSplineArrays();
    EXPECT_EQ(allAssigned.Value(1, 3), 27);
    EXPECT_NE(allAssigned.Value(1, 1.5), copies.Value(1, 1.5));
}

TEST(Spline, RejectsFewerThanTwoKnots) {
    CMultiCurve curve(2);
    for (const int nPoints : {0, 1}) {
        curve.Allocate(nPoints);
        EXPECT_THROW(CSpline(nPoints, curve.m_pX, curve.m_ppY[0], FALSE), CInvalidArgException);
        EXPECT_THROW(CMultiSpline{&curve}, CInvalidArgException);
    }
    EXPECT_THROW(CSpline(-3, nullptr, nullptr, TRUE), CInvalidArgException);
}

} // namespace
