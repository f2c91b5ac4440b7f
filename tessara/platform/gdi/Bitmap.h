#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "tessara/platform/gdi/GdiObject.h"

namespace tessara {

/// A picture in memory: colours as 0xAARRGGBB, row by row from the top.
struct CPixels {
    SIZE size{0, 0};
    std::vector<std::uint32_t> colors; ///< size.cx * size.cy
};

/// The pixels in a rectangle that lies within the picture.
CPixels CutOut(const CPixels& pixels, const RECT& part);

} // namespace tessara

/// What a bitmap is like.
struct BITMAP {
    LONG bmType;   ///< 0
    LONG bmWidth;  ///< pixels
    LONG bmHeight; ///< pixels
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    void* bmBits; ///< null: the pixels are not handed out
};

/// A bitmap, to be selected into a surface and copied to another with BitBlt.
class TESSARA_API CBitmap : public CGdiObject {
    DECLARE_DYNAMIC(CBitmap)

public:
    /// Loads a bitmap of the resources (Resources.h); a drawing is rendered for the screen's pixel ratio.
    /// Zero when there is none.
    BOOL LoadBitmap(UINT nID);
    /// Describes the bitmap. Returns the size of the description, or 0 without a bitmap.
    int GetBitmap(BITMAP* pBitmap) const;
    /// Null without a bitmap. Surfaces that it is selected into keep it too.
    const std::shared_ptr<const tessara::CPixels>& GetPixels() const { return m_pPixels; }

private:
    std::shared_ptr<const tessara::CPixels> m_pPixels;
};
