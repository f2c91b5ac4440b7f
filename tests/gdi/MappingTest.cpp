#include "tessara/platform/gdi/Mapping.h"

#include <climits>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

using tessara::CMapping;
using tessara::MAX_COORDINATE;

namespace {

constexpr SIZE PAGE{5120, 3680};

CMapping MakeMapping(int nMode, SIZE window, SIZE viewport) {
    CMapping mapping;
    mapping.SetMode(nMode);
    mapping.SetWindowExtent(window);
    mapping.SetViewportExtent(viewport);
    return mapping;
}

} // namespace

TEST(Mapping, TextModeMovesByTheOriginsOnly) {
    CMapping mapping;
    mapping.SetWindowOrigin({10, -20});
    mapping.SetViewportOrigin({3, 4});
    EXPECT_EQ(mapping.ToDevice(POINT{0, 0}), (POINT{-7, 24}));
    EXPECT_EQ(mapping.ToLogical(POINT{-7, 24}), (POINT{0, 0}));
}

TEST(Mapping, LowEnglishUnitIsAHundredthOfAnInchUpward) {
    CMapping mapping(300, 600);
    ASSERT_TRUE(mapping.SetMode(MM_LOENGLISH));
    EXPECT_EQ(mapping.ToDevice(POINT{100, 100}), (POINT{300, -600}));
    EXPECT_EQ(mapping.ToDevice(SIZE{100, 100}), (SIZE{300, 600}));
}

TEST(Mapping, OnlyFreeModesTakeExtentsAndNeverZeroWindows) {
    for (const int nMode : {MM_TEXT, MM_LOENGLISH}) {
        CMapping mapping;
        mapping.SetMode(nMode);
        EXPECT_FALSE(mapping.SetWindowExtent({5, 5}));
        EXPECT_FALSE(mapping.SetViewportExtent({5, 5}));
    }
    CMapping mapping = MakeMapping(MM_ANISOTROPIC, {7, 9}, {0, 0});
    EXPECT_FALSE(mapping.SetWindowExtent({0, 5}));
    EXPECT_FALSE(mapping.SetWindowExtent({5, 0}));
    EXPECT_FALSE(mapping.SetMode(99));
    EXPECT_EQ(mapping.GetMode(), MM_ANISOTROPIC);
    EXPECT_EQ(mapping.GetWindowExtent(), (SIZE{7, 9}));
    EXPECT_EQ(mapping.GetViewportExtent(), (SIZE{1, 1}));
}

TEST(Mapping, RoundsToTheNearestPixelHalvesUpward) {
    const CMapping half = MakeMapping(MM_ANISOTROPIC, {2, -2}, {1, 1});
    const CMapping third = MakeMapping(MM_ANISOTROPIC, {3, 3}, {1, 1});
    const struct {
        LONG nLogical, nHalf, nMirroredHalf, nThird;
    } cases[] = {{-4, -2, 2, -1}, {-3, -1, 2, -1}, {-2, -1, 1, -1}, {-1, 0, 1, 0}, {0, 0, 0, 0},
                 {1, 1, 0, 0},    {2, 1, -1, 1},   {3, 2, -1, 1},   {4, 2, -2, 1}, {5, 3, -2, 2}};
    for (const auto& c : cases) {
        const POINT point{c.nLogical, c.nLogical};
        EXPECT_EQ(half.ToDevice(point), (POINT{c.nHalf, c.nMirroredHalf})) << c.nLogical;
        EXPECT_EQ(third.ToDevice(point), (POINT{c.nThird, c.nThird})) << c.nLogical;
    }
}

TEST(Mapping, IsotropicViewportShrinksOnOneAxisToEqualUnits) {
    const struct {
        SIZE asked, inForce;
    } cases[] = {{{1024, 1024}, {1024, 736}},
                 {{801, 575}, {800, 575}},
                 {{1200, 736}, {1024, 736}},
                 {{0, 0}, {1, 1}},
                 {{1, 1}, {1, 1}},
                 {{100000, 1}, {1, 1}},
                 {{-1024, 1024}, {-1024, 736}},
                 {{801, -575}, {800, -575}}};
    for (const auto& c : cases) {
        EXPECT_EQ(MakeMapping(MM_ISOTROPIC, PAGE, c.asked).GetViewportExtent(), c.inForce)
            << c.asked.cx << " x " << c.asked.cy;
    }
}

