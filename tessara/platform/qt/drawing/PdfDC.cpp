#include "tessara/platform/gdi/PdfDC.h"

#include <QPageLayout>
#include <QPdfWriter>

#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/drawing/PageSink.h"

IMPLEMENT_DYNAMIC(CPdfDC, CDC)

namespace {

std::unique_ptr<tessara::CPagedSink> MakeSink(double dWidthMm, double dHeightMm) {
    tessara::EnsureApplication();
    const tessara::CDeviceCaps caps = tessara::PageCaps(dWidthMm, dHeightMm);
    auto pBuffer = std::make_unique<QBuffer>();
    pBuffer->open(QIODevice::WriteOnly);
    auto pWriter = std::make_unique<QPdfWriter>(pBuffer.get());
    pWriter->setResolution(tessara::PAGE_DOTS_PER_INCH);
    pWriter->setPageSize(
        QPageSize(QSizeF(dWidthMm, dHeightMm), QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    pWriter->setPageMargins(QMarginsF());
    pWriter->setCreator("Tessara");
    return std::make_unique<tessara::CPagedSink>(
        tessara::CPageDevice<QPagedPaintDevice>{std::move(pBuffer), std::move(pWriter)}, caps);
}

} // namespace

CPdfDC::CPdfDC(const char* pszPath, double dWidthMm, double dHeightMm) : m_strPath(pszPath) {
    auto pPage = MakeSink(dWidthMm, dHeightMm);
    m_pPage = pPage.get();
    Attach(std::move(pPage));
    SetBkMode(TRANSPARENT);
    const SIZE size = GetSink()->GetCaps().size;
    m_rcClient = {0, 0, size.cx, size.cy};
}

CPdfDC::~CPdfDC() = default;

RECT CPdfDC::GetClientRect() const {
    return m_rcClient;
}

void CPdfDC::Close() {
    const std::unique_ptr<tessara::CDrawSink> pSink = Detach();
    if (auto* const pPage = std::exchange(m_pPage, nullptr)) {
        tessara::WriteFile(m_strPath, pPage->Finish());
    }
}
