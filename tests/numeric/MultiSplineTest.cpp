#include "tessara/numeric/MultiSpline.h"

#include <algorithm>
#include <memory>

#include <gtest/gtest.h>

#include "tessara/numeric/MultiCurve.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Bits.h"
#include "tests/numeric/PlainSpline.h"

namespace {

TEST(MultiSpline, EveryColumnIsThatOfASplineOfItsOwnToTheLastBit) {
    std::mt19937 random(4);
    for (int nRound = 0; nRound < 600; ++nRound) {
        const std::size_t n = 2 + random() % (nRound % 20 ? 12 : 1200);
        CMultiCurve curve(static_cast<int>(random() % 10));
        curve.Allocate(static_cast<int>(n));
        const std::vector<double> x = plain::Abscissae(random, n);
        std::copy(x.begin(), x.end(), curve.m_pX);
        std::vector<plain::CCoefficients> expected;
        for (int j = 0; j < curve.m_nDimensions; ++j) {
            const std::vector<double> y = plain::Ordinates(random, n);
            std::copy(y.begin(), y.end(), curve.m_ppY[j]);
            expected.push_back(plain::Spline(x, y));
        }
        const CMultiSpline spline(&curve);
        for (int j = 0; j < curve.m_nDimensions; ++j) {
            const plain::CCoefficients& column = expected[static_cast<std::size_t>(j)];
            ASSERT_TRUE(bits::Same(spline.m_ppB[j], column.b.data(), spline.m_nPoints))
                << nRound << ", " << j;
            ASSERT_TRUE(bits::Same(spline.m_ppC[j], column.c.data(), spline.m_nPoints))
                << nRound << ", " << j;
            ASSERT_TRUE(bits::Same(spline.m_ppD[j], column.d.data(), spline.m_nPoints))
                << nRound << ", " << j;
        }
    }
}

/// The columns x and x^2 over 0, 1, 2, 3.
void Fill(CMultiCurve& curve) {
    curve.SetDimensions(2);
    curve.Allocate(4);
    for (int i = 0; i < 4; ++i) {
        curve.m_pX[i] = curve.m_ppY[0][i] = i;
        curve.m_ppY[1][i] = i * i;
    }
}

TEST(MultiSpline, EvaluatesItsColumnsAndNoOthers) {
    CMultiCurve curve;
    Fill(curve);
    const CMultiSpline spline(&curve);
    const double cases[][3] = {{-1, 0, 0}, {0, 0, 0},        {0.5, 0.5, 0.25},
                               {1, 1, 1},  {2.5, 2.5, 6.25}, {3.5, 3, 9}};
    for (const auto& [x, dFirst, dSecond] : cases) {
        EXPECT_NEAR(spline.Value(0, x), dFirst, 1e-15);
        EXPECT_NEAR(spline.Value(1, x), dSecond, 1e-15);
        EXPECT_EQ(spline.Value(-1, x), -1.0);
        EXPECT_EQ(spline.Value(2, x), -1.0);
    }
    double values[2] = {};
    spline.Values(2, values, values, 2);
    EXPECT_EQ(values[1], -1.0);
}

TEST(MultiSpline, CopiesOutliveTheirSource) {
    CMultiCurve curve;
    Fill(curve);
    CMultiCurve other(3);
    other.Allocate(2);
    for (double* pColumn : {other.m_pX, other.m_ppY[0], other.m_ppY[1], other.m_ppY[2]}) {
        pColumn[0] = 0;
        pColumn[1] = 1;
    }
    auto pSource = std::make_unique<CMultiSpline>(&curve);
    const CMultiSpline copy(*pSource);
    CMultiSpline assigned(&other);
    EXPECT_EQ(assigned.Value(2, 0.5), 0.5);
    assigned = *pSource;
    const CMultiSpline& same = assigned;
    assigned = same;
    pSource.reset();
    EXPECT_NEAR(copy.Value(1, 1.5), 2.25, 1e-15);
    EXPECT_NEAR(assigned.Value(1, 1.5), 2.25, 1e-15);
    curve.m_ppY[1][3] = 27;
    assigned.ComputeMultiSplineArrays();
    EXPECT_EQ(assigned.Value(1, 3), 27);
    EXPECT_NE(assigned.Value(1, 1.5), copy.Value(1, 1.5));
    double v = 0;
    assigned.CheckForUnderflow(v);
    EXPECT_EQ(v, -1e-16);
}

TEST(MultiSpline, RejectsFewerThanTwoPoints) {
    CMultiCurve curve(2);
    EXPECT_THROW(CMultiSpline{&curve}, CInvalidArgException);
    curve.Allocate(1);
    EXPECT_THROW(CMultiSpline{&curve}, CInvalidArgException);
}

} // namespace
