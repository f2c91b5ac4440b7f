#include "tessara/plot/PlaceableMetafile.h"

#include <csignal>
#include <sys/resource.h>

#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/plot/Page.h"
#include "tests/cli/Folder.h"

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

TEST(PlaceableMetafile, ThatDoesNotFitOnTheDiskLeavesTheOldFile) {
    const CFolder folder;
    const std::string strPath = folder.Write("a.wmf", "old");
    CImageDC image(100, 72);
    const auto paint = [](CMetaFileDC& picture) { picture.Rectangle(0, 0, 10, 10); };
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const auto pfnPrevious = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{30, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(tessara::ExportPlaceable(image, image.GetClientRect(), strPath.c_str(), paint),
                 CFileException);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, pfnPrevious);
    EXPECT_EQ(folder.Read("a.wmf"), "old");
    EXPECT_EQ(folder.List().size(), 1U);
}

TEST(Page, FillsTheClientRectangleInOneDirectionAndIsCentredInTheOther) {
    const struct {
        int nWidth, nHeight;
        double dDotsPerInch;
        RECT page;
        int nUnitsPerInch;
    } cases[] = {{800, 575, 96, {0, 0, 800, 575}, 614},    {1024, 1024, 96, {0, 144, 1024, 880}, 480},
                 {1200, 736, 96, {88, 0, 1112, 736}, 480}, {10, 1000, 96, {0, 496, 10, 503}, 1440},
                 {5120, 3680, 96, {0, 0, 5120, 3680}, 96}, {2048, 1472, 192, {0, 0, 2048, 1472}, 480}};
    for (const auto& item : cases) {
        SCOPED_TRACE(testing::Message() << item.nWidth << " x " << item.nHeight);
        CImageDC image(1, 1, item.dDotsPerInch);
        RECT client{0, 0, item.nWidth, item.nHeight};
        EXPECT_EQ(tessara::GetPageUnitsPerInch(image, client), item.nUnitsPerInch);
        CenterDC(&image, client);
        CRect page(0, 0, tessara::PAGE_WIDTH, tessara::PAGE_HEIGHT);
        image.LPtoDP(&page);
        EXPECT_EQ(static_cast<RECT>(page), item.page);
    }
}

} // namespace
