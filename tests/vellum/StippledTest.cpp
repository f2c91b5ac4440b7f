#include "tessara/platform/vellum/Stippled.h"

#include <algorithm>
#include <array>
#include <cfenv>
#include <climits>
#include <cmath>
#include <set>

#include <QPainter>
#include <QSvgRenderer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/SvgDC.h"
#include "tessara/platform/vellum/DashPattern.h"
#include "tessara/plot/Page.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"
#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using tessara::CPaletteScope;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

constexpr std::array<COLORREF, 3> PALETTE{RGB(1, 2, 3), RGB(40, 50, 60), RGB(200, 100, 0)};

void DrawLine(CDC& dc, int nStyle, int bStippled, CMetaFileDC* pPicture = nullptr) {
    std::array<POINT, 3> line{POINT{0, 10}, POINT{300, 10}, POINT{390, 50}};
    EXPECT_EQ(PolyLineStippledEx(&dc, line.data(), 3, nStyle, pPicture, bStippled), 1);
}

using Points = std::vector<POINT>;

std::vector<Points> Dashes(const Points& line, std::vector<double> pattern) {
    std::vector<Points> dashes;
    tessara::CutIntoDashes(
        line, pattern, [&](std::span<const POINT> dash) { dashes.emplace_back(dash.begin(), dash.end()); });
    return dashes;
}

} // namespace

TEST(Stippled, StylesAreColoursOfTheCarriedPaletteOrTheDefaultOneInTurn) {
    const char* const defaults[] = {"0000FF", "FF0000", "00FF00", "FFFF00", "FF00FF", "00FFFF"};
    const char* const carried[] = {"030201", "3C3228", "0064C8"};
    for (const int nStyle : {0, 1, 2, 3, 4, 5, 6, 1000}) {
        CLoggedSurface log;
        DrawLine(log.dc, nStyle, 0);
        {
            const CPaletteScope scope(log.dc, PALETTE);
            DrawLine(log.dc, nStyle, 0);
        }
        DrawLine(log.dc, nStyle, 0);
        EXPECT_THAT(log.lines, ElementsAre(HasSubstr(defaults[nStyle % 6]), HasSubstr(carried[nStyle % 3]),
                                           HasSubstr(defaults[nStyle % 6])));
    }
}

TEST(Stippled, CurvesAreSolidInTheirColourOrBlackAndDashedPerStyle) {
    std::set<int> counts;
    for (int nStyle = 0; nStyle < 6; ++nStyle) {
        CImageDC colour(400, 60), dashed(400, 60);
        DrawLine(colour, nStyle, 0);
        DrawLine(dashed, nStyle, 1);
        EXPECT_EQ(CountPixels(colour, 0) + CountPixels(dashed, 0), CountPainted(dashed))
            << "black on white only";
        counts.insert(CountPainted(dashed));
    }
    EXPECT_THAT(counts, SizeIs(6)) << "every style covers another part of the line";
}

TEST(Stippled, StyleMinusOneIsTheSurfacesOwnPen) {
    for (const int bStippled : {0, 1}) {
        CLoggedSurface log;
        CPen pen(PS_SOLID, 5, RGB(9, 9, 9));
        log.dc.SelectObject(&pen);
        DrawLine(log.dc, -1, bStippled);
        LegendRectangleStippledEx(&log.dc, 10, 20, 50, 31, -1, nullptr, bStippled);
        EXPECT_THAT(log.lines, ElementsAre("Polyline 0,10 300,10 390,50 (pen 090909 width 5)",
                                           "Polyline 10,25 50,25 (pen 090909 width 5)"));
    }
}

TEST(Stippled, BlackAndWhitePrintersGetDashesUnasked) {
    CLoggedSurface mono(CLoggedSurface::Printer(2)), colour(CLoggedSurface::Printer(3)), asked;
    DrawLine(mono.dc, 1, 0);
    DrawLine(colour.dc, 1, 0);
    DrawLine(asked.dc, 1, 1);
    EXPECT_EQ(mono.lines, asked.lines);
    EXPECT_THAT(mono.lines, AllOf(SizeIs(4), Each(HasSubstr("pen 000000"))));
    EXPECT_THAT(colour.lines, SizeIs(1));
}

TEST(Stippled, BothSurfacesGetTheSameAndKeepTheirOwnObjects) {
    for (const int bStippled : {0, 1}) {
        CLoggedSurface log;
        CPen pen(PS_SOLID, 1, 0), otherPen(PS_SOLID, 2, 0);
        const auto draw = [&](CMetaFileDC& dc) {
            log.dc.SelectObject(&pen);
            dc.SelectObject(&otherPen);
            DrawLine(log.dc, 2, bStippled, &dc);
            LegendRectangleStippledEx(&log.dc, 0, 0, 100, 10, 2, &dc, bStippled);
            EXPECT_EQ(log.dc.SelectObject(&otherPen), &pen);
            EXPECT_EQ(dc.SelectObject(&pen), &otherPen);
        };
        const auto nMarks = std::ranges::count_if(Recorded(draw).lines, [](const std::string& strLine) {
            return strLine.starts_with("Poly") || strLine.starts_with("LineTo") ||
                   strLine.starts_with("Rect");
        });
        EXPECT_EQ(static_cast<std::size_t>(nMarks), log.lines.size());
    }
}

