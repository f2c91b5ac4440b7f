// Curves are what their definition says, and many values at once are the values one by one, whatever the
// order of the abscissae and their number.

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
/// all but ascending, in sawteeth or in any order.
CVector Places(std::mt19937& random, const CVector& x, std::size_t nCount) {
    CVector places;
    const unsigned nOrder = random() % 4;
    while (places.size() < nCount) {
        const double dX = x[random() % x.size()];
        const double dMiddle = (dX + x[random() % x.size()]) / 2;
        const double dFar = random() % 2 ? INFINITE : -1e300;
        const double dNone = nOrder ? std::nan("") : dX;
        const double dAfter = std::nextafter(dX, INFINITE), dBefore = std::nextafter(dX, -INFINITE);
        const double choices[] = {dX, dAfter, dBefore, dX + 1e-3, dMiddle, dFar, dNone};
        places.push_back(choices[random() % 50 ? random() % 5 : 5 + random() % 2]);
    }
    const auto before = [](double a, double b) { return a < b || (b != b && a == a); };
    const auto middle = places.begin() + static_cast<std::ptrdiff_t>(nOrder == 2 ? nCount / 2 : nCount);
    if (nOrder < 3) {
        std::sort(places.begin(), middle, before);
        std::sort(middle, places.end(), before);
    }
    if (nOrder == 1) {
        std::swap(places.front(), places.back());
    }
    return places;
}

/// The curve's definition, written out: one interval after the other.
double PlainValue(const CCurve& curve, double x, int nFirst, int nLast) {
    const double* pX = curve.m_pX;
    const double* pY = curve.m_pY;
    if (nFirst == nLast || x <= pX[nFirst]) {
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

TEST(Curve, EqualsPlainSearchToTheLastBitWholeAndInPieces) {
    std::mt19937 random(11);
    for (int nRound = 0; nRound < 10000; ++nRound) {
        CVector x = Ascending(random, 1 + random() % 14);
        CVector y = plain::Ordinates(random, x.size());
        const CCurve curve(static_cast<int>(x.size()), x.data(), y.data());
        const int nLast = static_cast<int>(random() % x.size());
        const int nFirst = static_cast<int>(random() % static_cast<unsigned>(nLast + 1));
        for (const double dX : Places(random, x, 60)) {
            ASSERT_TRUE(bits::Same(curve.Value(dX), PlainValue(curve, dX, 0, curve.m_nPoints - 1))) << dX;
            ASSERT_TRUE(bits::Same(curve.Value(dX, nFirst, nLast), PlainValue(curve, dX, nFirst, nLast)))
                << dX << " in " << nFirst << " to " << nLast;
        }
    }
}

TEST(Batch, GivesTheBitsOfSingleValues) {
    std::mt19937 random(5);
    for (int nRound = 0; nRound < 3000; ++nRound) {
        const std::size_t n = 1 + random() % (nRound % 10 ? 20 : nRound % 500 ? 3000 : 50000);
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
            check("column's spline", [&](double dX) { return multiSpline.Value(1, dX); });
            multiSpline.Values(1, at.data(), values.data(), nCount);
            check("column's spline at once", [&](double dX) { return spline.Value(dX); });
            EXPECT_EQ(multiSpline.Value(-1, at[0]), -1.0) << "no such column";
            multiSpline.Values(2, at.data(), values.data(), nCount);
            EXPECT_EQ(values.back(), -1.0) << "no such column";
        }
    }
}

TEST(Batch, DisorderAndNaNAmongTheKnotsEndQuicklyWithinThem) {
    std::mt19937 random(7);
    for (int nRound = 0; nRound < 2000; ++nRound) {
        const std::size_t n = 1 + random() % (nRound % 10 ? 20 : 3000);
        CVector x = plain::Abscissae(random, n);
        std::shuffle(x.begin(), x.end(), random);
        for (std::size_t i = random() % n; i < n; i += 1 + random() % n) {
            x[i] = std::nan("");
        }
        CVector y(n, 5.0);
        const CCurve curve(static_cast<int>(n), x.data(), y.data());
        CVector values = Places(random, x, 300);
        values.push_back(curve.Value(values[0]));
        curve.Values(values.data(), values.data(), 300);
        ASSERT_TRUE(std::all_of(values.begin(), values.end(), [](double v) { return v == 5 || v != v; }));
    }
}

TEST(Curve, OfNoPointsOrFromNaNOnIsNaNAndNoPlacesAreHarmless) {
    const CCurve none(0);
    double values[] = {1, 2};
    CCurve(2, values, values).Values(values, values, -1);
    none.Values(values, values, 0);
    EXPECT_EQ(values[0], 1);
    none.Values(values, values, 2);
    const CCurve nanFirst(2, values, values);
    for (const double dValue : {none.Value(0), none.Value(0, 0, 0), none.Max(), nanFirst.Min(), values[1]}) {
        EXPECT_TRUE(std::isnan(dValue));
    }
}

TEST(Curve, ResizingKeepsTheLeadingPointsOfAnOwningCurve) {
    double values[] = {1, 2};
    CCurve borrowed(2, values, values);
    borrowed.ReAllocate(100);
    EXPECT_EQ(borrowed.m_nPoints, 2) << "a borrowed array is not resized";
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
