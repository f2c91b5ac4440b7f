#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tests/curveplot/Plots.h"
#include "tests/support/Golden.h"
#include "tests/support/MetafileReader.h"

using tessara::CTestPlot;
using tessara::ExpectGolden;
using tessara::JoinLines;
using tessara::MakeLines;
using tessara::ReadWholeFile;
using testing::IsEmpty;

namespace {

/// Two functions with indexed titles, symbols, a gap and a diagonal: every kind of drawing that a plot has.
class CurvePlotExport : public testing::Test {
protected:
    void SetUp() override {
        m_pLines = MakeLines(2, 9);
        for (int i = 0; i < 9; ++i) {
            m_pLines->m_pX[i] = 0.125 * i;
            m_pLines->m_ppY[0][i] = 0.25 * (8 - i) * i / 16.0;
            m_pLines->m_ppY[1][i] = i == 4 ? std::numeric_limits<double>::quiet_NaN() : 0.02 * i;
        }
        m_pSymbols = MakeLines(2, 2);
        for (int i = 0; i < 2; ++i) {
            m_pSymbols->m_pX[i] = 0.25 + 0.5 * i;
            m_pSymbols->m_ppY[0][i] = 0.1;
            m_pSymbols->m_ppY[1][i] = 0.2;
        }
        m_plot = m_pLines.get();
        m_plot.SetSymbolsCurve(m_pSymbols.get());
        m_plot.SetNames("Free energy of mixing", "D~Gf~i/kT~N", "Volume fraction", "F~G2~L");
        m_plot.DisplayDiagonal(1);
    }

    std::string Path(const std::string& strName) const { return testing::TempDir() + strName; }

    std::unique_ptr<CMultiCurve> m_pLines;
    std::unique_ptr<CMultiCurve> m_pSymbols;
    CTestPlot m_plot;
};

TEST_F(CurvePlotExport, RecordsAreThoseOfTheReviewedDump) {
    CImageDC image(1024, 736);
    ASSERT_EQ(m_plot.Export(&image, image.GetClientRect(), Path("plot.wmf").c_str()), 1);
    const std::string strBytes = ReadWholeFile(Path("plot.wmf"));
    const CMetafileReading reading =
        ReadMetafile({reinterpret_cast<const unsigned char*>(strBytes.data()), strBytes.size()});
    EXPECT_THAT(reading.faults, IsEmpty());
    ExpectGolden("curve_plot.wmf.txt", reading.GetText());
}

TEST_F(CurvePlotExport, TheSurfaceIsDrawnAsInTheReviewedDumpWithAPictureOrWithout) {
    const tessara::CPlotLog alone(m_plot);
    ExpectGolden("curve_plot.surface.txt", JoinLines(alone.lines));

    tessara::CLoggedSurface together;
    CMetaFileDC picture;
    picture.Create();
    m_plot.Paint(&together.dc, tessara::PAGE_CLIENT, &picture);
    DeleteMetaFile(picture.Close());
    EXPECT_EQ(alone.lines, together.lines);
}

TEST_F(CurvePlotExport, PageCoordinatesAreTheSameAtEverySizeAndInEveryLocale) {
    CImageDC small(800, 575);
    CImageDC large(1600, 1150, 300);
    m_plot.Export(&small, small.GetClientRect(), Path("small.wmf").c_str());
    const std::string strOld = setlocale(LC_ALL, nullptr);
    ASSERT_TRUE(setlocale(LC_ALL, "de_DE.UTF-8")) << "the tests need the locale that their build makes";
    m_plot.Export(&large, large.GetClientRect(), Path("large.wmf").c_str());
    setlocale(LC_ALL, strOld.c_str());
    EXPECT_EQ(ReadWholeFile(Path("small.wmf")).substr(22), ReadWholeFile(Path("large.wmf")).substr(22));
}

TEST_F(CurvePlotExport, ReportsWhatCannotBeWritten) {
    CImageDC image(400, 288);
    EXPECT_EQ(m_plot.Export(&image, image.GetClientRect(), "/no such folder/plot.wmf"), 0);
    EXPECT_EQ(m_plot.Export(&image, image.GetClientRect(), Path("").c_str()), 0);
}

} // namespace
