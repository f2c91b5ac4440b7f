#pragma once

#include <string>

#include "tessara/platform/gdi/DC.h"

namespace tessara {
class CPagedSink;
}

/// A surface that becomes a PDF file of one page. Text stays text, fonts are embedded. The page has no ground
/// of its own: it is as white as the paper, or what a program that places the page elsewhere has under it.
/// Text has a transparent background (CDC). This is a picture, not a printer: IsPrinting is false.
///
///     CPdfDC dc("plot.pdf", 160, 115);
///     plot.Paint(&dc, dc.GetClientRect(), nullptr);
///     dc.Close();
class TESSARA_API CPdfDC : public CDC {
    DECLARE_DYNAMIC(CPdfDC)

public:
    /// Size in millimetres, positive. Nothing is written before Close. Throws CGraphicsException as CDC says.
    CPdfDC(const char* pszPath, double dWidthMm, double dHeightMm);
    ~CPdfDC() override;

    RECT GetClientRect() const; ///< the whole page in device units (1200 per inch)
    /// Finishes the page and writes the file. Throws CFileException; the file is then as it
    /// was. Further drawing does nothing.
    void Close();

private:
    std::string m_strPath;
    tessara::CPagedSink* m_pPage = nullptr; ///< the sink, until Close
    RECT m_rcClient{0, 0, 0, 0};
};
