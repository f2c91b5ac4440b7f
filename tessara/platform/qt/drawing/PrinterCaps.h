#pragma once

#include <QPrinter>
#include <memory>

#include "tessara/platform/gdi/DrawSink.h"

namespace tessara {

/// A printer at its highest resolution, landscape A4, or a PDF of that name.
std::unique_ptr<QPrinter> MakePrinter(const QString& strFileName);
/// The printable area and colours of a printer.
CDeviceCaps PrinterCaps(const QPrinter& printer);

} // namespace tessara
