#include "tessara/platform/gdi/Bitmap.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)

namespace tessara {

CPixels CutOut(const CPixels& pixels, const RECT& part) {
    CPixels cut;
    cut.size = CRect(part).Size();
    cut.colors.resize(static_cast<std::size_t>(cut.size.cx) * static_cast<std::size_t>(cut.size.cy));
    for (LONG y = 0; y < cut.size.cy; ++y) {
        const auto nFrom = static_cast<std::size_t>(part.top + y) * static_cast<std::size_t>(pixels.size.cx) +
                           static_cast<std::size_t>(part.left);
        std::copy_n(pixels.colors.begin() + static_cast<std::ptrdiff_t>(nFrom), cut.size.cx,
                    cut.colors.begin() + static_cast<std::ptrdiff_t>(y) * cut.size.cx);
    }
    return cut;
}

} // namespace tessara

int CBitmap::GetBitmap(BITMAP* pBitmap) const {
    if (!m_pPixels) {
        return 0;
    }
    constexpr int BYTES = sizeof(std::uint32_t);
    const SIZE size = m_pPixels->size;
    *pBitmap = {0, size.cx, size.cy, size.cx * BYTES, 1, 8 * BYTES, nullptr};
    return sizeof *pBitmap;
}
