#pragma once

#include <vector>

#include "cli/PlotOptions.h"
#include "cli/PlotSetup.h"
#include "examples/flory/program/MeasuredFile.h"

namespace flory {

/// The picture of a fit: the points as measured and, over their range, the curve. chi, or with c the part of
/// it that does not depend on the composition, over the temperature; or the temperature over the polymer
/// fraction or over the root of 1/N.
///
/// Temperatures are in the unit of the file.
class CFitPlot {
public:
    CFitPlot(const CMeasuredFile& measured, const CInteractionFit& fit, const CSolutionArguments& solution);

    /// What `tessara plot` draws from.
    const tessara::PLOTSOURCE& Source() const { return m_source; }
    /// The titles, where the options have none.
    void SetTitles(tessara::PLOTOPTIONS& options) const;
    /// The curve as a file of columns, with the note as comments.
    std::string CurveText(const std::vector<std::string>& note) const;

private:
    void AddCurvePoint(double dX, double dY);
    void AddChi(const CInteractionFit& fit, double dFirst, double dLast);
    void AddTemperatures(const CInteractionFit& fit, const CSolutionArguments& solution, double dFirst,
                         double dLast);

    const CMeasuredFile& m_measured;
    bool m_bComposition;
    std::vector<double> m_x;
    std::vector<double> m_y;
    tessara::PLOTSOURCE m_source;
};

} // namespace flory
