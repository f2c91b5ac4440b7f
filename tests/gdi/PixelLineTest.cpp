#include <cmath>
#include <functional>
#include <random>

#include <QPainter>
#include <gtest/gtest.h>

#include "tessara/plot/Page.h"
#include "tests/gdi/Surfaces.h"

namespace {

using Points = std::vector<POINT>;
using Shape = std::function<Points(std::mt19937&)>;

LONG Rounded(double dValue) {
    return static_cast<LONG>(std::lround(dValue));
}

/// A walk of many short steps, in page units.
Points Walk(std::mt19937& random) {
    std::uniform_int_distribution<int> step(-40, 40);
    Points points(3000, POINT{2500, 1800});
    for (std::size_t i = 1; i < points.size(); ++i) {
        points[i] = {points[i - 1].x + step(random), points[i - 1].y + step(random)};
    }
    return points;
}

/// Measurements of one value over a slowly growing one: long runs inside a pixel column.
Points Noise(std::mt19937& random) {
    std::normal_distribution<double> value(1800, 500);
    Points points(4000);
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = {300 + static_cast<LONG>(i), Rounded(value(random))};
    }
    return points;
}

Points SmoothCurve(std::mt19937& random) {
    std::uniform_real_distribution<double> part(0.5, 4);
    const double dX = part(random), dY = part(random);
    Points points(2000);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double dAngle = static_cast<double>(i) / 300;
        points[i] = {Rounded(2560 + 2400 * std::sin(dX * dAngle)),
                     Rounded(1840 + 1700 * std::cos(dY * dAngle))};
    }
    return points;
}

/// Few far points, beyond the page and its window as well.
Points Strokes(std::mt19937& random) {
    std::uniform_int_distribution<LONG> coordinate(-4000, 9000);
    Points points(2 + random() % 30);
    for (POINT& point : points) {
        point = {coordinate(random), coordinate(random)};
    }
    return points;
}

/// Points all in one pixel, or a short way up and down a column.
Points Specks(std::mt19937& random) {
    std::uniform_int_distribution<LONG> coordinate(0, 20);
    Points points(1 + random() % 6);
    for (POINT& point : points) {
        point = {2000 + coordinate(random) / 8, 1500 + coordinate(random)};
    }
    return points;
}

/// The segments between all points handed to Qt, as one-pixel lines.
QImage DrawUnmerged(const CDC& dc, const Points& points, QImage image) {
    QPainter painter(&image);
    painter.setPen(QPen(QColor(0, 0, 255), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    POINT previous = points.front();
    dc.LPtoDP(&previous);
    for (POINT point : points) {
        dc.LPtoDP(&point);
        painter.drawLine(previous.x, previous.y, point.x, point.y);
        previous = point;
    }
    return image;
}

int CountDifferences(const QImage& a, const QImage& b) {
    int nCount = 0;
    for (int y = 0; a != b && y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            nCount += a.pixel(x, y) != b.pixel(x, y);
        }
    }
    return nCount;
}

class PixelLine : public testing::TestWithParam<std::pair<const char*, Shape>> {};

} // namespace

TEST_P(PixelLine, CoversWhatTheUnmergedLineCovers) {
    std::mt19937 random(7);
    for (const SIZE size : {SIZE{800, 575}, SIZE{1600, 1150}, SIZE{801, 577}, SIZE{333, 97}}) {
        for (int i = 0; i < 40; ++i) {
            CImageDC dc(size.cx, size.cy);
            RECT rc = dc.GetClientRect();
            CenterDC(&dc, rc);
            const QImage blank = ImageOf(dc);
            const Points points = GetParam().second(random);
            CPen pen(PS_SOLID, 12 * 575 / size.cy / 2, RGB(0, 0, 255));
            dc.SelectObject(&pen);
            dc.Polyline(points.data(), static_cast<int>(points.size()));
            const QImage expected = DrawUnmerged(dc, points, blank);
            ASSERT_EQ(CountDifferences(ImageOf(dc), expected), 0)
                << size.cx << " x " << size.cy << ", line " << i << " of " << points.size() << " points";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, PixelLine,
                         testing::Values(std::pair{"Walk", Shape(Walk)}, std::pair{"Noise", Shape(Noise)},
                                         std::pair{"SmoothCurve", Shape(SmoothCurve)},
                                         std::pair{"Strokes", Shape(Strokes)},
                                         std::pair{"Specks", Shape(Specks)}),
                         [](const auto& test) { return std::string(test.param.first); });
