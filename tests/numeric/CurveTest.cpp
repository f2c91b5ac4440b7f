#include "tessara/numeric/Curve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/numeric/Bits.h"
#include "tests/numeric/Samples.h"

namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/// The curve's definition, written out: one interval after the other.
double PlainValue(const CCurve& curve, double x, int nFirst, int nLast) {
    const double* pX = curve.m_pX;
    const double* pY = curve.m_pY;
    if (x <= pX[nFirst]) {
        return pY[nFirst];
    }
    if (x >= pX[nLast]) {
        return pY[nLast];
    }
    int i = nFirst;
    while (x > pX[nFirst + 1] && x >= pX[i + 1]) {
        ++i;
    }
    if (pX[i + 1] == pX[i]) {
        return pY[i];
    }
    return ((x - pX[i]) * (pY[i + 1] - pY[i])) / (pX[i + 1] - pX[i]) + pY[i];
}

TEST(Curve, TenThousandRandomOnesEqualPlainSearchToTheLastBit) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> ordinate(-1, 1);
    for (int nRound = 0; nRound < 10000; ++nRound) {
        const int nPoints = 2 + static_cast<int>(random() % 12);
        std::vector<double> x; // ascending, with many equal neighbours and some infinite
        double dNext = random() % 8 ? -0.7 : -INFINITE;
        for (int i = 0; i < nPoints; ++i) {
            x.push_back(i + 1 == nPoints && random() % 8 == 0 ? INFINITE : dNext);
            dNext = std::isinf(dNext) ? -3 : dNext + static_cast<int>(random() % 3) / 3.0;
        }
        std::vector<double> y(x.size());
        std::generate(y.begin(), y.end(), [&] { return ordinate(random); });
        const CCurve curve(nPoints, x.data(), y.data());
        const int nFirst = static_cast<int>(random() % static_cast<unsigned>(nPoints));
        const int nLast = nFirst + static_cast<int>(random() % static_cast<unsigned>(nPoints - nFirst));
        std::vector<double> queries = {-INFINITE, INFINITE, -1e300, 1e300, -0.0};
        for (const double dX : x) { // every point's, its neighbours in the number line, between and beyond
            queries.insert(queries.end(),
                           {dX, std::nextafter(dX, -INFINITE), std::nextafter(dX, INFINITE), dX + 0.1});
        }
        for (const double dX : queries) {
            ASSERT_TRUE(bits::Same(curve.Value(dX), PlainValue(curve, dX, 0, nPoints - 1))) << dX;
            ASSERT_TRUE(bits::Same(curve.Value(dX, nFirst, nLast), PlainValue(curve, dX, nFirst, nLast)))
                << dX << " in " << nFirst << " to " << nLast;
        }
    }
}

TEST(Curve, NaNAndDisorderNeverLeaveTheRange) {
    std::mt19937 random(3);
    const auto next = [&] { return random() % 4 ? double(random() % 9) : NOT_A_NUMBER; };
    for (int nRound = 0; nRound < 2000; ++nRound) {
        std::vector<double> x(1 + random() % 20);
        std::generate(x.begin(), x.end(), next);
        std::vector<double> y(x.size(), 5.0);
        const CCurve curve(static_cast<int>(x.size()), x.data(), y.data());
        const double dValue = curve.Value(next());
        EXPECT_TRUE(dValue == 5.0 || std::isnan(dValue)) << dValue;
    }
}

TEST(Curve, OfOnePointOrAPieceOfOneIsConstantAndOfNoneOrFromNaNOnNaN) {
    const samples::CSampleCurve one({7}, {3});
    const samples::CSampleCurve many({0, 1, 2, 3, 4}, {0, 10, 20, 30, 40});
    for (const double dX : {-1.0, 2.5, 7.0, 8.0, NOT_A_NUMBER}) {
        EXPECT_EQ(one.curve.Value(dX), 3);
        EXPECT_EQ(many.curve.Value(dX, 2, 2), 20);
    }
    const CCurve none(0);
    const samples::CSampleCurve nanFirst({0, 1}, {NOT_A_NUMBER, 1});
    for (const double dValue : {none.Value(0), none.Value(0, 0, 0), none.Max(), nanFirst.curve.Min()}) {
        EXPECT_TRUE(std::isnan(dValue));
    }
}

TEST(Curve, ResizingKeepsTheLeadingPointsOfAnOwningCurve) {
    samples::CSampleCurve borrowed({1, 2}, {1, 2});
    borrowed.curve.ReAllocate(100);
    EXPECT_EQ(borrowed.curve.m_nPoints, 2) << "a borrowed array is not resized";
    CCurve curve(2);
    curve.m_pX[0] = curve.m_pY[0] = 2;
    curve.ReAllocate(1000);
    EXPECT_EQ(curve.m_pX[0] + curve.m_pY[0], 4);
}

TEST(LinearInterpolation, HasTheOrderOfTheFormula) {
    EXPECT_EQ(LinearInterpolation(99, 10, 20, 1, 1), 10);
    // An order that looks the same differs here in the last bit.
    EXPECT_EQ(LinearInterpolation(0.1, 0.1, 0.7, 0, 0.3), 0.7 - ((0.3 - 0.1) / 0.3) * (0.7 - 0.1));
}

} // namespace
