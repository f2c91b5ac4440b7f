#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/PolylineCut.h"
#include "tests/numeric/RandomTables.h"

namespace {

using tessara::CDataWindow;
using tessara::CutMultipartCurve;

using CPlace = std::array<long double, 2>;

/// A line of a colour, or a dot of two equal ends.
struct CLine {
    int nColor;
    CPlace from;
    CPlace to;
    bool bJoined = false; ///< to what was before it

    bool IsDot() const { return std::hypot(to[0] - from[0], to[1] - from[1]) < 1e-12L; }
};

/// What a window leaves of a line: one edge after another takes its part.
bool Trim(CLine& line, const CDataWindow& window) {
    const struct {
        std::size_t nAxis;
        int nSign;
        double dEdge;
    } edges[] = {{0, -1, window.dXMin}, {0, 1, window.dXMax}, {1, -1, window.dYMin}, {1, 1, window.dYMax}};
    for (const auto& edge : edges) {
        const long double dFrom =
            edge.nSign * (line.from[edge.nAxis] - edge.dEdge); // beyond it when positive
        const long double dTo = edge.nSign * (line.to[edge.nAxis] - edge.dEdge);
        if (dFrom > 0 && dTo > 0) {
            return false;
        }
        if (dFrom > 0 || dTo > 0) {
            const long double dWay = dFrom / (dFrom - dTo);
            (dFrom > 0 ? line.from : line.to) = {line.from[0] + dWay * (line.to[0] - line.from[0]),
                                                 line.from[1] + dWay * (line.to[1] - line.from[1])};
        }
    }
    return true;
}

/// The lines that a window leaves of a curve, and the dots of points between gaps; each segment by itself.
std::vector<CLine> PlainCut(const CMultipartCurve& curve, const CDataWindow& window) {
    std::vector<CLine> lines;
    const auto isPoint = [&](int i) { return std::isfinite(curve.m_pX[i]) && std::isfinite(curve.m_pY[i]); };
    bool bOpen = false;
    const auto add = [&](int nColor, int nFrom, int nTo) {
        CLine line{nColor, {curve.m_pX[nFrom], curve.m_pY[nFrom]}, {curve.m_pX[nTo], curve.m_pY[nTo]}, bOpen};
        const bool bAny = Trim(line, window);
        if (bAny && (nFrom == nTo || !line.IsDot())) {
            lines.push_back(line);
        }
        bOpen = bAny && window.Contains(curve.m_pX[nTo], curve.m_pY[nTo]);
    };
    for (const CCurvePartInfo& part : std::span(curve.m_pParts, static_cast<std::size_t>(curve.m_nParts))) {
        const int nFirst = std::max(part.nFirst, 0);
        const int nEnd = std::min(part.nFirst + part.nPoints, curve.m_nPoints);
        for (int i = nFirst; i < nEnd; ++i) {
            const bool bAfterGap = i == nFirst || !isPoint(i - 1);
            const bool bBeforeGap = i + 1 == nEnd || !isPoint(i + 1);
            bOpen = bOpen && !bAfterGap;
            if (isPoint(i) && !bAfterGap) {
                add(part.nColor, i - 1, i);
            } else if (isPoint(i) && bBeforeGap) {
                add(part.nColor, i, i);
            }
        }
    }
    return lines;
}

/// The lines of a cut curve; a piece of one place is a dot only when it has one point.
std::vector<CLine> LinesOf(const CMultipartCurve& curve) {
    std::vector<CLine> lines;
    for (const CCurvePartInfo& part : std::span(curve.m_pParts, static_cast<std::size_t>(curve.m_nParts))) {
        const auto at = [&](int i) {
            return CPlace{curve.m_pX[part.nFirst + i], curve.m_pY[part.nFirst + i]};
        };
        for (int i = part.nPoints == 1 ? 0 : 1; i < part.nPoints; ++i) {
            const CLine line{part.nColor, at(std::max(i - 1, 0)), at(i), i > 1};
            if (part.nPoints == 1 || !line.IsDot()) {
                lines.push_back(line);
            }
        }
    }
    return lines;
}

bool AreNear(const CLine& a, const CLine& b) {
    const auto near = [](const CPlace& p, const CPlace& q) {
        return std::hypot(p[0] - q[0], p[1] - q[1]) < 1e-12L;
    };
    return a.nColor == b.nColor && a.bJoined == b.bJoined && near(a.from, b.from) && near(a.to, b.to);
}

TEST(PolylineCut, LeavesOfRandomCurvesWhatLiesInTheWindowSegmentBySegment) {
    const CDataWindow windows[] = {
        {-1, 1, -0.75, 1.5}, {0, 3, -2, 0}, {-9, 9, -9, 9}, {0.25, 0.25, -3, 3}, {}};
    for (unsigned nSeed = 0; nSeed < 4000; ++nSeed) {
        SCOPED_TRACE(nSeed);
        const auto pTable = samples::CTableMaker(nSeed).Make();
        for (int k = 0; k < 2; ++k) { // beside huge values the plain way would be lost in rounding
            std::for_each(pTable->m_ppData[k], pTable->m_ppData[k] + pTable->m_nPoints,
                          [](double& d) { d = std::isfinite(d) ? std::clamp(d, -50.0, 50.0) : d; });
        }
        const CDataWindow& window = windows[nSeed % std::size(windows)];
        CMultipartCurve curve(pTable->m_nPoints, pTable->m_ppData[0], pTable->m_ppData[1], pTable->m_nParts,
                              pTable->m_pParts, 5);
        const std::unique_ptr<CMultipartCurve> pCut(
            CutMultipartCurve(&curve, window.dXMin, window.dYMin, window.dXMax, window.dYMax));
        const std::vector<CLine> expected = PlainCut(curve, window);
        const std::vector<CLine> lines = pCut ? LinesOf(*pCut) : std::vector<CLine>();
        ASSERT_EQ(lines.size(), expected.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            ASSERT_TRUE(AreNear(lines[i], expected[i])) << "line " << i;
        }
        for (int i = 0; pCut && i < pCut->m_nPoints; ++i) {
            ASSERT_TRUE(window.Contains(pCut->m_pX[i], pCut->m_pY[i]) && std::isfinite(pCut->m_pY[i]));
        }
        if (pCut) {
            EXPECT_TRUE(pCut->m_bOwner && pCut->m_nPoints > 0 && pCut->GetNumColors() == 5);
        }
    }
}

TEST(PolylineCut, HoldsNothingInAWindowThatIsNoneAndAllInOneWithoutEdges) {
    constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
    constexpr double LARGEST = std::numeric_limits<double>::max();
    double x[] = {0, 1, LARGEST, -LARGEST};
    double y[] = {0, 1, -LARGEST, LARGEST};
    CCurvePartInfo whole{0, 4, 0};
    CMultipartCurve curve(4, x, y, 1, &whole, 1);
    EXPECT_FALSE(CutMultipartCurve(&curve, 1, 0, 0, 1));
    EXPECT_FALSE(CutMultipartCurve(&curve, NONE, 0, 1, 1));
    EXPECT_FALSE(CutMultipartCurve(&curve, 0, 0, 1, NONE));
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    const std::unique_ptr<CMultipartCurve> pAll(
        CutMultipartCurve(&curve, -INFINITE, -INFINITE, INFINITE, INFINITE));
    ASSERT_TRUE(pAll);
    EXPECT_EQ(pAll->m_nPoints, 4);
    EXPECT_EQ(pAll->m_nParts, 1);
    // Where two numbers of the way are one, the piece between two edges must not get lost.
    double steepX[] = {-0.5, 0.5};
    double steepY[] = {-LARGEST, LARGEST};
    CCurvePartInfo steep{0, 2, 0};
    CMultipartCurve line(2, steepX, steepY, 1, &steep, 1);
    const std::unique_ptr<CMultipartCurve> pSteep(CutMultipartCurve(&line, -1, 2, 1, 3));
    ASSERT_TRUE(pSteep);
    EXPECT_EQ(pSteep->m_pX[0], 0);
    EXPECT_EQ(pSteep->m_pY[0], 2);
    EXPECT_EQ(pSteep->m_pY[1], 3);
}

} // namespace
