#include <gtest/gtest.h>

#include "cli/view/CurveWalk.h"
#include "cli/view/PlainText.h"
#include "cli/view/ValuesText.h"

using tessara::CCurveWalk;
using tessara::CPixelMap;
using tessara::CWalkPath;
using enum tessara::CCurveWalk::EDirection;

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/// Ten pixels to a unit, from 0 to 10 in both directions.
CPixelMap TenToAUnit() {
    CPixelMap map;
    map.rect = CRect(0, 0, 100, 100);
    map.dXUpper = 10;
    map.dYUpper = 10;
    return map;
}

CWalkPath Path(std::initializer_list<std::vector<double>> parts) {
    CWalkPath path;
    for (const std::vector<double>& x : parts) {
        path.AddPart(x, x); // on the diagonal
    }
    return path;
}

/// The abscissae that steps from a place lead to.
std::vector<double> Steps(const CWalkPath& path, double dFrom, CCurveWalk::EDirection eDirection,
                          const CPixelMap& map = TenToAUnit()) {
    const CCurveWalk walk(path, map);
    std::vector<double> stops;
    std::optional<std::size_t> at;
    double dX = dFrom;
    while ((at = walk.Step(dX, dX, at, eDirection)) && stops.size() < 20) {
        dX = path.GetStops()[*at].dX;
        stops.push_back(dX);
    }
    return stops;
}

using CStops = std::vector<double>;

TEST(CurveWalk, GoesOverTheEndsOfPartsAndPassesOverPointsOfOnePixel) {
    const CWalkPath path = Path({{1, 2}, {2, 3.52, 3.53, 4}, {6}});
    EXPECT_EQ(Steps(path, 1, forward), (CStops{2, 3.52, 4, 6}));
    EXPECT_EQ(Steps(path, 6, back), (CStops{4, 3.53, 2, 1}));
    EXPECT_EQ(Steps(path, 6, forward), CStops{});
    EXPECT_EQ(Steps(path, 1, back), CStops{});
}

TEST(CurveWalk, GoesOnFromBetweenTwoPoints) {
    const CWalkPath path = Path({{1, 3.52, 5}});
    EXPECT_EQ(Steps(path, 3.9, forward), CStops{5});
    EXPECT_EQ(Steps(path, 3.9, back), (CStops{3.52, 1}));
    EXPECT_EQ(Steps(path, 3.56, back), CStops{1}) << "3.52 is the mark's own pixel";
}

TEST(CurveWalk, LeavesOutWhatIsNoNumberAndJoinsNothingAcrossIt) {
    const CWalkPath path = Path({{1, NOT_A_NUMBER, 5, 6}});
    EXPECT_EQ(path.GetStops().size(), 3u);
    EXPECT_EQ(Steps(path, 2.6, forward), (CStops{5, 6})) << "nearest to 1";
    EXPECT_EQ(Steps(path, 4, back), CStops{1}) << "nearest to 5";
}

TEST(CurveWalk, StaysInTheWindowAndBringsAMarkFromOutsideIntoIt) {
    CPixelMap map = TenToAUnit();
    map.dXLower = 2;
    map.dXUpper = 7;
    const CWalkPath path = Path({{1, 3, 5, 8}, {6, 9}});
    EXPECT_EQ(Steps(path, 3, forward, map), (CStops{5, 6})) << "8 is not shown";
    EXPECT_EQ(Steps(path, 1, forward, map), (CStops{3, 5, 6}));
    EXPECT_EQ(Steps(path, 9, back, map), (CStops{6, 5, 3}));
    EXPECT_EQ(CCurveWalk(path, map).Step(1, 1, std::nullopt, back), 1u) << "there is nothing before 1";
    EXPECT_EQ(CCurveWalk(path, map).GetFirst(forward), 1u);
    EXPECT_EQ(CCurveWalk(path, map).GetFirst(back), 4u);
    EXPECT_EQ(CCurveWalk(path, map).GetNearest(9, 9), 4u);
    map.dXLower = 20;
    map.dXUpper = 30;
    EXPECT_EQ(Steps(path, 3, forward, map), CStops{});
}

TEST(CurveWalk, KeepsToItsBranchWhereACurveCrossesItself) {
    CWalkPath path;
    path.AddPart(CStops{0, 5, 9}, CStops{5, 5, 5});
    path.AddPart(CStops{5, 5, 5}, CStops{0, 5, 9});
    const CCurveWalk walk(path, TenToAUnit());
    EXPECT_EQ(walk.Step(5, 5, 1, forward), 2u);
    EXPECT_EQ(walk.Step(5, 5, 4, forward), 5u);
}

TEST(PlainText, HasTheCharactersOfAnIndexedText) {
    const std::pair<const char*, const char*> cases[] = {{"T~NC~L", "TC"},
                                                         {"f~G", "φ"},
                                                         {"F~G'~N", "Φ'"},
                                                         {"T~i / K~N", "T / K"},
                                                         {"x", "x"},
                                                         {"", ""},
                                                         {"c~G(T)~NABC~B", "χ(T)ABC"},
                                                         {"\xB0~NC", "°C"},
                                                         {"a\tb~N", "a b"},
                                                         {"5~~~~N", "5~"}};
    for (const auto& [pszIndexed, pszPlain] : cases) {
        EXPECT_EQ(tessara::PlainText(pszIndexed), pszPlain) << pszIndexed;
    }
}

TEST(PlainText, TakesTheUnitOutOfATitle) {
    EXPECT_EQ(tessara::QUANTITY("T, K").Show("3"), "T = 3 K");
    EXPECT_EQ(tessara::QUANTITY("T / K").Show("3"), "T = 3 K");
    EXPECT_EQ(tessara::QUANTITY("a/b").Show("3"), "a/b = 3");
    EXPECT_EQ(tessara::QUANTITY(", K").Show("3"), ", K = 3");
}

TEST(PlainText, ShowsDigitsThatTellTwoPixelsApart) {
    using tessara::TextOfNumber;
    EXPECT_EQ(TextOfNumber(305.2137, 0.05), "305.21");
    EXPECT_EQ(TextOfNumber(305.2137, 3), "305");
    EXPECT_EQ(TextOfNumber(305213.7, 300), "305214");
    EXPECT_EQ(TextOfNumber(0.04, 0.002), "0.040");
    EXPECT_EQ(TextOfNumber(1.23456e-12, 1e-14), "1.23e-12");
    EXPECT_EQ(TextOfNumber(1.23456e200, 1e197), "1.235e+200");
    EXPECT_EQ(TextOfNumber(0, 0.1), "0");
    EXPECT_EQ(TextOfNumber(2.5, NOT_A_NUMBER), "2.5");
    EXPECT_EQ(TextOfNumber(2.5, 0), "2.5");
}

TEST(ValuesText, PutsColumnsSideBySideWithAllDigits) {
    tessara::CValuesText text;
    text.AddColumn("T, K", {0.1, 1. / 3, 0.1 + 0.2});
    text.AddColumn("a\tb", {1e22, NOT_A_NUMBER});
    EXPECT_EQ(text.Make(), "T, K\ta b\n0.1\t1e+22\n0.3333333333333333\t\n0.30000000000000004\t\n");
}

} // namespace
