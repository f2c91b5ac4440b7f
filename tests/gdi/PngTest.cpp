#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"

namespace {

/// nColors different colours, white not among them.
void DrawColors(CImageDC& dc, int nColors) {
    for (int i = 0; i < nColors; ++i) {
        CBrush brush(RGB(i % 256, i / 256, 77));
        const RECT rc{i % 40, i / 40, i % 40 + 1, i / 40 + 1};
        dc.FillRect(&rc, &brush);
    }
}

QImage SavedAndRead(const CImageDC& dc) {
    const CFolder folder;
    dc.SavePng(folder.Path("a.png").c_str());
    return QImage(QString::fromStdString(folder.Path("a.png")), "PNG");
}

} // namespace

TEST(Png, ReadsBackEqualWithAPaletteForUpTo256Colours) {
    for (const auto& [nColors, bPalette] :
         {std::pair{0, true}, {1, true}, {255, true}, {256, false}, {900, false}}) {
        CImageDC dc(40, 40);
        DrawColors(dc, nColors);
        const QImage read = SavedAndRead(dc);
        EXPECT_EQ(read.format() == QImage::Format_Indexed8 || read.colorCount() > 0, bPalette) << nColors;
        EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), ImageOf(dc)) << nColors;
    }
}

TEST(Png, KeepsTheResolution) {
    for (const double dDots : {72.0, 96.0, 300.0, 1200.0}) {
        const QImage read = SavedAndRead(CImageDC(8, 8, dDots));
        EXPECT_NEAR(read.dotsPerMeterX() * 0.0254, dDots, 0.02);
        EXPECT_NEAR(read.dotsPerMeterY() * 0.0254, dDots, 0.02);
    }
}

TEST(Png, ThrowsWhenItCannotBeWritten) {
    const CFolder folder;
    for (const std::string& strPath :
         {folder.Path("missing/a.png"), folder.Path(""), std::string("/dev/full")}) {
        EXPECT_THROW(CImageDC(4, 4).SavePng(strPath.c_str()), CFileException) << strPath;
    }
}