TEST(Mapping, IsotropicUnitsAreEqualInInchesAndFollowALaterWindow) {
    CMapping mapping(96, 48);
    mapping.SetMode(MM_ISOTROPIC);
    mapping.SetWindowExtent(PAGE);
    mapping.SetViewportExtent({1024, 1024});
    EXPECT_EQ(mapping.GetViewportExtent(), (SIZE{1024, 368}));
    mapping.SetWindowExtent({100, 100});
    EXPECT_EQ(mapping.GetViewportExtent(), (SIZE{1024, 512}));
    mapping.SetMode(MM_ANISOTROPIC);
    EXPECT_EQ(mapping.GetViewportExtent(), (SIZE{1024, 1024}));
}

TEST(Mapping, LengthsAreNeverNegativeAndIgnoreOrigins) {
    CMapping mapping = MakeMapping(MM_ANISOTROPIC, {10, -10}, {-25, 5});
    mapping.SetWindowOrigin({1000, 1000});
    mapping.SetViewportOrigin({-1000, 77});
    EXPECT_EQ(mapping.ToDevice(SIZE{-4, 4}), (SIZE{10, 2}));
    EXPECT_EQ(mapping.ToLogical(SIZE{-10, -2}), (SIZE{4, 4}));
}

TEST(Mapping, TheCoarserSideSurvivesARoundTrip) {
    const CMapping window = MakeMapping(MM_ISOTROPIC, PAGE, {800, 575});
    const CMapping page = MakeMapping(MM_ISOTROPIC, PAGE, {9001, 9001});
    std::mt19937 random(1);
    std::uniform_int_distribution<LONG> coordinate(-100000, 100000);
    for (int i = 0; i < 1000; ++i) {
        const POINT point{coordinate(random), coordinate(random)};
        EXPECT_EQ(window.ToDevice(window.ToLogical(point)), point);
        EXPECT_EQ(page.ToLogical(page.ToDevice(point)), point);
    }
}

TEST(Mapping, EveryCoordinateExtentAndOriginStaysInRange) {
    constexpr LONG extremes[] = {INT_MIN, INT_MIN + 1, -1, 1, INT_MAX};
    const auto inRange = [](LONG nValue) { return std::abs(nValue) <= MAX_COORDINATE; };
    for (const int nMode : {MM_TEXT, MM_LOENGLISH, MM_ISOTROPIC, MM_ANISOTROPIC}) {
        for (int i = 0; i < 625; ++i) {
            const LONG a = extremes[i % 5], b = extremes[i / 5 % 5], c = extremes[i / 25 % 5];
            const LONG d = extremes[i / 125];
            CMapping mapping = MakeMapping(nMode, {a, b}, {b, c});
            mapping.SetWindowOrigin({c, d});
            mapping.SetViewportOrigin({d, a});
            const POINT device = mapping.ToDevice(POINT{d, c});
            const POINT logical = mapping.ToLogical(POINT{a, d});
            const SIZE length = mapping.ToDevice(SIZE{d, a});
            ASSERT_TRUE(inRange(device.x) && inRange(device.y) && inRange(logical.x) && inRange(logical.y));
            ASSERT_TRUE(inRange(length.cx) && inRange(length.cy));
        }
    }
}

TEST(Mapping, ADeviceOfImpossibleResolutionStillMaps) {
    for (const double dDots : {0.0, -96.0, 1e-9, 1e300, std::nan("")}) {
        CMapping mapping(dDots, dDots);
        mapping.SetMode(MM_LOENGLISH);
        mapping.ToLogical(POINT{100, 100});
        EXPECT_NE(mapping.GetViewportExtent().cx, 0) << dDots;
        mapping.SetMode(MM_ISOTROPIC);
        mapping.SetViewportExtent({800, 575});
        EXPECT_GT(mapping.GetScaleX(), 0) << dDots;
    }
}

TEST(MulDiv, RoundsHalvesAwayFromZeroAndRefusesWhatDoesNotFit) {
    const struct {
        int nNumber, nNumerator, nDenominator, nResult;
    } cases[] = {{5, 1, 2, 3},
                 {-5, 1, 2, -3},
                 {7, 3, 0, -1},
                 {INT_MAX, INT_MAX, 1, -1},
                 {INT_MAX, 2, 2, INT_MAX},
                 {INT_MIN, INT_MIN, -1, -1}};
    for (const auto& c : cases) {
        EXPECT_EQ(MulDiv(c.nNumber, c.nNumerator, c.nDenominator), c.nResult)
            << c.nNumber << " * " << c.nNumerator << " / " << c.nDenominator;
    }
}

TEST(ToCoordinate, TruncatesTowardZeroAndHoldsTheRest) {
    const struct {
        double dValue;
        LONG nResult;
    } cases[] = {{1.999, 1}, {-1.999, -1}, {1e300, MAX_COORDINATE}, {-INFINITY, -MAX_COORDINATE}, {NAN, 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(tessara::ToCoordinate(c.dValue), c.nResult) << c.dValue;
    }
}
