#include "cli/PlotCommand.h"

#include "cli/Picture.h"
#include "cli/PlotSetup.h"

namespace tessara {

void RunPlot(const PLOTOPTIONS& options) {
    const CPictureSize size(options.strSize, options.dDotsPerInch);
    FormatOfFile(options.strOutput);
    const CPlotSetup setup(options);
    const PLOTSOURCE source = PLOTSOURCE::Read(options);
    const CPlotData data(source.curves, source.symbols, setup.GetWindow());
    COutputCurve plot;
    setup.ApplyTo(plot, data);
    DrawOutput(plot, size, options.strOutput);
}

} // namespace tessara
