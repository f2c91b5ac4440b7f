#include "cli/PlotCommand.h"

#include "cli/AxisTitle.h"
#include "cli/ColumnFile.h"
#include "cli/InputError.h"
#include "cli/Picture.h"
#include "cli/PlotData.h"
#include "cli/PlotScales.h"
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
    const COLUMNFORMAT format = {DelimiterOf(options), ChoiceOf("--columns", options.columns)};
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

CPlotData ReadData(const PLOTOPTIONS& options, const PLOTWINDOW& window) {
    if (options.files.empty() && !options.symbols) {
        throw CException("a FILE or --symbols is required");
    }
    return CPlotData(ReadCurves(options), ReadSymbols(options), window);
}

/// Formats are those of applications; the library would replace a bad one silently.
void CheckFormat(const char* pszOption, const std::optional<std::string>& format) {
    if (format && !FormatAccepts(format->c_str(), "f")) {
        throw CException(std::string(pszOption) + ": " + Quoted(*format) +
                         " is not a printf format for one number");
    }
}

void SetTexts(COutputCurve& plot, const PLOTOPTIONS& options, const CPlotData& data) {
    const std::string& strFile = options.files.empty() ? *options.symbols : options.files.front();
    plot.SetCurveName(options.name.value_or(FileStem(strFile)).c_str());
    if (options.argumentSymbol) {
        plot.SetCurveArgument(options.argumentSymbol->c_str());
    } else if (!data.GetArgumentName().empty()) {
        plot.SetCurveArgument(PlainIndexedText(data.GetArgumentName()).c_str());
    }
    if (options.argumentName) {
        plot.SetArgumentName(options.argumentName->c_str());
    }
    if (options.slide) {
        plot.SetSlideName(options.slide->c_str());
    }
}

void SetFormats(COutputCurve& plot, const PLOTOPTIONS& options) {
    plot.SetFunctionFormat(options.functionFormat ? options.functionFormat->c_str() : nullptr);
    plot.SetArgumentFormat(options.argumentFormat ? options.argumentFormat->c_str() : nullptr);
}

/// The room beside the plot holds the legend, and longer titles of the axes.
bool NeedsSideRoom(const COutputCurve& plot, const CPlotData& data) {
    return data.GetNumCurves() > 1 || !plot.m_strSlideName.IsEmpty() ||
           TitleWidth(plot.m_strCurveArgument) > NARROW_TITLE_ROOM;
}

void SetLook(COutputCurve& plot, const PLOTOPTIONS& options, const CPlotData& data) {
    plot.DisplayDiagonal(options.bDiagonal);
    plot.m_bShowLegend = !options.bNoLegend && NeedsSideRoom(plot, data);
    plot.m_bShowCaption = !options.bNoCaption;
    plot.m_bMonochrome = options.bMonochrome;
}

/// Last: what room titles from the header have depends on the caption and the legend.
void FitTitles(COutputCurve& plot, const PLOTOPTIONS& options, const CPlotData& data) {
    if (options.symbol) {
        plot.SetCurveSymbol(options.symbol->c_str());
    } else if (!data.GetFunctionNames().empty()) {
        plot.SetCurveSymbol(FitFunctionTitle(plot, data.GetFunctionNames()).c_str());
    }
    if (!options.argumentSymbol && !data.GetArgumentName().empty()) {
        plot.SetCurveArgument(FitArgumentTitle(plot, data.GetArgumentName()).c_str());
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

void RunPlot(const PLOTOPTIONS& options) {
    const CPictureSize size(options.strSize, options.dDotsPerInch);
    FormatOfFile(options.strOutput);
    const CPlotScales scales(options);
    CheckFormat("--function-format", options.functionFormat);
    CheckFormat("--argument-format", options.argumentFormat);
    const CPlotData data = ReadData(options, scales.GetWindow());
    COutputCurve plot;
    SetData(plot, data); // first: it resets the scales
    SetTexts(plot, options, data);
    SetFormats(plot, options);
    scales.ApplyTo(plot);
    SetLook(plot, options, data);
    FitTitles(plot, options, data);
    DrawOutput(plot, size, options.strOutput);
}

} // namespace tessara
