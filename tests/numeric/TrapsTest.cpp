// A program may have its floating-point traps on. Ordinary data raise nothing that they would catch, nor do
// the gaps in it that are not numbers.

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/Intersections.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultiSpline.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/PlaneGeometry.h"
#include "tessara/numeric/Replot.h"
#include "tessara/numeric/Spline.h"
#include "tessara/numeric/Table.h"
#include "tessara/numeric/Zoom.h"
#include "tests/support/RaisedFlags.h"

namespace {

using tessara::RaisedIn;

enum class Gaps { none, some };

/// Random data as calculations make it: walks, often on a grid, where neighbours share coordinates.
class COrdinary {
public:
    explicit COrdinary(unsigned nSeed) : m_random(nSeed) {}

    int Draw(int nFirst, int nLast) { return std::uniform_int_distribution<int>(nFirst, nLast)(m_random); }
    double Number() { return std::uniform_real_distribution<double>(-4, 4)(m_random); }

    std::vector<double> Walk(int nCount, Gaps eGaps) {
        const bool bOnGrid = Draw(0, 1);
        double dAt = Number();
        std::vector<double> values;
        for (int i = 0; i < nCount; ++i) {
            dAt += Number() / 2;
            values.push_back(bOnGrid ? std::round(dAt) : dAt);
            if (eGaps == Gaps::some && Draw(0, 9) == 0) {
                values.back() = std::numeric_limits<double>::quiet_NaN();
            }
        }
        return values;
    }

    /// Ascending; equal neighbours where these are allowed.
    std::vector<double> Abscissae(int nCount, bool bSteps) {
        std::vector<double> values;
        double dAt = Number();
        for (int i = 0; i < nCount; ++i) {
            // Not twice in a row: a spline through three equal knots has no end conditions.
            dAt += bSteps && i % 3 == 2 && Draw(0, 3) == 0 ? 0 : 0.01 + std::fabs(Number());
            values.push_back(dAt);
        }
        return values;
    }

