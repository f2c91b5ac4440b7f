#include "tessara/plot/PlotMap.h"

#include <cmath>

#include "tessara/platform/gdi/PolylineReduction.h"

namespace tessara {

bool IsDrawable(double dX, double dY) {
    return std::isfinite(dX) && std::isfinite(dY);
}

void MapPolyline(const CPlotMap& map, const double* pX, const double* pY, int nPoints,
                 std::vector<POINT>& buffer, const std::function<void(std::span<POINT>)>& emit) {
    buffer.clear();
    const auto flush = [&] {
        if (!buffer.empty()) {
            emit(std::span<POINT>(buffer).first(MergeColumns(buffer)));
            buffer.clear();
        }
    };
    for (int i = 0; i < nPoints; ++i) {
        if (IsDrawable(pX[i], pY[i])) {
            buffer.push_back(map.Map(pX[i], pY[i]));
        } else {
            flush();
        }
    }
    flush();
}

} // namespace tessara
