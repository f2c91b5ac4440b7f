#include <climits>
#include <cstddef>
#include <cstdint>
#include <functional>

#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"

namespace {

constexpr COLORREF WHITE = 0xFFFFFF;

/// A surface full of differently coloured shapes.
void DrawScene(CDC& dc) {
    for (int i = 0; i < 12; ++i) {
        CBrush brush(RGB(i * 20, 255 - i * 17, i * 53 % 256));
        const RECT box{i * 7, i * 5, i * 7 + 40, i * 5 + 30};
        dc.FillRect(&box, &brush);
    }
}

} // namespace

TEST(Image, IsAtLeastOnePixelAndRefusesWhatMemoryCannotHold) {
    EXPECT_EQ(CImageDC(0, -5).GetClientRect(), (RECT{0, 0, 1, 1}));
    EXPECT_EQ(CImageDC(1, 1).GetPixel(1, 0), CLR_INVALID);
    EXPECT_THROW(CImageDC(INT_MAX, INT_MAX), CMemoryException);
}

TEST(Image, ItsPixelsLieInOnePlaceAndFollowWhatIsDrawn) {
    const CFolder folder;
    for (const SIZE size : {SIZE{100, 80}, SIZE{7, 3}, SIZE{1, 1}}) {
        CImageDC dc(size.cx, size.cy);
        const IMAGEPIXELS pixels = dc.GetPixels();
        ASSERT_EQ((SIZE{pixels.nWidth, pixels.nHeight}), size);
        const auto* const pFirst = reinterpret_cast<const std::byte*>(pixels.pFirst);
        for (int nRound = 0; nRound < 3; ++nRound) {
            for (LONG y = 0; y < size.cy; ++y) {
                const auto* const pRow = reinterpret_cast<const std::uint32_t*>(pFirst + y * pixels.nStride);
                for (LONG x = 0; x < size.cx; ++x) {
                    const COLORREF color = dc.GetPixel(x, y);
                    ASSERT_EQ(pRow[x] & 0xFFFFFFU,
                              static_cast<std::uint32_t>(GetRValue(color) << 16 | GetGValue(color) << 8 |
                                                         GetBValue(color)))
                        << x << "," << y;
                }
            }
            EXPECT_EQ(dc.GetPixels().pFirst, pixels.pFirst);
            DrawScene(dc);
            dc.SetSmooth(true);
            dc.LineTo(size.cx, size.cy);
            dc.SavePng(folder.Path("a.png").c_str());
            dc.SetROP2(R2_NOTXORPEN);
            dc.LineTo(0, 1);
        }
    }
}

TEST(Image, ShapesLeaveOutTheirRightAndBottomEdgesDownToOnePixel) {
    for (const RECT box : {RECT{10, 12, 31, 40}, RECT{31, 40, 10, 12}, RECT{5, 5, 6, 6}, RECT{5, 5, 9, 6},
                           RECT{5, 5, 7, 7}, RECT{5, 5, 9, 5}, RECT{5, 5, 5, 5}}) {
        CRect inside(box);
        inside.NormalizeRect();
        for (const int nPen : {BLACK_PEN, NULL_PEN}) {
            SCOPED_TRACE(testing::Message() << box.right << "," << box.bottom << " pen " << nPen);
            CImageDC dc(50, 50), round(50, 50);
            for (CImageDC* pDC : {&dc, &round}) {
                pDC->SelectStockObject(BLACK_BRUSH);
                pDC->SelectStockObject(nPen);
            }
            dc.Rectangle(&box);
            EXPECT_EQ(CountPixels(dc, 0), inside.Width() * inside.Height());
            CBrush white(WHITE);
            dc.FillRect(&inside, &white);
            EXPECT_EQ(CountPainted(dc), 0);
            round.Ellipse(&box);
            EXPECT_TRUE(inside.Width() < 20 || round.GetPixel(30, inside.CenterPoint().y) == 0);
            round.FillRect(&inside, &white);
            EXPECT_EQ(CountPainted(round), 0);
        }
    }
}

TEST(Image, InvertingLinesAndFocusRectanglesDrawnTwiceRestoreEveryPixel) {
    constexpr POINT zigzag[] = {{-10, 5}, {90, 70}, {20, 70}, {90, 5}, {90, 5}, {45, 200}};
    const auto expectRestored = [](bool bSmooth, const std::function<void(CDC&)>& draw) {
        CImageDC dc(100, 80);
        dc.SetSmooth(bSmooth);
        DrawScene(dc);
        const QImage before = ImageOf(dc);
        draw(dc);
        EXPECT_NE(ImageOf(dc), before);
        draw(dc);
        EXPECT_EQ(ImageOf(dc), before);
    };
    for (int i = 0; i < 24; ++i) {
        SCOPED_TRACE(i);
        constexpr int widths[] = {1, 2, 5, 12};
        CPen pen(i % 3, widths[i / 3 % 4], RGB(0, 128, 255));
        expectRestored(i < 12, [&](CDC& dc) {
            dc.SelectObject(&pen);
            dc.SetROP2(R2_NOTXORPEN);
            dc.Polyline(zigzag, 6);
        });
    }
    for (const RECT box : {RECT{5, 5, 60, 40}, RECT{-5, -5, 500, 30}, RECT{3, 3, 4, 4}, RECT{60, 40, 5, 5}}) {
        expectRestored(false, [&](CDC& dc) { dc.DrawFocusRect(&box); });
    }
}

TEST(Image, AnInvertingLineOfManySegmentsInvertsEachPixelOnce) {
    for (const int nWidth : {1, 5}) {
        std::vector<POINT> points;
        for (LONG x = -10; x <= 110; x += 2) {
            points.push_back({x, 20});
        }
        CImageDC dc(100, 40);
        CPen pen(PS_SOLID, nWidth, 0);
        dc.SelectObject(&pen);
        dc.SetROP2(R2_NOTXORPEN);
        dc.Polyline(points.data(), static_cast<int>(points.size()));
        EXPECT_EQ(CountPixels(dc, 0), 100 * nWidth);
    }
}

TEST(Image, APenIsAsWideAsTheMappingMakesIt) {
    for (const auto& [nExtent, nPixels] : {std::pair(100, 32), {50, 16}, {-25, 8}, {1, 1}}) {
        CImageDC dc(100, 80);
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetWindowExt(100, 100);
        dc.SetViewportExt(nExtent, nExtent);
        dc.SetViewportOrg(0, 40);
        CPen pen(PS_SOLID, 32, 0);
        dc.SelectObject(&pen);
        dc.MoveTo(-100000, 0);
        dc.LineTo(100000, 0);
        EXPECT_EQ(CountPixels(dc, 0), 100 * nPixels) << nExtent;
    }
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
        dc.LineTo(nSize, 2);
        EXPECT_EQ(CountPainted(dc), nSize);
    }
}
