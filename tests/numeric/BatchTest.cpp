// Many values at once are the values one by one, whatever the order of the abscissae and their number.

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultiSpline.h"
#include "tessara/numeric/Spline.h"
#include "tests/numeric/Bits.h"
#include "tests/numeric/PlainSpline.h"

namespace {

using CVector = std::vector<double>;

constexpr double INFINITE = std::numeric_limits<double>::infinity();

/// Ascending abscissae: even, uneven, with steps, crowded into a corner; some begin or end at infinity.
CVector Ascending(std::mt19937& random, std::size_t nCount) {
    CVector x = plain::Abscissae(random, nCount);
    if (random() % 4 == 0) {
        std::transform(x.begin(), x.end(), x.begin(), [](double dX) { return std::ldexp(dX, -900); });
        x.back() = 1;
    }
    std::sort(x.begin(), x.end());
    if (random() % 10 == 0) {
        (random() % 2 ? x.front() = -INFINITE : x.back() = INFINITE);
    }
    return x;
}

/// Places to evaluate at: the abscissae, their neighbours, between, beyond, infinities and NaN; ascending,
/// all but ascending or in any order.
CVector Places(std::mt19937& random, const CVector& x, std::size_t nCount) {
    CVector places;
    const unsigned nOrder = random() % 3;
    while (places.size() < nCount) {
        const double dX = x[random() % x.size()];
        const double dOther = x[random() % x.size()];
        const double choices[] = {dX,
                                  std::nextafter(dX, INFINITE),
                                  std::nextafter(dX, -INFINITE),
                                  dX + 1e-3,
                                  (dX + dOther) / 2,
                                  random() % 2 ? INFINITE : -1e300,
                                  nOrder ? std::nan("") : dX};
        places.push_back(choices[random() % 50 ? random() % 5 : 5 + random() % 2]);
    }
    if (nOrder < 2) {
        std::sort(places.begin(), places.end(),
                  [](double a, double b) { return a < b || (b != b && a == a); });
    }
    if (nOrder == 1) {
        std::swap(places.front(), places.back());
    }
    return places;
}

TEST(Batch, GivesTheBitsOfSingleValues) {
    std::mt19937 random(5);
    for (int nRound = 0; nRound < 3000; ++nRound) {
        const std::size_t n = 1 + random() % (nRound % 10 ? 20 : 3000);
        CVector x = Ascending(random, n);
        CVector y = plain::Ordinates(random, n);
        const CCurve curve(static_cast<int>(n), x.data(), y.data());
        const CVector at = Places(random, x, 1 + random() % (nRound % 10 ? 400 : 4000));
        CVector values(at.size());
        const auto check = [&](const char* pszWhat, const std::function<double(double)>& value) {
            for (std::size_t k = 0; k < at.size(); ++k) {
                ASSERT_TRUE(bits::Same(values[k], value(at[k])))
                    << pszWhat << " of round " << nRound << ", " << n << " knots, at " << at[k];
            }
        };
        const int nCount = static_cast<int>(at.size());
        curve.Values(at.data(), values.data(), nCount);
        check("curve", [&](double dX) { return curve.Value(dX); });
        CMultiCurve multi(2);
        multi.Allocate(static_cast<int>(n));
        std::copy(x.begin(), x.end(), multi.m_pX);
        std::copy(x.begin(), x.end(), multi.m_ppY[0]);
        std::copy(y.begin(), y.end(), multi.m_ppY[1]);
        multi.Values(1, at.data(), values.data(), nCount);
        check("column", [&](double dX) { return curve.Value(dX); });
        if (n > 1) {
            const CSpline spline(static_cast<int>(n), x.data(), y.data(), FALSE);
            values = at;
            spline.Values(values.data(), values.data(), nCount);
            check("spline, in place", [&](double dX) { return spline.Value(dX); });
            const CMultiSpline multiSpline(&multi);
            multiSpline.Values(1, at.data(), values.data(), nCount);
            check("column's spline", [&](double dX) { return spline.Value(dX); });
        }
    }
}

TEST(Batch, SweepsOverSparseAscendingPlacesAndOverSawteeth) {
    std::mt19937 random(6);
    CVector x = Ascending(random, 50000);
    CVector y = plain::Ordinates(random, 50000);
    const CSpline spline(50000, x.data(), y.data(), FALSE);
    CVector at;
    for (std::size_t i = 0; i < 5000; ++i) {
        at.push_back(x[(i % 700) * (i % 700) / 10]);
    }
    CVector values(at.size());
    spline.Values(at.data(), values.data(), 5000);
    for (std::size_t i = 0; i < at.size(); ++i) {
        ASSERT_TRUE(bits::Same(values[i], spline.Value(at[i]))) << i;
    }
}

TEST(Batch, DisorderAndNaNAmongTheKnotsEndQuicklyWithinThem) {
    std::mt19937 random(7);
    for (int nRound = 0; nRound < 300; ++nRound) {
        const std::size_t n = 2 + random() % 3000;
        CVector x = plain::Abscissae(random, n);
        std::shuffle(x.begin(), x.end(), random);
        x[random() % n] = std::nan("");
        CVector y(n, 5.0);
        const CCurve curve(static_cast<int>(n), x.data(), y.data());
        const CVector at = Places(random, x, 3000);
        CVector values(at.size());
        curve.Values(at.data(), values.data(), 3000);
        EXPECT_TRUE(std::all_of(values.begin(), values.end(), [](double v) { return v == 5 || v != v; }));
    }
}

TEST(Batch, NoPlacesAndNoPointsAreHarmless) {
    const CCurve empty(0);
    double values[2] = {1, 2};
    empty.Values(values, values, 0);
    EXPECT_EQ(values[0], 1);
    empty.Values(values, values, 2);
    EXPECT_TRUE(std::isnan(values[0]) && std::isnan(values[1]));
    const CCurve curve(2, values, values);
    curve.Values(values, values, -1);
}

} // namespace
