#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/drawing/PageSink.h"
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

/// Prints on a printer of the user's, into a file, or on the pages of a preview.
class CQtPrintTarget : public CPrintTarget {
public:
    explicit CQtPrintTarget(const CString& strFileName)
        : m_strGiven(strFileName), m_pOwned(MakePrinter(QFile::decodeName(strFileName))),
          m_printer(*m_pOwned) {}
    explicit CQtPrintTarget(QPrinter& printer) : m_printer(printer) {}

    bool Ask(CPrintInfo& info, HWND hOwner) override;
    std::unique_ptr<CDrawSink> Start(const CString& strTitle) override;
    bool NewPage() override { return GetPages().newPage(); }
    void Finish() override;

private:
    /// The file that is printed into, or an empty name. The user may have chosen another in the dialog.
    std::string GetPath() const;
    QPagedPaintDevice& GetPages() { return m_pFile ? static_cast<QPagedPaintDevice&>(*m_pFile) : m_printer; }

    CString m_strGiven;
    std::unique_ptr<QPrinter> m_pOwned;
    QPrinter& m_printer;
    QBuffer m_buffer;
    std::unique_ptr<QPdfWriter> m_pFile; ///< after the buffer that it writes into
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
    if (!GetPath().empty()) {
        m_buffer.open(QIODevice::WriteOnly | QIODevice::Truncate);
        m_pFile = MakePrintFile(m_printer, m_buffer);
    }
    auto pSink = std::make_unique<CPainterSink>(GetPages(), PrinterCaps(GetPages(), m_printer.colorMode()),
                                                CPainterSink::Style::vector);
    if (!pSink->GetPainter().isActive()) {
        AfxThrowFileException(CFileException::accessDenied, -1, m_printer.outputFileName().toLocal8Bit());
    }
    return pSink;
}

std::string CQtPrintTarget::GetPath() const {
    const QString strName = m_printer.outputFileName();
    const bool bGiven = strName == QFile::decodeName(m_strGiven);
    return bGiven ? std::string(m_strGiven.View()) : QFile::encodeName(strName).toStdString();
}

void CQtPrintTarget::Finish() {
    if (m_pFile) {
        WriteFile(GetPath(), m_buffer.data());
    }
}

} // namespace

std::unique_ptr<CPrintTarget> MakePrintTarget(const CString& strFileName) {
    return std::make_unique<CQtPrintTarget>(strFileName);
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
