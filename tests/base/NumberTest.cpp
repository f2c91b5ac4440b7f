#include "tessara/platform/base/Number.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "tessara/platform/base/String.h"
#include "tests/support/RaisedFlags.h"

namespace {

using tessara::FormatAccepts;
using tessara::FormatText;
using tessara::FormatValue;
using tessara::ParseNumber;

TEST(Number, TextHasAPointAndTheThreadKeepsItsDecimalComma) {
    setenv("LOCPATH", TEST_LOCALE_FOLDER, 1);
    if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) {
        GTEST_SKIP() << "no locale with a decimal comma could be made";
    }
    EXPECT_EQ(FormatText("%.2f %d", 1.5, 1000), "1.50 1000");
    CString str;
    str.Format("%g", 0.25);
    EXPECT_EQ(str, "0.25");
    EXPECT_EQ(ParseNumber("1.5"), 1.5);
    EXPECT_EQ(ParseNumber("1,5"), std::nullopt);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    std::setlocale(LC_ALL, "C");
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
    EXPECT_EQ(FormatValue("%n", 2.5), "2.50");
    EXPECT_EQ(FormatValue(nullptr, -2.5), "-2.50");
    EXPECT_EQ(FormatValue("%s", NAN), "nan");
    EXPECT_EQ(FormatValue("%512f", 1.0).size(), 512U);
}

TEST(Number, ANumberIsAllOfItsText) {
    using CCase = std::tuple<const char*, int, int>; // a text, whether it is a number, whether one from 0 on
    const CCase cases[] = {
        {"0", 1, 1},     {"  1.5", 1, 1}, {"1e3", 1, 1},  {".5", 1, 1},      {"-0", 1, 1}, {"-1", 1, 0},
        {"-1e-9", 1, 0}, {"inf", 1, 1},   {"nan", 1, 0},  {"1e999", 1, 1},   {"", 0, 0},   {" ", 0, 0},
        {"1 ", 0, 0},    {"1,5", 0, 0},   {"1.5x", 0, 0}, {"e5", 0, 0},      {"-", 0, 0},  {"--1", 0, 0},
        {"+2", 1, 1},    {"0x1F", 1, 1},  {"\v3", 1, 1},  {"-1e-999", 1, 1}, {"1e", 0, 0}, {nullptr, 0, 0},
    };
    for (const auto& [pszText, nAny, nNotNegative] : cases) {
        EXPECT_EQ(IsDouble(pszText, 1), nAny) << (pszText ? pszText : "null");
        EXPECT_EQ(IsDouble(pszText, 0), nNotNegative) << (pszText ? pszText : "null");
        EXPECT_EQ(tessara::RaisedIn([&] { IsDouble(pszText, 0); }), "") << "for a program that traps";
        const std::string strText = pszText ? pszText : "";
        const auto part = ParseNumber(std::string_view(strText + "5").substr(0, strText.size()));
        EXPECT_EQ(part.has_value(), nAny != 0) << strText;
        EXPECT_TRUE(!part || std::isnan(*part) || part == ParseNumber(pszText)) << strText;
    }
    EXPECT_EQ(ParseNumber(std::string_view("1\0", 2)), std::nullopt);
    std::mt19937 random(1);
    for (int i = 0; i < 100000; ++i) { // to the last bit, short and long
        std::string strText = random() % 2 ? "-" : "";
        for (auto n = random() % 20; n > 0; --n) {
            strText += "0123456789."[random() % (n % 4 ? 10 : 11)];
        }
        const auto whole = ParseNumber(strText.c_str());
        const auto part = ParseNumber(std::string_view(strText));
        ASSERT_EQ(part.has_value(), whole.has_value()) << strText;
        ASSERT_TRUE(!part || std::memcmp(&*part, &*whole, sizeof *part) == 0) << strText;
    }
}

} // namespace
