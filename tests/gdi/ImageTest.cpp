#include <climits>

#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tests/gdi/Surfaces.h"

namespace {

constexpr COLORREF RED = RGB(255, 0, 0);
constexpr COLORREF BLUE = RGB(0, 0, 255);
constexpr COLORREF WHITE = 0xFFFFFF;

/// A surface full of differently coloured shapes and text.
void DrawScene(CDC& dc) {
    for (int i = 0; i < 12; ++i) {
        CBrush brush(RGB(i * 20, 255 - i * 17, i * 53 % 256));
        dc.SelectObject(&brush);
        dc.Ellipse(i * 7, i * 5, i * 7 + 40, i * 5 + 30);
        dc.SelectStockObject(WHITE_BRUSH);
    }
    dc.TextOut(10, 40, "Tessara", 7);
}

/// The smallest rectangle around all pixels that are no longer white.
RECT PaintedBounds(const CImageDC& dc) {
    const RECT rc = dc.GetClientRect();
    RECT bounds{rc.right, rc.bottom, 0, 0};
    for (int y = 0; y < rc.bottom; ++y) {
        for (int x = 0; x < rc.right; ++x) {
            if (dc.GetPixel(x, y) != WHITE) {
                bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                          std::max(bounds.bottom, y + 1)};
            }
        }
    }
    return bounds;
}

} // namespace

TEST(Image, StartsWhiteAndReadsNothingOutside) {
    const CImageDC dc(30, 20);
    EXPECT_EQ(CountPainted(dc), 0);
    for (const POINT outside :
         {POINT{-1, 0}, POINT{0, -1}, POINT{30, 0}, POINT{0, 20}, POINT{INT_MIN, INT_MAX}}) {
        EXPECT_EQ(dc.GetPixel(outside.x, outside.y), CLR_INVALID);
    }
}

TEST(Image, IsAtLeastOnePixelAndRefusesWhatMemoryCannotHold) {
    EXPECT_EQ(CImageDC(0, -5).GetClientRect(), (RECT{0, 0, 1, 1}));
    EXPECT_THROW(CImageDC(INT_MAX, INT_MAX), CMemoryException);
}

TEST(Image, LinesHaveExactlyThePenColour) {
    CImageDC dc(50, 50);
    for (const COLORREF color : {RED, RGB(1, 2, 3), RGB(254, 127, 128)}) {
        CPen pen(PS_SOLID, 1, color);
        dc.SelectObject(&pen);
        dc.MoveTo(3, 4);
        dc.LineTo(41, 29);
        EXPECT_EQ(dc.GetPixel(3, 4), color);
        EXPECT_EQ(dc.GetPixel(41, 29), color);
        EXPECT_EQ(CountPixels(dc, color), 39);
        EXPECT_EQ(CountPainted(dc), 39) << "no other colour";
        dc.SelectStockObject(BLACK_PEN);
    }
}

TEST(Image, PenWidthsFollowTheMappingDownToOnePixel) {
    for (const auto& [nWidth, nPixels] : {std::pair{0, 1}, {1, 1}, {19, 1}, {20, 2}, {39, 3}, {80, 8}}) {
        CImageDC dc(50, 50);
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetWindowExt(500, 500);
        dc.SetViewportExt(50, 50);
        CPen pen(PS_SOLID, nWidth, RED);
        dc.SelectObject(&pen);
        dc.MoveTo(-100, 250);
        dc.LineTo(600, 250);
        EXPECT_EQ(CountPixels(dc, RED), 50 * nPixels) << nWidth;
    }
}

TEST(Image, ShapesLeaveOutTheirRightAndBottomEdges) {
    constexpr RECT box{10, 12, 31, 40};
    for (const int nPen : {BLACK_PEN, NULL_PEN}) {
        for (const bool bReversed : {false, true}) {
            CImageDC dc(50, 50);
            dc.SelectStockObject(nPen);
            dc.SelectStockObject(BLACK_BRUSH);
            const RECT given = bReversed ? RECT{box.right, box.bottom, box.left, box.top} : box;
            dc.Rectangle(&given);
            EXPECT_EQ(PaintedBounds(dc), box);
            EXPECT_EQ(CountPainted(dc), 21 * 28);
        }
        CImageDC round(50, 50);
        round.SelectStockObject(nPen);
        round.SelectStockObject(BLACK_BRUSH);
        round.Ellipse(&box);
        EXPECT_EQ(PaintedBounds(round), box);
    }
    CImageDC filled(50, 50);
    CBrush brush(RED);
    filled.FillRect(&box, &brush);
    EXPECT_EQ(PaintedBounds(filled), box);
    EXPECT_EQ(CountPixels(filled, RED), 21 * 28);
}

TEST(Image, RectanglesOfOnePixelOrNoneAreExactToo) {
    const struct {
        RECT box;
        int nPixels;
    } cases[] = {
        {{5, 5, 5, 5}, 0}, {{5, 5, 9, 5}, 0}, {{5, 5, 6, 6}, 1}, {{5, 5, 9, 6}, 4}, {{5, 5, 7, 7}, 4}};
    for (const int nPen : {BLACK_PEN, NULL_PEN}) {
        for (const auto& c : cases) {
            CImageDC dc(20, 20);
            dc.SelectStockObject(nPen);
            dc.SelectStockObject(BLACK_BRUSH);
            dc.Rectangle(&c.box);
            EXPECT_EQ(CountPainted(dc), c.nPixels)
                << (nPen == NULL_PEN ? "no pen " : "pen ") << c.box.right << "," << c.box.bottom;
        }
    }
}

