#include <QApplication>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/drawing/PainterSink.h"
#include "tessara/platform/qt/drawing/PrinterCaps.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/frames/PrintSeam.h"

namespace tessara {

namespace {

QWidget* WidgetOf(HWND hWnd) {
    CPeer* const pPeer = CPeer::Find(hWnd);
    return pPeer ? &pPeer->GetWidget() : QApplication::activeWindow();
}

/// Draws on a printer that somebody else has.
class CPrinterSink : public CPainterSink {
public:
    explicit CPrinterSink(QPrinter& printer) : CPainterSink(printer, PrinterCaps(printer), Style::vector) {}
};

/// Prints on a printer of the user's, into a file, or on the pages of a preview.
class CQtPrintTarget : public CPrintTarget {
public:
    explicit CQtPrintTarget(std::unique_ptr<QPrinter> pPrinter)
        : m_pOwned(std::move(pPrinter)), m_printer(*m_pOwned) {}
    explicit CQtPrintTarget(QPrinter& printer) : m_printer(printer) {}

    bool Ask(CPrintInfo& info, HWND hOwner) override;
    std::unique_ptr<CDrawSink> Start(const CString& strTitle) override;
    bool NewPage() override { return m_printer.newPage(); }

private:
    std::unique_ptr<QPrinter> m_pOwned;
    QPrinter& m_printer;
};

bool CQtPrintTarget::Ask(CPrintInfo& info, HWND hOwner) {
    if (!CanMakeWindows()) {
        return false;
    }
    const CPeer::CEventScope scope;
    QPrintDialog dialog(&m_printer, WidgetOf(hOwner));
    const bool bKnown = info.GetMaxPage() != CPrintInfo::UNKNOWN_PAGE;
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, bKnown);
    if (bKnown) {
        dialog.setMinMax(static_cast<int>(info.GetMinPage()), static_cast<int>(info.GetMaxPage()));
    }
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    if (dialog.printRange() == QAbstractPrintDialog::PageRange && dialog.fromPage() > 0) {
        info.m_nFromPage = static_cast<UINT>(dialog.fromPage());
        info.m_nToPage = static_cast<UINT>(std::max(dialog.fromPage(), dialog.toPage()));
    }
    return true;
}

std::unique_ptr<CDrawSink> CQtPrintTarget::Start(const CString& strTitle) {
    m_printer.setDocName(ToQString(strTitle.View()));
    auto pSink = std::make_unique<CPrinterSink>(m_printer);
    if (!pSink->GetPainter().isActive()) {
        AfxThrowFileException(CFileException::accessDenied, -1, m_printer.outputFileName().toLocal8Bit());
    }
    return pSink;
}

} // namespace

std::unique_ptr<CPrintTarget> MakePrintTarget(const CString& strFileName) {
    return std::make_unique<CQtPrintTarget>(
        MakePrinter(QString::fromLocal8Bit(static_cast<const char*>(strFileName))));
}

void ShowPreview(HWND hOwner, const std::function<void(std::unique_ptr<CPrintTarget>)>& fnPrint) {
    if (!CanMakeWindows()) {
        return;
    }
    EnsureMainPump();
    const CPeer::CEventScope scope;
    const auto pPrinter = MakePrinter({});
    QPrintPreviewDialog dialog(pPrinter.get(), WidgetOf(hOwner));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* pPages) {
        try {
            fnPrint(std::make_unique<CQtPrintTarget>(*pPages));
        } catch (const std::exception& exception) {
            AfxMessageBox(exception.what(), MB_OK | MB_ICONEXCLAMATION);
        }
    });
    dialog.exec();
}

} // namespace tessara