namespace {

/// A curve that turns and runs back, on a page of 5120 x 3680 units as plots have.
Points WavyCurve(int nPoints) {
    Points points;
    for (int i = 0; i < nPoints; ++i) {
        const double d = static_cast<double>(i) / (nPoints - 1);
        points.push_back({static_cast<LONG>(2500 + 2000 * std::sin(7 * d)),
                          static_cast<LONG>(300 + 3000 * d + 400 * std::cos(40 * d))});
    }
    return points;
}

/// Measured values: tens of thousands of dashes long.
Points NoisyCurve() {
    Points points;
    for (int i = 0; i <= 20000; ++i) {
        points.push_back({400 + i * 3 / 20, 1800 + i * 7919 % 400});
    }
    return points;
}

/// Draws a curve, stippled, into the client rectangle of a surface.
template <class SURFACE>
void DrawOnPage(SURFACE& dc, Points points, int nStyle) {
    CRect client(dc.GetClientRect());
    CenterDC(&dc, client);
    PolyLineStippledEx(&dc, points.data(), static_cast<int>(points.size()), nStyle, nullptr, 1);
}

template <class SURFACE>
std::string FileOf(const Points& points, int nStyle) {
    const CFolder folder;
    SURFACE dc(folder.Path("a").c_str(), 160, 115);
    DrawOnPage(dc, points, nStyle);
    dc.Close();
    return folder.Read("a");
}

/// An SVG file as an image; its coordinates are the middles of pixels, as on a smooth image surface.
QImage Rendered(const std::string& strSvg, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QSvgRenderer(QByteArray::fromStdString(strSvg)).render(&painter, QRectF({0.5, 0.5}, size));
    return image;
}

/// How much of the ink of one picture is not in the other, from 0 to 1.
double InkApart(const QImage& a, const QImage& b) {
    double dApart = 0;
    double dInk = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const int nA = 255 - qGray(a.pixel(x, y));
            const int nB = 255 - qGray(b.pixel(x, y));
            dApart += std::abs(nA - nB);
            dInk += nA + nB;
        }
    }
    return dApart / dInk;
}

} // namespace

TEST(Stippled, AFileOfAPageHasAPatternInsteadOfALineForEachDash) {
    constexpr std::size_t PATTERN = 200; // bytes
    const Points points = NoisyCurve();
    for (int nStyle = 1; nStyle < 6; ++nStyle) {
        EXPECT_LT(FileOf<CSvgDC>(points, nStyle).size(), FileOf<CSvgDC>(points, 0).size() + PATTERN);
        EXPECT_LT(FileOf<CPdfDC>(points, nStyle).size(), FileOf<CPdfDC>(points, 0).size() + PATTERN);
    }
}

TEST(Stippled, ThePatternOfAFileFallsWhereAnImageHasItsDashes) {
    for (const Points& points : {WavyCurve(2001), WavyCurve(12)}) {
        const Points reversed(points.rbegin(), points.rend());
        for (int nStyle = 1; nStyle < 6; ++nStyle) {
            SCOPED_TRACE(testing::Message() << points.size() << " points, style " << nStyle);
            CImageDC image(800, 575);
            image.SetSmooth(true);
            DrawOnPage(image, points, nStyle);
            const QImage dashes = ImageOf(image);
            EXPECT_LT(InkApart(Rendered(FileOf<CSvgDC>(points, nStyle), dashes.size()), dashes), 0.1);
            for (const std::string& strOther :
                 {FileOf<CSvgDC>(points, nStyle - 1), FileOf<CSvgDC>(reversed, nStyle)}) {
                EXPECT_GT(InkApart(Rendered(strOther, dashes.size()), dashes), 0.15);
            }
        }
    }
    const auto drawStretched = [](auto& dc) {
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetWindowExt(tessara::PAGE_WIDTH, tessara::PAGE_HEIGHT * 2);
        dc.SetViewportExt(dc.GetClientRect().right, dc.GetClientRect().bottom);
        Points points = WavyCurve(2001);
        PolyLineStippledEx(&dc, points.data(), static_cast<int>(points.size()), 4, nullptr, 1);
    };
    const CFolder folder;
    CSvgDC svg(folder.Path("a").c_str(), 160, 115);
    drawStretched(svg);
    svg.Close();
    CImageDC image(800, 575);
    image.SetSmooth(true);
    drawStretched(image);
    EXPECT_LT(InkApart(Rendered(folder.Read("a"), {800, 575}), ImageOf(image)), 0.1) << "stretched";
    for (const Points& dot : {Points{{400, 400}}, Points{{99, 9}, {99, 9}, {99, 9}}}) {
        EXPECT_EQ(FileOf<CSvgDC>(dot, 2), FileOf<CSvgDC>(dot, 0));
    }
}

TEST(CutIntoDashes, FollowsThePatternAlongALineAndRoundItsCorners) {
    const Points solid{{0, 0}, {500, 0}, {0, 0}}, endless{{INT_MIN, 0}, {INT_MAX, 0}, {INT_MIN, INT_MAX}};
    const struct {
        Points line;
        std::vector<double> pattern;
        std::vector<Points> dashes;
    } cases[] = {
        {{{0, 0}, {100, 0}}, {30, 10}, {{{0, 0}, {30, 0}}, {{40, 0}, {70, 0}}, {{80, 0}, {100, 0}}}},
        {{{0, 0}, {0, -60}},
         {20, 5, 10, 5},
         {{{0, 0}, {0, -20}}, {{0, -25}, {0, -35}}, {{0, -40}, {0, -60}}}},
        {{{0, 0}, {20, 0}, {20, 20}, {40, 20}},
         {30, 20},
         {{{0, 0}, {20, 0}, {20, 10}}, {{30, 20}, {40, 20}}}},
        {{}, {30, 10}, {}},
        {solid, {}, {solid}},
        {endless, {30, 10}, {endless}},
    };
    std::feclearexcept(FE_ALL_EXCEPT);
    for (const auto& c : cases) {
        EXPECT_EQ(Dashes(c.line, c.pattern), c.dashes);
    }
    EXPECT_FALSE(std::fetestexcept(FE_DIVBYZERO | FE_INVALID)) << "a program may trap on these";
}
