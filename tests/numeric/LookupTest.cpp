#include "tessara/numeric/Lookup.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/numeric/Samples.h"

namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/// The curve's definition, written out: bisection that branches.
double BisectedValue(const CCurve& curve, double x, int nFirst, int nLast) {
    const double* pX = curve.m_pX;
    const double* pY = curve.m_pY;
    if (x <= pX[nFirst]) {
        return pY[nFirst];
    }
    if (x >= pX[nLast]) {
        return pY[nLast];
    }
    int i = nFirst;
    if (x > pX[nFirst + 1]) {
        int nHigh = nLast;
        do {
            const int nMiddle = (i + nHigh) / 2;
            if (x < pX[nMiddle]) {
                nHigh = nMiddle;
            } else {
                i = nMiddle;
            }
        } while (nHigh > i + 1);
    }
    if (pX[i + 1] == pX[i]) {
        return pY[i];
    }
    return ((x - pX[i]) * (pY[i + 1] - pY[i])) / (pX[i + 1] - pX[i]) + pY[i];
}

/// Ascending abscissae with many equal neighbours, some infinite, and random ordinates.
void MakeSteps(std::mt19937& random, int nPoints, std::vector<double>& x, std::vector<double>& y) {
    std::uniform_int_distribution<int> step(0, 2);
    std::uniform_real_distribution<double> ordinate(-1, 1);
    double dX = random() % 8 ? -0.7 : -INFINITE;
    for (int i = 0; i < nPoints; ++i) {
        x.push_back(dX);
        y.push_back(ordinate(random));
        dX = std::isinf(dX) ? -3 : dX + step(random) / 3.0;
    }
    if (random() % 8 == 0) {
        x.back() = INFINITE;
    }
}

/// Abscissae worth asking for: every point's, its neighbours in the number line, between and beyond.
std::vector<double> Queries(const std::vector<double>& x) {
    std::vector<double> queries = {-INFINITE, INFINITE, -1e300, 1e300, -0.0};
    for (const double dX : x) {
        queries.insert(queries.end(),
                       {dX, std::nextafter(dX, -INFINITE), std::nextafter(dX, INFINITE), dX + 0.1});
    }
    return queries;
}

TEST(Lookup, TenThousandRandomCurvesEqualPlainBisectionToTheLastBit) {
    std::mt19937 random(11);
    for (int nRound = 0; nRound < 10000; ++nRound) {
        const int nPoints = 2 + static_cast<int>(random() % 12);
        std::vector<double> x;
        std::vector<double> y;
        MakeSteps(random, nPoints, x, y);
        const CCurve curve(nPoints, x.data(), y.data());
        const int nFirst = static_cast<int>(random() % static_cast<unsigned>(nPoints));
        const int nLast = nFirst + static_cast<int>(random() % static_cast<unsigned>(nPoints - nFirst));
        for (const double dX : Queries(x)) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(curve.Value(dX)),
                      std::bit_cast<std::uint64_t>(BisectedValue(curve, dX, 0, nPoints - 1)))
                << "curve " << nRound << " at " << dX;
            ASSERT_EQ(std::bit_cast<std::uint64_t>(curve.Value(dX, nFirst, nLast)),
                      std::bit_cast<std::uint64_t>(BisectedValue(curve, dX, nFirst, nLast)))
                << "curve " << nRound << " at " << dX << " in " << nFirst << " to " << nLast;
        }
    }
}

TEST(Lookup, FindsTheLastOfEqualAbscissaeAndTheFirstIndexBelowAll) {
    const double x[] = {9, 0, 1, 1, 1, 2, -9};
    const struct {
        double dX;
        int nFound;
    } cases[] = {{-1, 1}, {0, 1}, {0.5, 1}, {1, 4}, {1.5, 4}, {2, 5}, {99, 5}, {NOT_A_NUMBER, 1}};
    for (const auto& item : cases) {
        EXPECT_EQ(tessara::FindInterval(x, 1, 6, item.dX), item.nFound) << item.dX;
    }
}

TEST(Lookup, NaNAndDisorderNeverLeaveTheRange) {
    std::mt19937 random(3);
    for (int nRound = 0; nRound < 2000; ++nRound) {
        std::vector<double> x(1 + random() % 20);
        std::generate(x.begin(), x.end(), [&] { return random() % 4 ? double(random() % 9) : NOT_A_NUMBER; });
        std::vector<double> y(x.size(), 5.0);
        const int nPoints = static_cast<int>(x.size());
        const CCurve curve(nPoints, x.data(), y.data());
        const double dX = random() % 4 ? double(random() % 9) : NOT_A_NUMBER;
        const double dValue = curve.Value(dX);
        EXPECT_TRUE(dValue == 5.0 || std::isnan(dValue)) << dValue;
    }
}

} // namespace
