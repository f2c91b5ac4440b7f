#include <gtest/gtest.h>

#include "cli/AxisScale.h"
#include "cli/AxisTitle.h"
#include "cli/ColumnChoice.h"
#include "cli/Delimiter.h"
#include "cli/PictureSize.h"
#include "tests/cli/Outcome.h"

using tessara::CPictureSize;
using tessara::ParseAxisScale;

namespace {

TEST(PictureSize, RelatesPixelsAndMillimetres) {
    const CPictureSize pixels("800x575", 254);
    EXPECT_EQ(pixels.GetWidth(), 800);
    EXPECT_EQ(pixels.GetHeight(), 575);
    EXPECT_NEAR(pixels.GetWidthMm(), 80, 1e-9);
    EXPECT_NEAR(pixels.GetHeightMm(), 57.5, 1e-9);
    const CPictureSize millimetres("160x115.5mm", 96);
    EXPECT_EQ(millimetres.GetWidth(), 605);
    EXPECT_EQ(millimetres.GetHeight(), 437);
    EXPECT_DOUBLE_EQ(millimetres.GetWidthMm(), 160);
    EXPECT_DOUBLE_EQ(millimetres.GetHeightMm(), 115.5);
}

TEST(PictureSize, RefusesWhatIsNoSize) {
    for (const char* pszSize :
         {"", "x", "800", "800x", "x575", "800x575x2", "-800x575", "8e2x575", "800.5x575", "800X575",
          "800 x575", "1..2x3mm", "160x115cm", "mm", "nanxinf", "0x10x500"}) {
        EXPECT_EQ(Refusal([&] { CPictureSize(pszSize, 96); }),
                  "--size: \"" + std::string(pszSize) + "\" is not a size such as 800x575 or 160x115mm");
    }
    for (const char* pszSize : {"15x575", "0x1mm"}) {
        EXPECT_EQ(Refusal([&] { CPictureSize(pszSize, 96); }),
                  "--size: the sides of \"" + std::string(pszSize) + "\" must be 16 to 16384 pixels");
    }
    const std::string strHuge = std::string(400, '9') + "x500";
    EXPECT_NE(Refusal([&] { CPictureSize(strHuge, 96); }), "accepted");
    EXPECT_EQ(Refusal([] { CPictureSize("16384x16384", 96); }),
              "--size: \"16384x16384\" has more than 67108864 pixels");
    for (const double dDotsPerInch : {0.0, -96.0, 9.9, 2401.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(Refusal([&] { CPictureSize("800x575", dDotsPerInch); }), "--dpi: must be 10 to 2400");
    }
}

TEST(AxisScale, ReadsThreeOrFourNumbersAndSaysWhatIsWrong) {
    const tessara::AXISSCALE scale = ParseAxisScale("--x-scale", "-1:2.5:0.5:-3");
    EXPECT_EQ(scale.dFrom, -1);
    EXPECT_EQ(scale.dTo, 2.5);
    EXPECT_EQ(scale.dStep, 0.5);
    EXPECT_EQ(scale.nExponent, -3);
    EXPECT_EQ(ParseAxisScale("--x-scale", "0:1:0.25").nExponent, 0);
    // The last tick, as it is computed, lies on the axis.
    EXPECT_EQ(ParseAxisScale("--x-scale", "0.02:0.12:0.02").dTo, 5 * 0.02 + 0.02);
    EXPECT_EQ(ParseAxisScale("--x-scale", "0:1:0.3").dTo, 1);
    const std::pair<const char*, std::string> cases[] = {
        {"", "\"\" is not a number"},
        {"0:1:", "\"\" is not a number"},
        {"0:a:1", "\"a\" is not a number"},
        {"0:inf:1", "\"inf\" is not a number"},
        {"0:1", "\"0:1\" is not FROM:TO:STEP or FROM:TO:STEP:EXP"},
        {"0:1:2:3:4", "\"0:1:2:3:4\" is not FROM:TO:STEP or FROM:TO:STEP:EXP"},
        {"1:1:1", "FROM must be below TO"},
        {"0:1:0", "STEP must be above 0"},
        {"0:1:-1", "STEP must be above 0"},
        {"0:1:1e-9", "more than 200 steps"},
        {"-1e308:1e308:1e-9", "more than 200 steps"},
        {"0:1:1:9", "EXP must be a whole number from -8 to 8"},
        {"0:1:1:0.5", "EXP must be a whole number from -8 to 8"},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(Refusal([&] { ParseAxisScale("--y-scale", item.first); }), "--y-scale: " + item.second);
    }
}

TEST(ColumnChoice, RefusesEmptyEntriesAndSingleColumns) {
    const auto choose = [](const char* pszColumns) {
        return Refusal([&] { tessara::CColumnChoice("--columns", pszColumns); });
    };
    EXPECT_EQ(choose("1,,2"), "--columns: an entry of \"1,,2\" is empty");
    EXPECT_EQ(choose(""), "--columns: an entry of \"\" is empty");
    EXPECT_EQ(choose("T"), "--columns: an abscissa and at least one function are needed, as in 1,2");
}

TEST(Delimiter, HasANameAndASign) {
    EXPECT_EQ(tessara::CDelimiter::FromName("semicolon").Get(), ';');
    EXPECT_EQ(tessara::CDelimiter::FromName("\t").Get(), '\t');
    EXPECT_EQ(Refusal([] { tessara::CDelimiter::FromName("|"); }),
              "--delimiter: \"|\" is not tab, comma, semicolon or space");
}

TEST(AxisTitle, NamesTheAxesByTheHeadersAndKeepsTheirTildes) {
    EXPECT_EQ(tessara::PlainIndexedText("T~C"), "T~~~C~N");
    EXPECT_EQ(tessara::PlainIndexedText(""), "");
    const std::vector<tessara::CColumnFile> files = {
        tessara::CColumnFile::Parse("1 2\n", "a", {}),
        tessara::CColumnFile::Parse("T,chi,phi\n1,2,3\n", "b", {}),
        tessara::CColumnFile::Parse("x,chi,a rather long name of a column that goes on\n1,2,3\n", "c", {})};
    EXPECT_EQ(tessara::ArgumentName(files), "T");
    EXPECT_EQ(tessara::FunctionNames(std::span(files).first(1)), "");
    EXPECT_EQ(tessara::FunctionNames(std::span(files).first(2)), "chi, phi");
    EXPECT_EQ(tessara::FunctionNames(files), "chi, phi, a rather long name of a column that goes on");
}

} // namespace
