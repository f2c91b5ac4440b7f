#include "tessara/platform/gdi/PrinterDC.h"

#include <QPrinter>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/Application.h"
#include "tessara/platform/qt/PageSink.h"

IMPLEMENT_DYNAMIC(CPrinterDC, CDC)

namespace {

using CPrinterSink = tessara::CPageSink<QPrinter>;

std::unique_ptr<QPrinter> MakePrinter(const char* pszTitle, const char* pszFileName, bool bMonochrome) {
    tessara::EnsureApplication();
    auto pPrinter = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (pszFileName) {
        pPrinter->setOutputFormat(QPrinter::PdfFormat);
        pPrinter->setOutputFileName(QString::fromLocal8Bit(pszFileName));
    }
    pPrinter->setDocName(QString::fromUtf8(pszTitle));
    pPrinter->setPageSize(QPageSize(QPageSize::A4));
    pPrinter->setPageOrientation(QPageLayout::Landscape);
    pPrinter->setColorMode(bMonochrome ? QPrinter::GrayScale : QPrinter::Color);
    return pPrinter;
}

tessara::CDeviceCaps PrinterCaps(const QPrinter& printer, bool bMonochrome) {
    tessara::CDeviceCaps caps;
    caps.dDotsPerInchX = printer.logicalDpiX();
    caps.dDotsPerInchY = printer.logicalDpiY();
    caps.size = {printer.width(), printer.height()};
    caps.nColors = bMonochrome ? 2 : caps.nColors;
    caps.bPrinting = true;
    return caps;
}

} // namespace

CPrinterDC::CPrinterDC(const char* pszTitle, const char* pszFileName, ColorMode eColors) {
    const bool bMonochrome = eColors == blackAndWhite;
    std::unique_ptr<QPrinter> pPrinter = MakePrinter(pszTitle, pszFileName, bMonochrome);
    const tessara::CDeviceCaps caps = PrinterCaps(*pPrinter, bMonochrome);
    auto pSink =
        std::make_unique<CPrinterSink>(tessara::CPageDevice<QPrinter>{nullptr, std::move(pPrinter)}, caps);
    if (!pSink->GetPainter().isActive()) {
        AfxThrowFileException(CFileException::accessDenied, -1, pszFileName);
    }
    m_rcClient = {0, 0, caps.size.cx, caps.size.cy};
    Attach(std::move(pSink));
}

CPrinterDC::~CPrinterDC() = default;

RECT CPrinterDC::GetClientRect() const {
    return m_rcClient;
}

BOOL CPrinterDC::NewPage() {
    auto* pSink = static_cast<CPrinterSink*>(GetSink());
    return pSink && pSink->GetDevice().newPage();
}

void CPrinterDC::Close() {
    Detach();
}
