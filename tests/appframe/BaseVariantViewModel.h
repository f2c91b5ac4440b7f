#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tessara::models {

/// Where the view's controls stand and what it paints between them, as areas and lines, and a plain array of
/// pixels to paint these into.
///
/// Halves are those of C++'s integers. Read here where a client area is too small: what would have no width
/// or height has no pixel, and a line whose end is left of or above its start runs that way, its start
/// included and its end not.
struct CViewModel {
    int cx = 0;
    int cy = 0;
    int h = 0; ///< the text's height
    int nButtonWidth = 0;
    int nButtonHeight = 0;

    struct CArea {
        int nLeft, nTop, nRight, nBottom;
        bool operator==(const CArea&) const = default;
    };
    enum class EColour { Untouched, Face, DarkShadow, Shadow, Highlight };
    struct CLine {
        EColour eColour;
        int x1, y1, x2, y2;
    };
    struct CControls {
        CArea title, inputTitle, outputTitle, inputList, outputList, button;
    };

    CControls Controls() const {
        const int nHalf = cx / 2;
        const int nListHeight = cy - 12 - (2 * h + 8);
        return {Placed(0, 0, cx, h + 4),
                Placed(0, h + 10, nHalf - 3, h + 4),
                Placed(nHalf + 3, h + 10, nHalf - 3, h + 4),
                Placed(0, 2 * h + 20, nHalf - 3, nListHeight),
                Placed(nHalf + 3, 2 * h + 20, nHalf - 3, nListHeight),
                Placed((cx - nButtonWidth) / 2, 16, nButtonWidth, nButtonHeight)};
    }

    std::array<CArea, 3> Bands() const {
        const int m = cx / 2;
        return {{{0, h + 4, cx, h + 10}, {m - 3, h + 10, m + 3, cy}, {0, 2 * h + 14, cx, 2 * h + 20}}};
    }

    std::vector<CLine> Lines() const {
        using enum EColour;
        const int m = cx / 2;
        return {{DarkShadow, 0, h + 9, m - 3, h + 9},
                {DarkShadow, m + 3, h + 9, cx, h + 9},
                {DarkShadow, 0, 2 * h + 19, m - 3, 2 * h + 19},
                {DarkShadow, m + 3, 2 * h + 19, cx, 2 * h + 19},
                {DarkShadow, m + 2, h + 9, m + 2, 2 * h + 14},
                {DarkShadow, m + 2, 2 * h + 19, m + 2, cy},
                {Shadow, 0, h + 8, m - 2, h + 8},
                {Shadow, m + 1, h + 8, cx, h + 8},
                {Shadow, 0, 2 * h + 18, m - 2, 2 * h + 18},
                {Shadow, m + 1, 2 * h + 18, cx, 2 * h + 18},
                {Shadow, m + 1, h + 8, m + 1, 2 * h + 15},
                {Shadow, m + 1, 2 * h + 18, m + 1, cy},
                {Highlight, 0, h + 5, cx, h + 5},
                {Highlight, 0, 2 * h + 15, m - 2, 2 * h + 15},
                {Highlight, m + 1, 2 * h + 15, cx, 2 * h + 15},
                {Highlight, m - 2, h + 8, m - 2, 2 * h + 15},
                {Highlight, m - 2, 2 * h + 18, m - 2, cy}};
    }

    /// The pixels, row by row; later operations over earlier ones, nothing beyond the client area.
    std::vector<EColour> Pixels() const {
        std::vector<EColour> pixels(static_cast<std::size_t>(cx) * static_cast<std::size_t>(cy));
        const auto set = [&](int x, int y, EColour eColour) {
            if (x >= 0 && x < cx && y >= 0 && y < cy) {
                pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(cx) +
                       static_cast<std::size_t>(x)] = eColour;
            }
        };
        for (const CArea& band : Bands()) {
            for (int y = band.nTop; y < band.nBottom; ++y) {
                for (int x = band.nLeft; x < band.nRight; ++x) {
                    set(x, y, EColour::Face);
                }
            }
        }
        for (const CLine& line : Lines()) {
            const int dx = (line.x2 > line.x1) - (line.x2 < line.x1);
            const int dy = (line.y2 > line.y1) - (line.y2 < line.y1);
            for (int x = line.x1, y = line.y1; x != line.x2 || y != line.y2; x += dx, y += dy) {
                set(x, y, line.eColour);
            }
        }
        return pixels;
    }

    static bool Contains(const CArea& area, int x, int y) {
        return x >= area.nLeft && x < area.nRight && y >= area.nTop && y < area.nBottom;
    }

private:
    static CArea Placed(int x, int y, int nWidth, int nHeight) {
        return {x, y, x + std::max(0, nWidth), y + std::max(0, nHeight)};
    }
};

} // namespace tessara::models
