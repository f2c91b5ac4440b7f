#include "tessara/platform/gdi/PolylineReduction.h"

#include <algorithm>
#include <array>
#include <random>

#include <QPainter>
#include <gtest/gtest.h>

#include "tessara/plot/Page.h"
#include "tests/gdi/Surfaces.h"

using tessara::MergeColumns;

namespace {

using Points = std::vector<POINT>;

Points Merged(Points points) {
    points.resize(MergeColumns(points));
    return points;
}

std::vector<Points> Clipped(const Points& points, const RECT& box) {
    std::vector<Points> pieces;
    tessara::ClipPolyline(
        points, box, [&](std::span<const POINT> piece) { pieces.emplace_back(piece.begin(), piece.end()); });
    return pieces;
}

/// A line whose next point is up to a step away from the last one on each axis; most points stay in their
/// column where the step along x is small, and huge steps leave every page and window.
Points Walk(std::mt19937& random, std::size_t nPoints, int nColumnStep, int nStep) {
    std::uniform_int_distribution<int> x(-nColumnStep, nColumnStep), y(-nStep, nStep);
    Points points(nPoints, POINT{2500, 1800});
    for (std::size_t i = 1; i < points.size(); ++i) {
        points[i] = {points[i - 1].x + x(random), points[i - 1].y + y(random)};
    }
    return points;
}

/// Column, lowest and highest y of each run of points in one column.
std::vector<std::array<LONG, 3>> Runs(const Points& points) {
    std::vector<std::array<LONG, 3>> runs;
    for (const auto& [x, y] : points) {
        if (runs.empty() || runs.back()[0] != x) {
            runs.push_back({x, y, y});
        }
        runs.back() = {x, std::min(runs.back()[1], y), std::max(runs.back()[2], y)};
    }
    return runs;
}

bool IsSubsequence(const Points& part, const Points& whole) {
    auto next = part.begin();
    for (const POINT& point : whole) {
        next += next != part.end() && *next == point;
    }
    return next == part.end();
}

/// The segments between all points handed to Qt, as one-pixel lines.
QImage DrawUnmerged(const CDC& dc, Points points, QImage image) {
    QPainter painter(&image);
    painter.setPen(QPen(QColor(0, 0, 255), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    dc.LPtoDP(points.data(), static_cast<int>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const POINT from = points[i == 0 ? 0 : i - 1];
        painter.drawLine(from.x, from.y, points[i].x, points[i].y);
    }
    return image;
}

} // namespace

TEST(MergeColumns, KeepsEndsAndExtremesOfEveryRunAndNoMore) {
    for (unsigned nSeed = 0; nSeed < 500; ++nSeed) {
        std::mt19937 random(nSeed);
        const Points whole = Walk(random, 1 + random() % 200, static_cast<int>(nSeed % 4), 3);
        const Points kept = Merged(whole);
        ASSERT_TRUE(IsSubsequence(kept, whole)) << nSeed;
        ASSERT_EQ(kept.front(), whole.front()) << nSeed;
        ASSERT_EQ(kept.back(), whole.back()) << nSeed;
        ASSERT_EQ(Runs(kept), Runs(whole)) << nSeed;
        ASSERT_LE(kept.size(), 4 * Runs(whole).size()) << nSeed;
        ASSERT_EQ(Merged(kept), kept) << nSeed;
        ASSERT_EQ(std::adjacent_find(kept.begin(), kept.end()), kept.end()) << nSeed;
    }
}

TEST(ClipPolyline, KeepsEveryInsidePointAndNothingOutside) {
    constexpr RECT box{2492, 1780, 2512, 1815};
    const auto isInside = [&](POINT point) {
        return point.x >= box.left && point.x <= box.right && point.y >= box.top && point.y <= box.bottom;
    };
    for (unsigned nSeed = 0; nSeed < 500; ++nSeed) {
        std::mt19937 random(nSeed);
        const Points whole = Walk(random, 1 + random() % 200, static_cast<int>(nSeed % 4), 3);
        Points handed, inside;
        for (const Points& piece : Clipped(whole, box)) {
            handed.insert(handed.end(), piece.begin(), piece.end());
        }
        std::copy_if(whole.begin(), whole.end(), std::back_inserter(inside), isInside);
        ASSERT_TRUE(std::all_of(handed.begin(), handed.end(), isInside)) << nSeed;
        ASSERT_TRUE(IsSubsequence(inside, handed)) << nSeed;
    }
}

TEST(ClipPolyline, CutsExactlyAtTheEdges) {
    const std::pair<Points, std::vector<Points>> cases[] = {
        {{{-10, 5}, {30, 5}}, {{{0, 5}, {20, 5}}}},
        {{{-5, -5}, {25, 25}}, {{{0, 0}, {10, 10}}}},
        {{{5, 5}, {5, 30}, {15, 30}, {15, 5}}, {{{5, 5}, {5, 10}}, {{15, 10}, {15, 5}}}},
        {{{-4, 8}, {8, -4}, {8, 5}}, {{{0, 4}, {4, 0}}, {{8, 0}, {8, 5}}}},
        {{{-5, 12}, {12, 30}}, {}}};
    for (const auto& [line, pieces] : cases) {
        EXPECT_EQ(Clipped(line, {0, 0, 20, 10}), pieces);
    }
}

TEST(PixelLine, CoversWhatTheUnmergedLineCovers) {
    std::mt19937 random(7);
    for (const SIZE size : {SIZE{800, 575}, SIZE{1600, 1150}, SIZE{801, 577}, SIZE{333, 97}}) {
        for (int i = 0; i < 160; ++i) {
            CImageDC dc(size.cx, size.cy);
            RECT rc = dc.GetClientRect();
            CenterDC(&dc, rc);
            const QImage blank = ImageOf(dc);
            const Points points = i % 4 == 0   ? Walk(random, 4000, 2, 1000)
                                  : i % 4 == 1 ? Walk(random, 3000, 40, 40)
                                  : i % 4 == 2 ? Walk(random, 2 + random() % 30, 9000, 9000)
                                               : Walk(random, 1 + random() % 6, 2, 20);
            CPen pen(PS_SOLID, 12 * 575 / size.cy / 2, RGB(0, 0, 255));
            dc.SelectObject(&pen);
            dc.Polyline(points.data(), static_cast<int>(points.size()));
            ASSERT_EQ(ImageOf(dc), DrawUnmerged(dc, points, blank))
                << size.cx << " x " << size.cy << ", line " << i << " of " << points.size() << " points";
        }
    }
}
