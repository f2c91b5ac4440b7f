#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "tests/phasediagram/Diagrams.h"

// Where things land on the page: the expected places are reckoned here by the formulas alone.

namespace tessara {

namespace {

constexpr RECT PLOT{384, 368, 384 + 3072, 368 + 2944};

/// The points of each logged polyline of that pen.
std::vector<std::vector<POINT>> PolylinesOf(const std::vector<std::string>& lines,
                                            const std::string& strPen) {
    std::vector<std::vector<POINT>> polylines;
    for (const std::string& strLine : lines) {
        if (!strLine.starts_with("Polyline") || strLine.find(strPen) == std::string::npos) {
            continue;
        }
        polylines.emplace_back();
        int nX = 0;
        int nY = 0;
        int nUsed = 0;
        for (const char* psz = strLine.c_str() + 8; std::sscanf(psz, " %d,%d%n", &nX, &nY, &nUsed) == 2;) {
            polylines.back().push_back({nX, nY});
            psz += nUsed;
        }
    }
    return polylines;
}

bool IsInside(POINT point) {
    return point.x > PLOT.left && point.x < PLOT.right && point.y > PLOT.top && point.y < PLOT.bottom;
}

/// A table of one part with these points.
std::unique_ptr<CMultipartTable> MakeSection(const std::vector<std::array<double, 2>>& points) {
    CTable part(2);
    part.Allocate(static_cast<int>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) {
        part.m_ppData[0][i] = points[i][0];
        part.m_ppData[1][i] = points[i][1];
    }
    auto pSection = std::make_unique<CMultipartTable>(2);
    pSection->AddTable(&part, 0, -1);
    return pSection;
}

/// What is drawn of a cloud-point curve in the window from 0 to 1 in both directions.
std::vector<std::vector<POINT>> DrawnOf(const std::vector<std::array<double, 2>>& points,
                                        const CZoomWindow& window = {1, 0, 1, 0}) {
    const auto pSection = MakeSection(points);
    CTestDiagram diagram;
    diagram.SetBinodalSection(0, -1, 1, pSection.get(), 0);
    diagram.ZoomTo(window);
    return PolylinesOf(diagram.PaintLogged(), "pen 00FF00");
}

TEST(DiagramZoom, WhatPassesByACornerOrOnlyTouchesAnEdgeLeavesNoDot) {
    using CPoints = std::vector<std::array<double, 2>>;
    const CPoints corners[] = {
        {{-1, 0.5}, {0.5, -1}}, {{2, 0.5}, {0.5, -1}}, {{-1, 0.5}, {0.5, 2}}, {{2, 0.5}, {0.5, 2}}};
    for (const CPoints& corner : corners) {
        EXPECT_TRUE(DrawnOf(corner).empty()) << corner[0][0] << "," << corner[1][1];
    }
    EXPECT_TRUE(DrawnOf({{-1, 0.25}, {0, 0.5}, {-1, 0.75}}).empty()); // touches the left edge
    EXPECT_EQ(DrawnOf({{0.5, 0.5}, {0.5, 0.5}}).size(), 1U);          // a dot within
    EXPECT_EQ(DrawnOf({{-1, 0.5}, {2, 0.5}}).size(), 1U);
    EXPECT_EQ(DrawnOf({{0, 0}, {0, 1}, {1, 1}}).size(), 1U); // along the edges
}

TEST(DiagramZoom, OfASmoothCurveNoDotIsDrawnOutsideAnyWindow) {
    std::vector<std::array<double, 2>> curve;
    for (int i = 0; i <= 100; ++i) {
        curve.push_back({std::cos(0.05 * i) + 0.01 * i, std::sin(0.08 * i)});
    }
    std::mt19937 random(11);
    std::uniform_real_distribution<double> any(-1.2, 1.8);
    int nDrawn = 0;
    for (int nRound = 0; nRound < 2000; ++nRound) {
        const auto [dXMin, dXMax] = std::minmax({any(random), any(random)});
        const auto [dYMin, dYMax] = std::minmax({any(random), any(random)});
        const CZoomWindow window{dXMax, dXMin, dYMax, dYMin};
        const auto drawn = DrawnOf(curve, window);
        for (const auto& polyline : drawn) {
            EXPECT_TRUE(polyline.size() > 1 || IsInside(polyline[0]))
                << "a dot at " << polyline[0].x << "," << polyline[0].y << " in window " << nRound;
        }
        nDrawn += !drawn.empty();
        const bool bInside = std::any_of(curve.begin(), curve.end(), [&](const auto& point) {
            return window.Contains(point[0], point[1]);
        });
        EXPECT_TRUE(!bInside || !drawn.empty()) << nRound;
    }
    EXPECT_GT(nDrawn, 500);
}

/// The places that the abscissa's grid must have, truncated where its formulas are.
struct CExpectedGrid {
    std::vector<int> lines;
    std::vector<int> halves;

