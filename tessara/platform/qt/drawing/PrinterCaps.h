#pragma once

#include <QPdfWriter>
#include <QPrinter>
#include <memory>

#include "tessara/platform/gdi/DrawSink.h"

namespace tessara {

/// A printer at its highest resolution, landscape A4, or a PDF of that name.
std::unique_ptr<QPrinter> MakePrinter(const QString& strFileName);

/// What takes the place of a printer that would print into a file: pages of the same layout, resolution and
/// title in a buffer. A printer writes files by itself, and says nothing when the disk is full.
std::unique_ptr<QPdfWriter> MakePrintFile(const QPrinter& printer, QIODevice& buffer);

/// The printable area of a printer or of what takes its place, and the printer's colours.
CDeviceCaps PrinterCaps(const QPagedPaintDevice& pages, QPrinter::ColorMode eColors);

} // namespace tessara