TEST(Image, NullPensAndBrushesDrawNoOutlineAndNoInside) {
    CImageDC dc(50, 50);
    CPen pen(PS_SOLID, 1, RED);
    CBrush brush(BLUE);
    dc.SelectObject(&pen);
    dc.SelectStockObject(NULL_BRUSH);
    dc.Rectangle(0, 0, 10, 10);
    EXPECT_EQ(CountPainted(dc), 36);
    dc.SelectStockObject(NULL_PEN);
    dc.SelectObject(&brush);
    dc.Rectangle(20, 20, 30, 30);
    EXPECT_EQ(CountPixels(dc, BLUE), 100);
    dc.LineTo(49, 49);
    EXPECT_EQ(CountPixels(dc, RED), 36);
    EXPECT_EQ(CountPainted(dc), 136);
}

TEST(Image, InvertingLinesDrawnTwiceRestoreEveryPixel) {
    constexpr POINT zigzag[] = {{-10, 5}, {90, 70}, {20, 70}, {90, 5}, {90, 5}, {45, 200}};
    for (const bool bSmooth : {false, true}) {
        for (const int nWidth : {1, 2, 5, 12}) {
            for (const int nStyle : {PS_SOLID, PS_DASH, PS_DOT}) {
                CImageDC dc(100, 80);
                dc.SetSmooth(bSmooth);
                DrawScene(dc);
                const QImage before = ImageOf(dc);
                CPen pen(nStyle, nWidth, RGB(0, 128, 255));
                dc.SelectObject(&pen);
                dc.SetROP2(R2_NOTXORPEN);
                dc.Polyline(zigzag, 6);
                EXPECT_NE(ImageOf(dc), before);
                dc.Polyline(zigzag, 6);
                EXPECT_EQ(ImageOf(dc), before) << nStyle << " width " << nWidth;
            }
        }
    }
}

TEST(Image, FocusRectanglesDrawnTwiceRestoreEveryPixel) {
    for (const RECT box : {RECT{5, 5, 60, 40}, RECT{-5, -5, 500, 30}, RECT{3, 3, 4, 4}, RECT{60, 40, 5, 5}}) {
        CImageDC dc(100, 80);
        DrawScene(dc);
        const QImage before = ImageOf(dc);
        dc.DrawFocusRect(&box);
        EXPECT_NE(ImageOf(dc), before) << box.right;
        dc.DrawFocusRect(&box);
        EXPECT_EQ(ImageOf(dc), before) << box.right;
    }
}

TEST(Image, SmoothLinesSoftenOnlySlantedOnes) {
    CImageDC dc(60, 60);
    dc.SetSmooth(true);
    dc.MoveTo(5, 10);
    dc.LineTo(55, 10);
    EXPECT_EQ(CountPixels(dc, 0), CountPainted(dc));
    dc.MoveTo(5, 20);
    dc.LineTo(55, 47);
    EXPECT_LT(CountPixels(dc, 0), CountPainted(dc));
}

TEST(Image, LinesShowWhereverTheWindowOriginLies) {
    for (const bool bSmooth : {false, true}) {
        for (const int nOrigin : {0, 20000, -3000000}) {
            CImageDC dc(60, 60);
            dc.SetSmooth(bSmooth);
            dc.SetWindowOrg(nOrigin, nOrigin);
            dc.MoveTo(nOrigin, nOrigin + 3);
            dc.LineTo(nOrigin + 50, nOrigin + 40);
            EXPECT_GE(CountPainted(dc), 50) << nOrigin;
        }
    }
}

TEST(Image, LinesReachTheFarEndOfLargeImages) {
    for (const int nSize : {16010, 30000}) {
        CImageDC dc(nSize, 4);
        dc.MoveTo(0, 2);
        dc.LineTo(nSize - 1, 2);
        dc.Rectangle(nSize - 4, 0, nSize, 4);
        EXPECT_EQ(dc.GetPixel(nSize / 2, 2), 0U) << nSize;
        EXPECT_EQ(dc.GetPixel(nSize - 5, 2), 0U) << nSize;
        EXPECT_EQ(dc.GetPixel(nSize - 1, 0), 0U) << nSize;
    }
}

TEST(Image, DrawingFarOutsideIsCutOff) {
    for (const bool bSmooth : {false, true}) {
        CImageDC dc(50, 50);
        dc.SetSmooth(bSmooth);
        constexpr POINT far[] = {{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MAX, INT_MIN}};
        dc.Polygon(far, 3);
        dc.Rectangle(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
        dc.Ellipse(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
        dc.SetBkColor(RED);
        dc.TextOut(INT_MAX, INT_MAX, "x", 1);
        dc.TextOut(INT_MIN, INT_MIN, "x", 1);
        constexpr RECT everything{INT_MIN, INT_MIN, INT_MAX, INT_MAX};
        dc.DrawFocusRect(&everything);
        EXPECT_EQ(CountPainted(dc), 0);
        dc.Polyline(far, 3);
        EXPECT_NE(dc.GetPixel(25, 25), WHITE);
        EXPECT_EQ(dc.GetPixel(30, 20), WHITE);
    }
}
