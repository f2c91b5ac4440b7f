#include "tessara/platform/gdi/PrinterDC.h"

#include <QFile>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/drawing/PageSink.h"
#include "tessara/platform/qt/drawing/PrinterCaps.h"
#include "tessara/platform/qt/windows/Peer.h"

IMPLEMENT_DYNAMIC(CPrinterDC, CDC)

namespace tessara {

std::unique_ptr<QPrinter> MakePrinter(const QString& strFileName) {
    EnsureApplication();
    auto pPrinter = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!strFileName.isEmpty()) {
        pPrinter->setOutputFormat(QPrinter::PdfFormat);
        pPrinter->setOutputFileName(strFileName);
    }
    pPrinter->setPageSize(QPageSize(QPageSize::A4));
    pPrinter->setPageOrientation(QPageLayout::Landscape);
    return pPrinter;
}

std::unique_ptr<QPdfWriter> MakePrintFile(const QPrinter& printer, QIODevice& buffer) {
    auto pWriter = std::make_unique<QPdfWriter>(&buffer);
    pWriter->setResolution(printer.resolution());
    pWriter->setPageLayout(printer.pageLayout());
    pWriter->setTitle(printer.docName());
    pWriter->setCreator("Tessara");
    return pWriter;
}

CDeviceCaps PrinterCaps(const QPagedPaintDevice& pages, QPrinter::ColorMode eColors) {
    CDeviceCaps caps;
    caps.dDotsPerInchX = pages.logicalDpiX();
    caps.dDotsPerInchY = pages.logicalDpiY();
    caps.size = {pages.width(), pages.height()};
    caps.nColors = eColors == QPrinter::GrayScale ? 2 : caps.nColors;
    caps.bPrinting = true;
    return caps;
}

namespace {

CPageDevice<QPagedPaintDevice> MakePages(const QString& strTitle, const std::string& strPath) {
    std::unique_ptr<QPrinter> pPrinter = MakePrinter(QFile::decodeName(QByteArray::fromStdString(strPath)));
    pPrinter->setDocName(strTitle);
    if (strPath.empty()) {
        return {nullptr, std::move(pPrinter)};
    }
    auto pBuffer = std::make_unique<QBuffer>();
    pBuffer->open(QIODevice::WriteOnly);
    auto pWriter = MakePrintFile(*pPrinter, *pBuffer);
    return {std::move(pBuffer), std::move(pWriter)};
}

} // namespace

} // namespace tessara

CPrinterDC::CPrinterDC(const char* pszTitle, const char* pszFileName, ColorMode eColors)
    : m_strPath(pszFileName ? pszFileName : "") {
    const QString strTitle = tessara::ToQString(pszTitle ? pszTitle : "");
    const auto eInk = eColors == blackAndWhite ? QPrinter::GrayScale : QPrinter::Color;
    auto pages = tessara::MakePages(strTitle, m_strPath);
    if (auto* const pPrinter = dynamic_cast<QPrinter*>(pages.pDevice.get())) {
        pPrinter->setColorMode(eInk);
    }
    const tessara::CDeviceCaps caps = tessara::PrinterCaps(*pages.pDevice, eInk);
    auto pPages = std::make_unique<tessara::CPagedSink>(std::move(pages), caps);
    if (!pPages->GetPainter().isActive()) {
        AfxThrowFileException(CFileException::accessDenied, -1, m_strPath.c_str());
    }
    m_rcClient = {0, 0, caps.size.cx, caps.size.cy};
    m_pPages = pPages.get();
    Attach(std::move(pPages));
    SetBkMode(TRANSPARENT);
}

CPrinterDC::~CPrinterDC() = default;

RECT CPrinterDC::GetClientRect() const {
    return m_rcClient;
}

BOOL CPrinterDC::NewPage() {
    return m_pPages && m_pPages->GetDevice().newPage();
}

void CPrinterDC::Close() {
    const std::unique_ptr<tessara::CDrawSink> pSink = Detach();
    if (auto* const pPages = std::exchange(m_pPages, nullptr)) {
        const QByteArray bytes = pPages->Finish();
        if (!m_strPath.empty()) {
            tessara::WriteFile(m_strPath, bytes);
        }
    }
}
