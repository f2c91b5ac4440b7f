#include "cli/Picture.h"

#include <algorithm>

#include "cli/InputError.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/ReplacementFile.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/SvgDC.h"

namespace tessara {

namespace {

template <class DC>
void Paint(const DRAWING& drawing, DC& dc) {
    if (!drawing.paint(dc, dc.GetClientRect())) {
        AfxThrowMemoryException();
    }
}

void DrawPng(const DRAWING& drawing, const CPictureSize& size, const char* pszPath) {
    CImageDC dc(size.GetWidth(), size.GetHeight(), size.GetDotsPerInch());
    dc.SetSmooth(true);
    Paint(drawing, dc);
    dc.SavePng(pszPath);
}

/// A format that is written while it is drawn.
template <class DC>
void DrawPage(const DRAWING& drawing, const CPictureSize& size, const char* pszPath) {
    DC dc(pszPath, size.GetWidthMm(), size.GetHeightMm());
    Paint(drawing, dc);
    dc.Close();
}

/// A renderer does not tell why it could not write; another attempt does.
void DrawWmf(const DRAWING& drawing, const CPictureSize& size, const char* pszPath) {
    CImageDC dc(size.GetWidth(), size.GetHeight(), size.GetDotsPerInch());
    if (!drawing.writeMetafile(dc, dc.GetClientRect(), pszPath)) {
        const CReplacementFile attempt(pszPath);
        throw CInputError(pszPath, 0, 0, "cannot be written");
    }
}

void DrawTo(const DRAWING& drawing, const CPictureSize& size, PictureFormat format, const char* pszPath) {
    switch (format) {
    case PictureFormat::Png:
        return DrawPng(drawing, size, pszPath);
    case PictureFormat::Svg:
        return DrawPage<CSvgDC>(drawing, size, pszPath);
    case PictureFormat::Pdf:
        return DrawPage<CPdfDC>(drawing, size, pszPath);
    case PictureFormat::Wmf:
        return DrawWmf(drawing, size, pszPath);
    }
}

} // namespace

PictureFormat FormatOfFile(const std::string& strPath) {
    static constexpr struct {
        const char* pszEnding;
        PictureFormat format;
    } formats[] = {{".png", PictureFormat::Png},
                   {".svg", PictureFormat::Svg},
                   {".pdf", PictureFormat::Pdf},
                   {".wmf", PictureFormat::Wmf}};
    CString strLower(strPath);
    strLower.MakeLower();
    for (const auto& format : formats) {
        if (strLower.View().ends_with(format.pszEnding)) {
            return format.format;
        }
    }
    throw CInputError(strPath, 0, 0, "the name must end with .png, .svg, .pdf or .wmf");
}

void DrawPicture(const DRAWING& drawing, const CPictureSize& size, const std::string& strPath) {
    DrawTo(drawing, size, FormatOfFile(strPath), strPath.c_str());
}

} // namespace tessara
