#include "tessara/platform/vellum/Stippled.h"

#include <algorithm>
#include <array>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/gdi/MetafileRecorder.h"
#include "tests/gdi/Surfaces.h"
#include "tests/support/LoggedSurface.h"
#include "tests/support/MetafileReader.h"

using tessara::CLoggedSurface;
using tessara::CPaletteScope;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr std::array<COLORREF, 3> PALETTE{RGB(1, 2, 3), RGB(40, 50, 60), RGB(200, 100, 0)};

void DrawLine(CDC& dc, int nStyle, int bStippled, CMetaFileDC* pPicture = nullptr) {
    std::array<POINT, 3> line{POINT{0, 10}, POINT{300, 10}, POINT{390, 50}};
    EXPECT_EQ(PolyLineStippledEx(&dc, line.data(), 3, nStyle, pPicture, bStippled), 1);
}

/// The only line that a style leaves in the log.
std::string LineOf(int nStyle, std::span<const COLORREF> palette) {
    CLoggedSurface log;
    const CPaletteScope scope(log.dc, palette);
    DrawLine(log.dc, nStyle, 0);
    EXPECT_THAT(log.lines, SizeIs(1));
    return log.lines.empty() ? "" : log.lines.front();
}

} // namespace

TEST(Stippled, StylesAreColoursOfTheCarriedPaletteInTurn) {
    for (const auto& [nStyle, pszColor] :
         {std::pair{0, "030201"}, {2, "0064C8"}, {3, "030201"}, {1000, "3C3228"}}) {
        EXPECT_THAT(LineOf(nStyle, PALETTE), HasSubstr(pszColor)) << nStyle;
    }
    const char* const defaults[] = {"0000FF", "FF0000", "00FF00", "FFFF00", "FF00FF", "00FFFF", "0000FF"};
    for (int nStyle = 0; nStyle < 7; ++nStyle) {
        EXPECT_THAT(LineOf(nStyle, {}), HasSubstr(defaults[nStyle])) << nStyle;
    }
}

TEST(Stippled, APaletteLastsAsLongAsItsScope) {
    CDC dc;
    {
        const CPaletteScope outer(dc, PALETTE);
        {
            const CPaletteScope inner(dc, std::span(PALETTE).first(1));
            EXPECT_THAT(dc.GetCurvePalette(), SizeIs(1));
        }
        EXPECT_THAT(dc.GetCurvePalette(), testing::ElementsAreArray(PALETTE));
    }
    EXPECT_THAT(dc.GetCurvePalette(), IsEmpty());
}

TEST(Stippled, ColouredCurvesAreSolidInExactlyTheirColour) {
    CImageDC dc(400, 60);
    const CPaletteScope scope(dc, PALETTE);
    DrawLine(dc, 1, 0);
    EXPECT_EQ(CountPixels(dc, PALETTE[1]), CountPainted(dc));
    for (int x = 0; x <= 300; ++x) {
        ASSERT_EQ(dc.GetPixel(x, 10), PALETTE[1]) << x;
    }
}

TEST(Stippled, StippledCurvesAreBlackAndDashedPerStyle) {
    std::set<int> counts;
    for (int nStyle = 0; nStyle < 6; ++nStyle) {
        CImageDC dc(2000, 30);
        const CPaletteScope scope(dc, PALETTE);
        std::array<POINT, 2> line{POINT{0, 15}, POINT{1999, 15}};
        PolyLineStippledEx(&dc, line.data(), 2, nStyle, nullptr, 1);
        EXPECT_EQ(CountPixels(dc, 0), CountPainted(dc)) << "black on white only";
        EXPECT_EQ(dc.GetPixel(0, 15), 0U);
        counts.insert(CountPainted(dc));
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
    CLoggedSurface mono(CLoggedSurface::Printer(2)), colour(CLoggedSurface::Printer(3)), screen, asked;
    DrawLine(mono.dc, 1, 0);
    DrawLine(colour.dc, 1, 0);
    DrawLine(screen.dc, 1, 0);
    DrawLine(asked.dc, 1, 1);
    EXPECT_EQ(mono.lines, asked.lines);
    EXPECT_THAT(mono.lines, SizeIs(4));
    EXPECT_THAT(mono.lines, Each(HasSubstr("pen 000000")));
    EXPECT_EQ(colour.lines, screen.lines);
    EXPECT_THAT(colour.lines, SizeIs(1));
}

TEST(Stippled, DenseNoiseIsDrawnAsAWholeLine) {
    std::mt19937 random(3);
    std::vector<POINT> noise;
    for (LONG i = 0; i < 200000; ++i) {
        noise.push_back({i % 5000, static_cast<LONG>(random() % 3000)});
    }
    CLoggedSurface log;
    PolyLineStippledEx(&log.dc, noise.data(), static_cast<int>(noise.size()), 1, nullptr, 1);
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST(Stippled, OnePointIsADotAndNoPointsAreNothing) {
    for (const int bStippled : {0, 1}) {
        CImageDC dc(20, 20);
        POINT point{10, 10};
        PolyLineStippledEx(&dc, &point, 0, 0, nullptr, bStippled);
        EXPECT_EQ(CountPainted(dc), 0);
        PolyLineStippledEx(&dc, &point, 1, 0, nullptr, bStippled);
        EXPECT_NE(dc.GetPixel(10, 10), 0xFFFFFFU);
    }
}

TEST(Stippled, LegendSamplesAreBarsOfColourOrPiecesOfDash) {
    CLoggedSurface colour, stippled;
    const CPaletteScope scope(colour.dc, PALETTE);
    LegendRectangleStippledEx(&colour.dc, 10, 20, 300, 30, 1, nullptr, 0);
    LegendRectangleStippledEx(&stippled.dc, 10, 20, 300, 30, 1, nullptr, 1);
    EXPECT_THAT(colour.lines, ElementsAre("Rectangle 10,20 300,30 (no pen, brush 3C3228)"));
    EXPECT_THAT(stippled.lines, SizeIs(3));
    EXPECT_THAT(stippled.lines, Each(HasSubstr(",25 (pen 000000")));
}

TEST(Stippled, BothSurfacesGetTheSameAndKeepTheirOwnObjects) {
    for (const int bStippled : {0, 1}) {
        CLoggedSurface log;
        CMetaFileDC picture;
        picture.Create();
        CPen pen(PS_SOLID, 1, 0), otherPen(PS_SOLID, 2, 0);
        log.dc.SelectObject(&pen);
        picture.SelectObject(&otherPen);
        DrawLine(log.dc, 2, bStippled, &picture);
        LegendRectangleStippledEx(&log.dc, 0, 0, 100, 10, 2, &picture, bStippled);
        EXPECT_EQ(log.dc.SelectObject(&otherPen), &pen);
        EXPECT_EQ(picture.SelectObject(&pen), &otherPen);
        EXPECT_EQ(log.dc.SelectStockObject(NULL_BRUSH), tessara::GetStockObject(WHITE_BRUSH));

        HMETAFILE hPicture = picture.Close();
        const CMetafileReading reading = ReadMetafile(hPicture->GetBytes());
        DeleteMetaFile(hPicture);
        EXPECT_THAT(reading.faults, IsEmpty());
        const auto nMarks = std::ranges::count_if(reading.lines, [](const std::string& strLine) {
            return strLine.starts_with("Poly") || strLine.starts_with("LineTo") ||
                   strLine.starts_with("Rect");
        });
        EXPECT_EQ(static_cast<std::size_t>(nMarks), log.lines.size());
    }
}
