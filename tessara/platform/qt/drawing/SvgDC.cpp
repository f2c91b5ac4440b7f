#include "tessara/platform/gdi/SvgDC.h"

#include <QSvgGenerator>

#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/drawing/PageSink.h"

IMPLEMENT_DYNAMIC(CSvgDC, CDC)

namespace tessara {

/// The picture of one surface.
class CSvgSink : public CPageSink<QSvgGenerator> {
public:
    using CPageSink::CPageSink;
};

} // namespace tessara

namespace {

using tessara::CSvgSink;

std::unique_ptr<CSvgSink> MakeSink(double dWidthMm, double dHeightMm) {
    tessara::EnsureApplication();
    const tessara::CDeviceCaps caps = tessara::PageCaps(dWidthMm, dHeightMm);
    auto pBuffer = std::make_unique<QBuffer>();
    pBuffer->open(QIODevice::WriteOnly);
    auto pGenerator = std::make_unique<QSvgGenerator>();
    pGenerator->setOutputDevice(pBuffer.get());
    pGenerator->setResolution(tessara::PAGE_DOTS_PER_INCH);
    pGenerator->setSize(QSize(caps.size.cx, caps.size.cy));
    pGenerator->setViewBox(QRect(0, 0, caps.size.cx, caps.size.cy));
    pGenerator->setTitle("Plot");
    pGenerator->setDescription("");
    auto pSink = std::make_unique<CSvgSink>(
        tessara::CPageDevice<QSvgGenerator>{std::move(pBuffer), std::move(pGenerator)}, caps);
    // Black text is to be read on a dark page of a browser, too.
    pSink->GetPainter().fillRect(0, 0, caps.size.cx, caps.size.cy, Qt::white);
    return pSink;
}

/// Where the serif family is not installed, its metric equals keep the layout.
QByteArray NameFallbackFonts(QByteArray svg) {
    svg.replace("font-family=\"Liberation Serif\"",
                "font-family=\"'Liberation Serif', 'Times New Roman', Times, serif\"");
    svg.replace("font-family=\"Standard Symbols PS\"",
                "font-family=\"'Standard Symbols PS', 'Liberation Serif', 'Times New Roman', Times, serif\"");
    return svg;
}

} // namespace

CSvgDC::CSvgDC(const char* pszPath, double dWidthMm, double dHeightMm) : m_strPath(pszPath) {
    auto pPicture = MakeSink(dWidthMm, dHeightMm);
    m_pPicture = pPicture.get();
    Attach(std::move(pPicture));
    SetBkMode(TRANSPARENT);
    const SIZE size = GetSink()->GetCaps().size;
    m_rcClient = {0, 0, size.cx, size.cy};
}

CSvgDC::~CSvgDC() = default;

RECT CSvgDC::GetClientRect() const {
    return m_rcClient;
}

void CSvgDC::Close() {
    const std::unique_ptr<tessara::CDrawSink> pSink = Detach();
    if (auto* const pPicture = std::exchange(m_pPicture, nullptr)) {
        tessara::WriteFile(m_strPath, NameFallbackFonts(pPicture->Finish()));
    }
}
