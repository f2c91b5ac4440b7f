#include "tessara/plot/TickLabel.h"

#include "tessara/platform/base/Number.h"

namespace tessara {

std::string TickLabel(double dValue) {
    return FormatText("%lg", dValue);
}

int GetDigitHeight(const CCanvas& canvas) {
    return canvas.Measure("0123456789.").cy;
}

} // namespace tessara