    explicit CExpectedGrid(const CHOOSESCALE& scale) {
        const int nLeft = PLOT.left;
        const int nWidth = PLOT.right - PLOT.left;
        const double dHalf = scale.dStep * 0.5 / (scale.dUpper - scale.dLower);
        const int nLast = static_cast<int>(
            std::floor((scale.dLastTick - scale.dFirstTick + scale.dStep * 0.01) / scale.dStep));
        for (int i = 0; i <= nLast; ++i) {
            double dTick = i * scale.dStep + scale.dFirstTick;
            if (0.25 * scale.dStep > std::fabs(dTick)) {
                dTick = 0;
            }
            const double f = (dTick - scale.dLower) / (scale.dUpper - scale.dLower);
            if (f >= 0 && f <= 1) {
                lines.push_back((i == 0 ? nLeft - 24 : nLeft) + static_cast<int>(nWidth * f));
            }
            if (f + dHalf >= 0 && f + dHalf <= 1) {
                halves.push_back(static_cast<int>(nLeft + nWidth * (f + dHalf)));
            }
        }
    }
};

TEST(DiagramPlaces, GridLinesAndPointsStandWhereTheirFormulasSay) {
    std::mt19937 random(3);
    int nGrain = 1; // round values land on whole units, where rounding decides
    const auto thousandths = [&](int nFrom, int nTo) {
        const int nSteps = (nTo - nFrom) / nGrain;
        return (nFrom + nGrain * static_cast<int>(random() % static_cast<unsigned>(nSteps))) / 1000.;
    };
    for (int nRound = 0; nRound < 4000; ++nRound) {
        nGrain = nRound % 2 == 0 ? 1 : 25;
        const double dXMin = thousandths(-500, 500);
        const double dXMax = dXMin + thousandths(100, 1500);
        const double dYMin = thousandths(-500, 500);
        const double dYMax = dYMin + thousandths(100, 1500);
        double x = thousandths(-500, 2000);
        double y = thousandths(-500, 2000);
        CTestDiagram diagram;
        diagram.SetCriticalPoints(1, &x, &y);
        diagram.ZoomTo({dXMax, dXMin, dYMax, dYMin});
        const std::vector<std::string> lines = diagram.PaintLogged();

        const CExpectedGrid expected(diagram.m_AbscissaScale);
        CExpectedGrid drawn(CHOOSESCALE{});
        drawn.lines.clear();
        drawn.halves.clear();
        for (const auto& line : PolylinesOf(lines, "width 8")) {
            if (line[0].y == PLOT.top - 24) {
                drawn.lines.push_back(line[0].x);
            } else if (line[0].y == PLOT.bottom + 24) {
                drawn.halves.push_back(line[0].x);
            }
        }
        EXPECT_EQ(drawn.lines, expected.lines) << "from " << dXMin << " to " << dXMax;
        EXPECT_EQ(drawn.halves, expected.halves) << "from " << dXMin << " to " << dXMax;

        const int nWidth = PLOT.right - PLOT.left;
        const int nHeight = PLOT.bottom - PLOT.top;
        const int nX = static_cast<int>(PLOT.left + nWidth * (x - dXMin) / (dXMax - dXMin));
        const int nY = static_cast<int>(PLOT.top + nHeight * (1 - (y - dYMin) / (dYMax - dYMin)));
        std::string strBox = "Ellipse " + std::to_string(nX - 32) + "," + std::to_string(nY - 32) + " ";
        if (x >= dXMin && x <= dXMax && y >= dYMin && y <= dYMax) {
            EXPECT_THAT(lines, testing::Contains(testing::StartsWith(strBox)))
                << x << " of " << dXMin << " to " << dXMax;
        }
    }
}

} // namespace

} // namespace tessara
