#include "cli/view/ShownPlot.h"

#include <algorithm>

#include "cli/DiagramFile.h"
#include "cli/PlotSetup.h"
#include "cli/TextFile.h"
#include "cli/view/ShownCurvePlot.h"
#include "cli/view/ShownDiagram.h"

namespace tessara {

namespace {

/// Formats that show volume fractions as well as temperatures.
constexpr const char* READ_OUT_FORMAT = "%.6lg";

bool IsDiagram(const std::string& strText) {
    const std::size_t nFirst = strText.find_first_not_of(" \t\r\n");
    return nFirst != std::string::npos && strText[nFirst] == '{';
}

std::unique_ptr<CShownPlot> OpenDiagram(const std::string& strText, const std::string& strPath) {
    DIAGRAM diagram = ParseDiagram(strText, strPath);
    diagram.name = diagram.name.value_or(FileStem(strPath));
    diagram.x.format = diagram.x.format.value_or(READ_OUT_FORMAT);
    diagram.y.format = diagram.y.format.value_or(READ_OUT_FORMAT);
    return std::make_unique<CShownDiagram>(std::move(diagram));
}

std::unique_ptr<CShownPlot> OpenCurves(const std::string& strText, const CViewSource& source) {
    PLOTOPTIONS options;
    options.files = {source.strPath};
    options.columns = source.columns;
    options.delimiter = source.delimiter;
    options.functionFormat = READ_OUT_FORMAT;
    options.argumentFormat = READ_OUT_FORMAT;
    CColumnFile file = CColumnFile::Parse(strText, source.strPath, CurveFormatOf(options));
    if (source.bSort) {
        file.Sort();
    }
    if (!file.GetAbscissa().strName.empty()) {
        options.argumentName = file.GetAbscissa().strName;
    }
    return std::make_unique<CShownCurvePlot>(std::move(options), PLOTSOURCE{{std::move(file)}, std::nullopt});
}

} // namespace

bool CShownPlot::Follow(CShownPlot&) {
    return false;
}

std::optional<EReadOut> CShownPlot::GetReadOut() const {
    const auto* const pShown = std::find_if(std::begin(READ_OUTS), std::end(READ_OUTS),
                                            [this](EReadOut eReadOut) { return IsReadOutVisible(eReadOut); });
    return pShown == std::end(READ_OUTS) ? std::nullopt : std::optional(*pShown);
}

std::unique_ptr<CShownPlot> CShownPlot::OpenSection(int, std::unique_ptr<CTable>) const {
    return nullptr;
}

std::unique_ptr<CShownPlot> OpenShownPlot(const CViewSource& source) {
    const std::string strText = ReadTextFile(source.strPath);
    return IsDiagram(strText) ? OpenDiagram(strText, source.strPath) : OpenCurves(strText, source);
}

} // namespace tessara
