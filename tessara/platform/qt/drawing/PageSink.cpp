#include "tessara/platform/qt/drawing/PageSink.h"

#include <cmath>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/ReplacementFile.h"

namespace tessara {

CDeviceCaps PageCaps(double dWidthMm, double dHeightMm) {
    constexpr double MILLIMETRES_PER_INCH = 25.4;
    constexpr double MAX_MILLIMETRES = 10000;
    const auto isUsable = [](double dSize) { return dSize > 0 && dSize <= MAX_MILLIMETRES; };
    if (!isUsable(dWidthMm) || !isUsable(dHeightMm)) {
        AfxThrowInvalidArgException();
    }
    const auto toUnits = [](double dSize) {
        return static_cast<LONG>(std::lround(dSize / MILLIMETRES_PER_INCH * PAGE_DOTS_PER_INCH));
    };
    CDeviceCaps caps;
    caps.dDotsPerInchX = PAGE_DOTS_PER_INCH;
    caps.dDotsPerInchY = PAGE_DOTS_PER_INCH;
    caps.size = {toUnits(dWidthMm), toUnits(dHeightMm)};
    return caps;
}

void WriteFile(const std::string& strPath, const QByteArray& bytes) {
    CReplacementFile file(strPath.c_str());
    file.Write(bytes.constData(), static_cast<UINT>(bytes.size()));
    file.Close();
}

} // namespace tessara
