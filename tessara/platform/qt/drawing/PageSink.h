#pragma once

#include <QBuffer>
#include <QPagedPaintDevice>
#include <memory>
#include <string>

#include "tessara/platform/qt/drawing/PainterSink.h"

namespace tessara {

/// Device units per inch of pages in files: fine enough that no rounding shows.
constexpr int PAGE_DOTS_PER_INCH = 1200;

/// The caps of a page of that size in millimetres. Throws CInvalidArgException for a size that is not
/// positive and finite or exceeds ten metres.
CDeviceCaps PageCaps(double dWidthMm, double dHeightMm);

/// A Qt paint device and the buffer that it writes into; a printer has none.
template <class DEVICE>
struct CPageDevice {
    std::unique_ptr<QBuffer> pBuffer;
    std::unique_ptr<DEVICE> pDevice;
};

/// A page and the painter that draws on it.
template <class DEVICE>
class CPageSink : private CPageDevice<DEVICE>, public CPainterSink {
public:
    CPageSink(CPageDevice<DEVICE> page, const CDeviceCaps& caps)
        : CPageDevice<DEVICE>(std::move(page)), CPainterSink(*this->pDevice, caps, Style::vector) {}

    DEVICE& GetDevice() { return *this->pDevice; }
    /// Ends painting and hands over what was written: nothing by a device without a buffer.
    QByteArray Finish() {
        EndPainting();
        return this->pBuffer ? this->pBuffer->data() : QByteArray();
    }
};

/// Pages of a PDF or a printer. A name of its own, so that public headers can speak of it.
class CPagedSink : public CPageSink<QPagedPaintDevice> {
public:
    using CPageSink::CPageSink;
};

/// Writes a file, which is whole or, after a CFileException, as it was.
void WriteFile(const std::string& strPath, const QByteArray& bytes);

} // namespace tessara
