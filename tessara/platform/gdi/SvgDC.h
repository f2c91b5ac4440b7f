#pragma once

#include <string>

#include "tessara/platform/gdi/DC.h"

namespace tessara {
class CSvgSink;
}

/// A surface that becomes an SVG file, filled with white as an image is. Text stays text, in Liberation Serif
/// or its metric equals, and has a transparent background (CDC).
///
///     CSvgDC dc("plot.svg", 160, 115);
///     plot.Paint(&dc, dc.GetClientRect(), nullptr);
///     dc.Close();
class TESSARA_API CSvgDC : public CDC {
    DECLARE_DYNAMIC(CSvgDC)

public:
    /// Size in millimetres, positive. Nothing is written before Close. Throws CGraphicsException as CDC says.
    CSvgDC(const char* pszPath, double dWidthMm, double dHeightMm);
    ~CSvgDC() override;

    RECT GetClientRect() const; ///< the whole picture in device units (1200 per inch)
    /// Finishes the picture and writes the file. Throws CFileException; the file is then as it
    /// was. Further drawing does nothing.
    void Close();

private:
    std::string m_strPath;
    tessara::CSvgSink* m_pPicture = nullptr; ///< the sink, until Close
    RECT m_rcClient{0, 0, 0, 0};
};