    std::unique_ptr<CMultipartTable> Table(Gaps eGaps) {
        auto pTable = std::make_unique<CMultipartTable>(3);
        pTable->Allocate(Draw(2, 200));
        for (int j = 0; j < 3; ++j) {
            const std::vector<double> values = Walk(pTable->m_nPoints, eGaps);
            std::copy(values.begin(), values.end(), pTable->m_ppData[j]);
        }
        const int nParts = Draw(1, 4);
        for (int i = 0; i < nParts; ++i) {
            pTable->BeginPart(i * pTable->m_nPoints / nParts, i);
            pTable->EndPart((i + 1) * pTable->m_nPoints / nParts - 1);
        }
        return pTable;
    }

private:
    std::mt19937_64 m_random;
};

constexpr int TRIALS = 300;

class Traps : public testing::TestWithParam<Gaps> {};
INSTANTIATE_TEST_SUITE_P(Data, Traps, testing::Values(Gaps::none, Gaps::some),
                         [](const auto& data) { return data.param == Gaps::none ? "Finite" : "WithGaps"; });

TEST_P(Traps, TablesAreCrossedCutAndMeasuredQuietly) {
    COrdinary draw(1);
    for (int nTrial = 0; nTrial < TRIALS; ++nTrial) {
        const auto pTable = draw.Table(GetParam());
        const auto pOther = draw.Table(GetParam());
        const double dLevel = draw.Number();
        const auto deleted = [](const CObject* pObject) { delete pObject; };
        ASSERT_EQ(RaisedIn([&] { deleted(Find2DSelfIntersections(pTable.get(), 0, 1)); }), "");
        ASSERT_EQ(RaisedIn([&] { deleted(FindIntersections(pTable.get(), pOther.get(), 0, 1, 2, 1)); }), "");
        ASSERT_EQ(RaisedIn([&] { deleted(Zoom2dMultipartTable(pTable.get(), 0, 1, -2, -2, 2, 2)); }), "");
        ASSERT_EQ(RaisedIn([&] { deleted(pTable->Value(1, dLevel)); }), "");
        ASSERT_EQ(RaisedIn([&] { deleted(pTable->Value(1, std::round(dLevel))); }), "");
        ASSERT_EQ(RaisedIn([&] { pTable->Min(0), pTable->Max(2); }), "");
        CMultipartCurve curve(pTable->m_nPoints, pTable->m_ppData[0], pTable->m_ppData[1], pTable->m_nParts,
                              pTable->m_pParts, 1);
        ASSERT_EQ(RaisedIn([&] { deleted(ZoomMultipartCurve(&curve, -2, -2, 2, 2)); }), "");
        ASSERT_EQ(RaisedIn([&] { deleted(curve.Value(draw.Draw(0, 1), dLevel)); }), "");
    }
}

TEST_P(Traps, CurvesAndSplinesAreEvaluatedQuietly) {
    COrdinary draw(2);
    for (int nTrial = 0; nTrial < TRIALS; ++nTrial) {
        const int nPoints = draw.Draw(2, nTrial % 10 ? 40 : 2000);
        std::vector<double> x = draw.Abscissae(nPoints, draw.Draw(0, 1));
        std::vector<double> y = draw.Walk(nPoints, GetParam());
        std::vector<double> at = draw.Walk(nPoints, GetParam()), values = at;
        at[0] = 1e300; // finite, however far
        at[1] = x[nPoints / 2];
        CCurve curve(nPoints, x.data(), y.data());
        CMultiCurve columns(3);
        columns.Allocate(nPoints);
        std::copy(x.begin(), x.end(), columns.m_pX);
        for (double* pColumn : {columns.m_ppY[0], columns.m_ppY[1], columns.m_ppY[2]}) {
            std::copy(y.begin(), y.end(), pColumn);
        }
        std::unique_ptr<CSpline> pSpline;
        std::unique_ptr<CMultiSpline> pSplines;
        ASSERT_EQ(RaisedIn([&] { pSpline = std::make_unique<CSpline>(&curve, FALSE); }), "");
        ASSERT_EQ(RaisedIn([&] { pSplines = std::make_unique<CMultiSpline>(&columns); }), "");
        ASSERT_EQ(RaisedIn([&] { delete pSpline->Integral(); }), "");
        ASSERT_EQ(RaisedIn([&] { delete pSpline->Derivative(); }), "");
        ASSERT_EQ(RaisedIn([&] { curve.Min(), curve.Max(), columns.Min(1), columns.Max(1); }), "");
        ASSERT_EQ(RaisedIn([&] { curve.Values(at.data(), values.data(), nPoints); }), "");
        ASSERT_EQ(RaisedIn([&] { pSpline->Values(at.data(), values.data(), nPoints); }), "");
        ASSERT_EQ(RaisedIn([&] { pSplines->Values(1, at.data(), values.data(), nPoints); }), "");
        ASSERT_EQ(RaisedIn([&] {
                      for (const double dAt : at) {
                          curve.Value(dAt), pSpline->Value(dAt), pSplines->Value(0, dAt);
                          curve.Value(dAt, nPoints / 4, nPoints / 2);
                      }
                  }),
                  "");
    }
}

TEST(Traps, OneAbscissaForAllAndReplottedCurvesAreQuiet) {
    std::vector<double> x(2000, 1.5), y(2000, 2.5), at(2000);
    COrdinary draw(3);
    std::generate(at.begin(), at.end(), [&] { return draw.Number(); });
    const CCurve flat(2000, x.data(), y.data());
    ASSERT_EQ(RaisedIn([&] { flat.Values(at.data(), y.data(), 2000); }), "");
    for (int nTrial = 0; nTrial < TRIALS; ++nTrial) {
        const int nA = draw.Draw(2, 30), nB = draw.Draw(2, 30);
        std::vector<double> xA = draw.Abscissae(nA, false), yA = draw.Abscissae(nA, false);
        std::vector<double> xB = draw.Abscissae(nB, false), yB = draw.Abscissae(nB, false);
        CCurve a(nA, xA.data(), yA.data()), b(nB, xB.data(), yB.data());
        for (const ReplotMode eMode : {ReplotComposition, ReplotEqualOrdinates, ReplotEqualAbscissae}) {
            ASSERT_EQ(RaisedIn([&] { delete RePlotCurve(&a, &b, eMode); }), "") << eMode;
        }
    }
}

TEST(Traps, ThePlaneIsMeasuredQuietly) {
    COrdinary draw(4);
    for (int nTrial = 0; nTrial < 20 * TRIALS; ++nTrial) {
        const auto fnNumber = [&] { return draw.Draw(0, 3) ? std::round(draw.Number()) : draw.Number(); };
        const CDoublePoint a{fnNumber(), fnNumber()}, b{fnNumber(), fnNumber()};
        const CDoublePoint c{fnNumber(), fnNumber()}, d{fnNumber(), fnNumber()};
        const double dRadius = std::fabs(fnNumber());
        double lines[2][3];
        CDoublePoint cross;
        ASSERT_EQ(RaisedIn([&] { LineEquation(a, b, lines[0]), LineEquation(c, d, lines[1]); }), "");
        ASSERT_EQ(RaisedIn([&] { LinesCrossPoint(lines[0], lines[1], cross); }), "");
        ASSERT_EQ(RaisedIn([&] { SegmentsCrossPoint(a, b, c, d, cross); }), "");
        ASSERT_EQ(RaisedIn([&] { IsSegmentIntersectsCircle(a.x, a.y, b.x, b.y, c.x, c.y, dRadius); }), "");
        ASSERT_EQ(RaisedIn([&] { PointToSegmentDistance2D(a.x, a.y, b.x, b.y, c.x, c.y); }), "");
        ASSERT_EQ(RaisedIn([&] { IsSegmentIntersectsSphere(2, &a.x, &b.x, &c.x, dRadius); }), "");
        ASSERT_EQ(RaisedIn([&] { LinearInterpolation(a.x, a.y, b.x, b.y, c.x); }), "");
    }
}

} // namespace
