#pragma once

#include "tessara/platform/gdi/DC.h"

/// A surface that is an image in memory, filled with white.
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
    /// CMemoryException when there is no memory for the image.
    CImageDC(int nWidth, int nHeight, double dDotsPerInch = 96);
    ~CImageDC() override;

    /// From now on draws slanted lines and curves antialiased, or not. DEFAULT: not.
    void SetSmooth(bool bSmooth);
    /// The whole image in pixels.
    RECT GetClientRect() const;
    /// Writes the image as PNG, with its resolution; as a palette image when it has at most 256 colours.
    /// Throws CFileException; the file may then be incomplete.
    void SavePng(const char* pszPath) const;
};
