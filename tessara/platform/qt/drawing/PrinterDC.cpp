#include "tessara/platform/gdi/PrinterDC.h"

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/drawing/PageSink.h"
#include "tessara/platform/qt/drawing/PrinterCaps.h"

IMPLEMENT_DYNAMIC(CPrinterDC, CDC)

namespace {

using CPrinterSink = tessara::CPageSink<QPrinter>;

} // namespace

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

CDeviceCaps PrinterCaps(const QPrinter& printer) {
    CDeviceCaps caps;
    caps.dDotsPerInchX = printer.logicalDpiX();
    caps.dDotsPerInchY = printer.logicalDpiY();
    caps.size = {printer.width(), printer.height()};
    caps.nColors = printer.colorMode() == QPrinter::GrayScale ? 2 : caps.nColors;
    caps.bPrinting = true;
    return caps;
}

} // namespace tessara

CPrinterDC::CPrinterDC(const char* pszTitle, const char* pszFileName, ColorMode eColors) {
    std::unique_ptr<QPrinter> pPrinter = tessara::MakePrinter(QString::fromLocal8Bit(pszFileName));
    pPrinter->setDocName(QString::fromUtf8(pszTitle));
    pPrinter->setColorMode(eColors == blackAndWhite ? QPrinter::GrayScale : QPrinter::Color);
    const tessara::CDeviceCaps caps = tessara::PrinterCaps(*pPrinter);
    auto pSink =
        std::make_unique<CPrinterSink>(tessara::CPageDevice<QPrinter>{nullptr, std::move(pPrinter)}, caps);
    if (!pSink->GetPainter().isActive()) {
        AfxThrowFileException(CFileException::accessDenied, -1, pszFileName);
    }
    m_rcClient = {0, 0, caps.size.cx, caps.size.cy};
    Attach(std::move(pSink));
    SetBkMode(TRANSPARENT);
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
