#include "tessara/platform/base/Number.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <utility>

#include <gtest/gtest.h>

#include "tessara/platform/base/String.h"

namespace {

using tessara::FormatAccepts;
using tessara::FormatText;
using tessara::FormatValue;
using tessara::ParseNumber;

/// Sets a locale with a decimal comma for one test: one that is installed, or the one made with the tests.
class NumberWithDecimalComma : public testing::Test {
protected:
    void SetUp() override {
        setenv("LOCPATH", TEST_LOCALE_FOLDER, 1);
        if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) {
            unsetenv("LOCPATH");
            if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) {
                GTEST_SKIP()
                    << "no locale with a decimal comma is installed and localedef could not make one";
            }
        }
        char text[8];
        std::snprintf(text, sizeof text, "%.1f", 0.5);
        ASSERT_STREQ(text, "0,5") << "the locale is not in force";
    }

    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
    }
};

TEST_F(NumberWithDecimalComma, TextHasAPointWhateverTheLocale) {
    EXPECT_EQ(FormatText("%.2f %d", 1.5, 1000), "1.50 1000");
    EXPECT_EQ(FormatValue("%.3f K", 310.25), "310.250 K");
    CString str;
    str.Format("%g", 0.25);
    EXPECT_EQ(str, "0.25");
    EXPECT_EQ(ParseNumber("1.5"), 1.5);
    EXPECT_EQ(ParseNumber("1,5"), std::nullopt);
    EXPECT_EQ(IsDouble("-2.5e-3", 1), 1);
}

TEST_F(NumberWithDecimalComma, TheLocaleOfTheThreadIsRestored) {
    { const tessara::CNumericLocale locale; }
    ParseNumber("bad");
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}

TEST(Number, FormatsMustAskForExactlyTheirArguments) {
    using CCase = std::pair<const char*, const char*>; // a format, and the arguments it will get
    const CCase accepted[] = {{"", ""},        {"100 %%", ""},          {"%lg", "f"},
                              {"%.3f K", "f"}, {"%+-0 #12.5le%%", "f"}, {"%512.512f", "f"},
                              {"%x", "d"},     {"%-20.8s", "s"},        {"%.1lf~N at %d of %s", "fds"}};
    for (const auto& [pszFormat, pszKinds] : accepted) {
        EXPECT_TRUE(FormatAccepts(pszFormat, pszKinds)) << pszFormat << " for " << pszKinds;
    }
    const CCase refused[] = {
        {nullptr, ""}, {"", "f"},    {"no number", "f"}, {"%f %f", "f"},  {"%f", ""},
        {"%d", "f"},   {"%f", "d"},  {"%s", "f"},        {"%Lf", "f"},    {"%hf", "f"},
        {"%llf", "f"}, {"%ld", "d"}, {"%hhd", "d"},      {"%ls", "s"},    {"%c", "d"},
        {"%p", "s"},   {"%n", "d"},  {"%f%n", "f"},      {"%*f", "df"},   {"%.*f", "df"},
        {"%1$f", "f"}, {"%'f", "f"}, {"%513f", "f"},     {"%.513f", "f"}, {"%99999999999999999999f", "f"},
        {"%5%", ""},   {"%", ""},    {"%", "f"},         {"%.", "f"},     {"%f %", "f"}};
    for (const auto& [pszFormat, pszKinds] : refused) {
        EXPECT_FALSE(FormatAccepts(pszFormat, pszKinds))
            << (pszFormat ? pszFormat : "null") << " for " << pszKinds;
    }
}

TEST(Number, AValueFallsBackToTwoDecimals) {
    EXPECT_EQ(FormatValue("%.0f %%", 12.0), "12 %");
    EXPECT_EQ(FormatValue("%n", 2.5), "2.50");
    EXPECT_EQ(FormatValue(nullptr, -2.5), "-2.50");
    EXPECT_EQ(FormatValue("%s", NAN), "nan");
    EXPECT_EQ(FormatValue("%512f", 1.0).size(), 512U);
}

TEST(Number, ANumberIsAllOfItsText) {
    const struct {
        const char* pszText;
        int nAny;
        int nNotNegative;
    } cases[] = {
        {"0", 1, 1},  {"  1.5", 1, 1}, {"1e3", 1, 1}, {".5", 1, 1},    {"-0", 1, 1},
        {"-1", 1, 0}, {"-1e-9", 1, 0}, {"inf", 1, 1}, {"nan", 1, 0},   {"1e999", 1, 1},
        {"", 0, 0},   {" ", 0, 0},     {"1 ", 0, 0},  {"1,5", 0, 0},   {"1.5x", 0, 0},
        {"e5", 0, 0}, {"-", 0, 0},     {"--1", 0, 0}, {nullptr, 0, 0},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(IsDouble(item.pszText, 1), item.nAny) << (item.pszText ? item.pszText : "null");
        EXPECT_EQ(IsDouble(item.pszText, 0), item.nNotNegative) << (item.pszText ? item.pszText : "null");
    }
}

} // namespace
