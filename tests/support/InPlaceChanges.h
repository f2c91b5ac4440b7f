#pragma once

#include <algorithm>
#include <limits>
#include <random>
#include <span>
#include <vector>

#include "tessara/platform/gdi/ImageDC.h"

namespace tessara {

/// Changes the values of an array where they are, in one of the ways that a look at a few of them, or a weak
/// sum of all, does not notice.
inline void ChangeInPlace(std::span<double> values, std::mt19937& random) {
    const auto any = [&]() -> double& { return values[random() % values.size()]; };
    switch (random() % 9) {
    case 0:
        std::for_each(values.begin(), values.end(), [](double& d) { d = -d; });
        break;
    case 1:
        for (double* const p : {&any(), &any()}) {
            *p = -*p;
        }
        break;
    case 2:
        std::swap(any(), any());
        break;
    case 3:
        std::shuffle(values.begin(), values.end(), random);
        break;
    case 4:
        std::rotate(values.begin(), values.begin() + 1, values.end());
        break;
    case 5:
        std::reverse(values.begin(), values.end());
        break;
    case 6:
        any() = std::numeric_limits<double>::quiet_NaN();
        break;
    case 7: {
        double& dValue = any();
        dValue = std::nextafter(dValue, 0.0);
        break;
    }
    default:
        any() = static_cast<double>(random() % 64) - 20;
    }
}

/// Every pixel of a plot painted on a small image.
template <class PLOT>
std::vector<COLORREF> PixelsOf(PLOT& plot) {
    constexpr int WIDTH = 200;
    constexpr int HEIGHT = 144;
    CImageDC image(WIDTH, HEIGHT);
    plot.Paint(&image, image.GetClientRect(), nullptr);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            pixels.push_back(image.GetPixel(x, y));
        }
    }
    return pixels;
}

} // namespace tessara
