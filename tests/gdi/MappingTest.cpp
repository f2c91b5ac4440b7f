#include "tessara/platform/gdi/Mapping.h"

#include <climits>
#include <cmath>

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

TEST(Mapping, LowEnglishUnitsAreHundredthsOfAnInchUpwardAndTakeNoExtents) {
    CMapping mapping(300, 600);
    mapping.SetMode(MM_LOENGLISH);
    mapping.SetWindowOrigin({10, -20});
    mapping.SetViewportOrigin({3, 4});
    EXPECT_FALSE(mapping.SetWindowExtent({5, 5}));
    EXPECT_EQ(mapping.ToDevice(POINT{100, 100}), (POINT{273, -716}));
    EXPECT_EQ(mapping.ToLogical(POINT{273, -716}), (POINT{100, 100}));
    EXPECT_EQ(mapping.ToDevice(SIZE{-100, 100}), (SIZE{300, 600}));
}

TEST(Mapping, RoundsToTheNearestPixelHalvesUpward) {
    const CMapping half = MakeMapping(MM_ANISOTROPIC, {2, -2}, {1, 1});
    const CMapping third = MakeMapping(MM_ANISOTROPIC, {3, 3}, {1, 1});
    for (LONG n = -10; n <= 10; ++n) {
        const auto rounded = [](double dValue) { return static_cast<LONG>(std::floor(dValue + 0.5)); };
        EXPECT_EQ(half.ToDevice(POINT{n, n}), (POINT{rounded(n / 2.0), rounded(-n / 2.0)})) << n;
        EXPECT_EQ(third.ToDevice(POINT{n, n}), (POINT{rounded(n / 3.0), rounded(n / 3.0)})) << n;
    }
}

TEST(Mapping, IsotropicViewportShrinksOnOneAxisToEqualUnits) {
    const struct {
        SIZE asked, inForce;
    } cases[] = {{{1024, 1024}, {1024, 736}},
                 {{801, 575}, {800, 575}},
                 {{100000, 1}, {1, 1}},
                 {{-1024, 1024}, {-1024, 736}}};
    for (const auto& c : cases) {
        EXPECT_EQ(MakeMapping(MM_ISOTROPIC, PAGE, c.asked).GetViewportExtent(), c.inForce);
    }
}

TEST(Mapping, EveryCoordinateExtentAndOriginStaysInRange) {
    constexpr LONG extremes[] = {INT_MIN, INT_MIN + 1, -1, 1, INT_MAX};
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
            for (const LONG n : {device.x, device.y, logical.x, logical.y, length.cx, length.cy}) {
                ASSERT_LE(std::abs(n), MAX_COORDINATE);
            }
        }
    }
}
