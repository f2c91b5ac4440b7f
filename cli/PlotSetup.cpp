#include "cli/PlotSetup.h"

#include "cli/AxisTitle.h"
#include "cli/InputError.h"
#include "cli/TextFile.h"
#include "cli/TitleRoom.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

CColumnChoice ChoiceOf(const char* pszOption, const std::optional<std::string>& list) {
    return list ? CColumnChoice(pszOption, *list) : CColumnChoice();
}

std::optional<CDelimiter> DelimiterOf(const PLOTOPTIONS& options) {
    return options.delimiter ? std::optional(CDelimiter::FromName(*options.delimiter)) : std::nullopt;
}

std::vector<CColumnFile> ReadCurves(const PLOTOPTIONS& options) {
    const COLUMNFORMAT format = CurveFormatOf(options);
    std::vector<CColumnFile> files;
    for (const std::string& strPath : options.files) {
        files.push_back(CColumnFile::Read(strPath, format));
        if (options.bSort) {
            files.back().Sort();
        }
    }
    return files;
}

std::optional<CColumnFile> ReadSymbols(const PLOTOPTIONS& options) {
    if (!options.symbols) {
        return std::nullopt;
    }
    const COLUMNFORMAT format = {DelimiterOf(options), ChoiceOf("--symbols-columns", options.symbolsColumns)};
    return CColumnFile::Read(*options.symbols, format);
}

/// Formats are those of applications; the library would replace a bad one silently.
void CheckFormat(const char* pszOption, const std::optional<std::string>& format) {
    if (format && !FormatAccepts(format->c_str(), "f")) {
        throw CException(std::string(pszOption) + ": " + Quoted(*format) +
                         " is not a printf format for one number");
    }
}

void SetData(COutputCurve& plot, const CPlotData& data) {
    if (data.GetMultiCurve()) {
        plot = data.GetMultiCurve();
    } else {
        plot = data.GetMultipartCurve();
    }
    plot.SetSymbolsCurve(data.GetSymbols());
}

} // namespace

COLUMNFORMAT CurveFormatOf(const PLOTOPTIONS& options) {
    return {DelimiterOf(options), ChoiceOf("--columns", options.columns)};
}

PLOTSOURCE PLOTSOURCE::Read(const PLOTOPTIONS& options) {
    if (options.files.empty() && !options.symbols) {
        throw CException("a FILE or --symbols is required");
    }
    return {ReadCurves(options), ReadSymbols(options)};
}

CPlotSetup::CPlotSetup(const PLOTOPTIONS& options) : CPlotSetup(options, CPlotScales(options)) {}

CPlotSetup::CPlotSetup(const PLOTOPTIONS& options, const CPlotScales& scales)
    : m_Options(options), m_Scales(scales) {
    CheckFormat("--function-format", options.functionFormat);
    CheckFormat("--argument-format", options.argumentFormat);
}

void CPlotSetup::ApplyTo(COutputCurve& plot, const CPlotData& data) const {
    SetData(plot, data); // first: it resets the scales
    SetTexts(plot, data);
    SetFormats(plot);
    m_Scales.ApplyTo(plot);
    SetLook(plot, data);
    FitTitles(plot, data);
}

void CPlotSetup::SetTexts(COutputCurve& plot, const CPlotData& data) const {
    if (m_Options.name) {
        plot.SetCurveName(m_Options.name->c_str());
    } else {
        plot.SetCurveName(
            FileStem(m_Options.files.empty() ? *m_Options.symbols : m_Options.files.front()).c_str());
    }
    if (m_Options.argumentSymbol) {
        plot.SetCurveArgument(m_Options.argumentSymbol->c_str());
    } else if (!data.GetArgumentName().empty()) {
        plot.SetCurveArgument(PlainIndexedText(data.GetArgumentName()).c_str());
    }
    if (m_Options.argumentName) {
        plot.SetArgumentName(m_Options.argumentName->c_str());
    }
    if (m_Options.slide) {
        plot.SetSlideName(m_Options.slide->c_str());
    }
}

void CPlotSetup::SetFormats(COutputCurve& plot) const {
    plot.SetFunctionFormat(m_Options.functionFormat ? m_Options.functionFormat->c_str() : nullptr);
    plot.SetArgumentFormat(m_Options.argumentFormat ? m_Options.argumentFormat->c_str() : nullptr);
}

bool CPlotSetup::NeedsSideRoom(const COutputCurve& plot, const CPlotData& data) {
    return data.GetNumCurves() > 1 || !plot.m_strSlideName.IsEmpty() ||
           TitleWidth(plot.m_strCurveArgument) > NARROW_TITLE_ROOM;
}

void CPlotSetup::SetLook(COutputCurve& plot, const CPlotData& data) const {
    plot.DisplayDiagonal(m_Options.bDiagonal);
    plot.m_bShowLegend = !m_Options.bNoLegend && NeedsSideRoom(plot, data);
    plot.m_bShowCaption = !m_Options.bNoCaption;
    plot.m_bMonochrome = m_Options.bMonochrome;
}

/// Last: what room titles from the header have depends on the caption and the legend.
void CPlotSetup::FitTitles(COutputCurve& plot, const CPlotData& data) const {
    if (m_Options.symbol) {
        plot.SetCurveSymbol(m_Options.symbol->c_str());
    } else if (!data.GetFunctionNames().empty()) {
        plot.SetCurveSymbol(FitFunctionTitle(plot, data.GetFunctionNames()).c_str());
    }
    if (!m_Options.argumentSymbol && !data.GetArgumentName().empty()) {
        plot.SetCurveArgument(FitArgumentTitle(plot, data.GetArgumentName()).c_str());
    }
}

} // namespace tessara
