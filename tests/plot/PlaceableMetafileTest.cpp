#include "tessara/plot/PlaceableMetafile.h"

#include <gtest/gtest.h>

#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/plot/Page.h"

namespace {

TEST(PlaceableMetafile, HeaderHoldsKeyBoxUnitsAndChecksum) {
    constexpr std::array<BYTE, tessara::PLACEABLE_HEADER_SIZE> EXPECTED{
        0xD7, 0xCD, 0xC6, 0x9A, // key
        0x00, 0x00,             // handle
        0x00, 0x00, 0x00, 0x00, // left, top
        0x00, 0x14, 0x60, 0x0E, // right 5120, bottom 3680
        0xE0, 0x01,             // 480 units per inch
        0x00, 0x00, 0x00, 0x00, // reserved
        0x91, 0x4C};            // 480 xor 0x4D71
    EXPECT_EQ(tessara::MakePlaceableHeader(480), EXPECTED);
}

TEST(PlaceableMetafile, UnitsPerInchFollowThePagesScaleWhateverItsMargins) {
    struct {
        int nWidth, nHeight;
        double dDotsPerInch;
        int nUnits;
    } const cases[] = {{1024, 736, 96, 480},   {1200, 736, 96, 480}, {1024, 900, 96, 480},
                       {512, 368, 96, 960},    {100, 72, 96, 1440},  {5120, 3680, 96, 96},
                       {2048, 1472, 192, 480}, {0, 0, 96, 1440}};
    for (const auto& given : cases) {
        CImageDC image(1, 1, given.dDotsPerInch);
        EXPECT_EQ(tessara::GetPageUnitsPerInch(image, {0, 0, given.nWidth, given.nHeight}), given.nUnits)
            << given.nWidth << " x " << given.nHeight;
        EXPECT_EQ(image.GetMapMode(), MM_TEXT);
    }
}

TEST(PlaceableMetafile, AFileThatCannotBeOpenedIsAFailureThatLeavesNoFile) {
    CImageDC image(100, 72);
    EXPECT_EQ(
        tessara::ExportPlaceable(image, {0, 0, 100, 72}, "/no such folder/plot.wmf", [](CMetaFileDC&) {}), 0);
}

TEST(Page, FillsTheClientRectangleInOneDirectionAndIsCentredInTheOther) {
    struct {
        RECT client;
        RECT page;
    } const cases[] = {{{0, 0, 800, 575}, {0, 0, 800, 575}},
                       {{0, 0, 1024, 1024}, {0, 144, 1024, 880}},
                       {{0, 0, 1200, 736}, {88, 0, 1112, 736}},
                       {{0, 0, 10, 1000}, {0, 496, 10, 503}}};
    for (const auto& given : cases) {
        CImageDC image(1, 1);
        RECT client = given.client;
        CenterDC(&image, client);
        CRect page(0, 0, tessara::PAGE_WIDTH, tessara::PAGE_HEIGHT);
        image.LPtoDP(&page);
        EXPECT_EQ(static_cast<RECT>(page), given.page)
            << given.client.right << " x " << given.client.bottom << ": " << page.left << " " << page.top
            << " " << page.right << " " << page.bottom;
    }
}

} // namespace
