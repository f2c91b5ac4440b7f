#include "tessara/platform/gdi/Bitmap.h"

IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)

namespace tessara {

CPixels CutOut(const CPixels& pixels, const RECT& part) {
    const LONG nWidth = part.right - part.left;
    const LONG nHeight = part.bottom - part.top;
    CPixels cut{{nWidth, nHeight}, {}};
    cut.colors.reserve(static_cast<std::size_t>(nWidth) * static_cast<std::size_t>(nHeight));
    for (LONG y = 0; y < nHeight; ++y) {
        const auto nFrom = static_cast<std::size_t>(part.top + y) * static_cast<std::size_t>(pixels.size.cx) +
                           static_cast<std::size_t>(part.left);
        const auto itFrom = pixels.colors.begin() + static_cast<std::ptrdiff_t>(nFrom);
        cut.colors.insert(cut.colors.end(), itFrom, itFrom + nWidth);
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
