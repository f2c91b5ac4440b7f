#include "cli/TitleRoom.h"

#include "cli/AxisTitle.h"
#include "tessara/platform/base/Text.h"
#include "tessara/platform/gdi/DC.h"
#include "tessara/plot/IndexedText.h"

namespace tessara {

namespace {

/// Where the plot puts things, in units of the page.
constexpr int TITLE_SIZE = 166;
constexpr int TITLE_LEFT = 284;
constexpr int PLOT_LEFT = 384;
constexpr int PLOT_WIDTH = 4352;
constexpr int PLOT_WIDTH_BESIDE_LEGEND = 3072;
constexpr double CAPTION_CENTRE = 0.6; ///< part of the plot's width
constexpr int POWER_OF_TEN = 420;      ///< what may follow the title, and a gap

int FunctionTitleRoom(const COutputCurve& plot) {
    const int nWidth = plot.m_bShowLegend ? PLOT_WIDTH_BESIDE_LEGEND : PLOT_WIDTH;
    const int nCaption =
        plot.m_bShowCaption ? TitleWidth(PlainIndexedText(plot.m_strCurveName.View()).c_str()) : 0;
    const double dCaptionLeft = PLOT_LEFT + CAPTION_CENTRE * nWidth - nCaption / 2.0;
    const double dEnd = nCaption > 0 ? dCaptionLeft : PLOT_LEFT + nWidth;
    return static_cast<int>(dEnd) - TITLE_LEFT - POWER_OF_TEN;
}

std::string CutToRoom(const std::string& strPlain, int nRoom) {
    std::string strTitle = PlainIndexedText(strPlain);
    for (std::string_view strCut = strPlain; !strCut.empty() && TitleWidth(strTitle.c_str()) > nRoom;) {
        strCut = CutText(strCut, strCut.size() - 1);
        strTitle = PlainIndexedText(std::string(strCut) + "...");
    }
    return strTitle;
}

} // namespace

int TitleWidth(const char* pszIndexedText) {
    CDC dc; // text has the same width on every surface
    RECT rcTitle{};
    GetIndexedTextExtent(&dc, pszIndexedText, TITLE_SIZE, &rcTitle);
    return rcTitle.right;
}

std::string FitFunctionTitle(const COutputCurve& plot, const std::string& strPlain) {
    return CutToRoom(strPlain, FunctionTitleRoom(plot));
}

std::string FitArgumentTitle(const COutputCurve& plot, const std::string& strPlain) {
    const int nLegendRoom = plot.m_bShowLegend ? PLOT_WIDTH - PLOT_WIDTH_BESIDE_LEGEND : 0;
    return CutToRoom(strPlain, NARROW_TITLE_ROOM + nLegendRoom);
}

} // namespace tessara
