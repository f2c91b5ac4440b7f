#pragma once

#include <optional>
#include <vector>

#include "cli/ColumnFile.h"
#include "cli/PlotData.h"
#include "cli/PlotOptions.h"
#include "cli/PlotScales.h"
#include "tessara/curveplot/OutputCurve.h"

namespace tessara {

/// How the files of curves are read. Throws CException for an option that cannot be used.
COLUMNFORMAT CurveFormatOf(const PLOTOPTIONS& options);

/// What a plot is made from: files of curves, and one of markers.
struct PLOTSOURCE {
    std::vector<CColumnFile> curves;
    std::optional<CColumnFile> symbols;

    /// Reads the files that the options name, at least one. Throws CException.
    static PLOTSOURCE Read(const PLOTOPTIONS& options);
};

/// Sets up a plot of files as the options have it: data, texts, formats, scales and look, and titles that
/// fit. The options must outlive the object.
class CPlotSetup {
public:
    /// Throws CException, naming the option, for a scale or a format that cannot be used.
    explicit CPlotSetup(const PLOTOPTIONS& options);
    /// With scales in the place of those in the options.
    CPlotSetup(const PLOTOPTIONS& options, const CPlotScales& scales);

    /// What the scales show of the data.
    PLOTWINDOW GetWindow() const { return m_Scales.GetWindow(); }
    /// The plot shows the data, which must outlive that. Throws CException when it refuses a scale.
    void ApplyTo(COutputCurve& plot, const CPlotData& data) const;
    /// Cuts the titles that come from the data to the room that caption and legend leave.
    void FitTitles(COutputCurve& plot, const CPlotData& data) const;
    /// Whether the room beside the plot is needed: for a legend, or for longer titles of the axes.
    static bool NeedsSideRoom(const COutputCurve& plot, const CPlotData& data);

private:
    void SetTexts(COutputCurve& plot, const CPlotData& data) const;
    void SetFormats(COutputCurve& plot) const;
    void SetLook(COutputCurve& plot, const CPlotData& data) const;

    const PLOTOPTIONS& m_Options;
    CPlotScales m_Scales;
};

} // namespace tessara
