#pragma once

#include <cstddef>
#include <cstdint>

#include "tessara/platform/gdi/DC.h"

namespace tessara {
class CImageSink;
}

/// The pixels of an image in memory: 32 bits each, the number 0xRRGGBB in the machine's byte order; the
/// highest byte means nothing. Rows stand from the top down, pixels in a row from the left, without gaps.
struct IMAGEPIXELS {
    const std::uint32_t* pFirst; ///< the pixel at (0, 0)
    std::ptrdiff_t nStride;      ///< bytes from a row to the next
    int nWidth;                  ///< pixels in a row
    int nHeight;                 ///< rows
};

/// A surface that is an image in memory, filled with white. Its text has a transparent background (CDC).
///
/// Lines are drawn without antialiasing in exactly the pen's colour, so pixels tell what was drawn there;
/// text is smooth. A smooth image antialiases slanted lines and curves as well: for pictures that are only
/// looked at.
///
///     CImageDC dc(800, 575);
///     plot.Paint(&dc, dc.GetClientRect(), nullptr);
///     dc.SavePng("plot.png");
class TESSARA_API CImageDC : public CDC {
    DECLARE_DYNAMIC(CImageDC)

public:
    /// Size in pixels, at least 1 each; resolution as tessara::HoldResolution holds it. Throws
    /// CMemoryException when there is no memory for the image, CGraphicsException as CDC says.
    CImageDC(int nWidth, int nHeight, double dDotsPerInch = 96);
    ~CImageDC() override;

    /// From now on draws slanted lines and curves antialiased, or not. DEFAULT: not.
    void SetSmooth(bool bSmooth);
    /// The whole image in pixels.
    RECT GetClientRect() const;
    /// The pixels themselves, for a program that shows the image by means of its own. They lie where they are
    /// as long as the surface lives and follow what is drawn; only the surface may change them.
    ///
    ///     const IMAGEPIXELS pixels = dc.GetPixels();
    ///     const auto* const pRow = reinterpret_cast<const std::byte*>(pixels.pFirst) + y * pixels.nStride;
    IMAGEPIXELS GetPixels() const;
    /// Writes the image as PNG, with its resolution; as a palette image when it has at most 256 colours.
    /// Throws CFileException; the file is then as it was.
    void SavePng(const char* pszPath) const;

private:
    tessara::CImageSink* m_pImage; ///< the sink
};
