#include "cli/PlotData.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "cli/AxisTitle.h"
#include "cli/CurveGrid.h"
#include "cli/CurveParts.h"
#include "cli/InputError.h"

namespace tessara {

namespace {

/// One curve: a column over the abscissae of its file.
struct CURVESOURCE {
    const std::vector<double>& x;
    const std::vector<double>& y;
};

void CheckHasNumbers(const CColumnFile& file) {
    for (const COLUMN& column : file.GetFunctions()) {
        const std::vector<double>& values = column.m_Values;
        if (std::all_of(values.begin(), values.end(), [](double d) { return std::isnan(d); })) {
            throw CInputError(file.GetName(), 0, 0,
                              "column " + std::to_string(column.nNumber) + " has no numbers");
        }
    }
}

std::vector<CURVESOURCE> CollectCurves(const std::vector<CColumnFile>& files) {
    std::vector<CURVESOURCE> curves;
    for (const CColumnFile& file : files) {
        file.CheckAscending();
        CheckHasNumbers(file);
        for (const COLUMN& column : file.GetFunctions()) {
            if (curves.size() == MAX_CURVES) {
                throw CInputError(file.GetName(), 0, 0,
                                  "column " + std::to_string(column.nNumber) +
                                      " would be a seventh curve, of at most six; choose with --columns");
            }
            curves.push_back({file.GetAbscissa().m_Values, column.m_Values});
        }
    }
    return curves;
}

bool HaveOneGrid(const std::vector<CURVESOURCE>& curves) {
    return std::all_of(curves.begin(), curves.end(),
                       [&](const CURVESOURCE& curve) { return curve.x == curves.front().x; });
}

/// True for curves over one grid that have no gaps and lie in the window.
bool AreWhole(const std::vector<CURVESOURCE>& curves, const PLOTWINDOW& window) {
    return std::all_of(curves.begin(), curves.end(), [&](const CURVESOURCE& curve) {
        return std::equal(curve.x.begin(), curve.x.end(), curve.y.begin(),
                          [&](double dX, double dY) { return window.Contains(dX, dY); });
    });
}

std::unique_ptr<CMultiCurve> MakeMultiCurve(const std::vector<CURVESOURCE>& curves) {
    const std::vector<double>& x = curves.front().x;
    auto pCurve = std::make_unique<CMultiCurve>(static_cast<int>(curves.size()));
    pCurve->Allocate(static_cast<int>(x.size()));
    std::copy(x.begin(), x.end(), pCurve->m_pX);
    for (std::size_t i = 0; i < curves.size(); i++) {
        std::copy(curves[i].y.begin(), curves[i].y.end(), pCurve->m_ppY[i]);
    }
    return pCurve;
}

std::unique_ptr<CMultiCurve> MakeGrid(const std::vector<CURVESOURCE>& curves, const PLOTWINDOW& window) {
    std::vector<const std::vector<double>*> columns;
    columns.reserve(curves.size());
    for (const CURVESOURCE& curve : curves) {
        columns.push_back(&curve.y);
    }
    return MakeCurveGrid(curves.front().x, columns, window);
}

std::unique_ptr<CMultipartCurve> MakeMultipartCurve(const std::vector<CURVESOURCE>& curves,
                                                    const PLOTWINDOW& window) {
    CCurveParts parts(window);
    for (std::size_t i = 0; i < curves.size(); i++) {
        parts.Add(curves[i].x, curves[i].y, static_cast<int>(i));
    }
    return parts.IsEmpty() ? nullptr : parts.Make(static_cast<int>(curves.size()));
}

/// Copies what the window shows of a row to the end of the multi-curve's arrays.
void AddRow(CMultiCurve& target, const CColumnFile& file, std::size_t nRow, const PLOTWINDOW& window) {
    const double dX = file.GetAbscissa().m_Values[nRow];
    bool bShown = false;
    for (int i = 0; i < target.m_nDimensions; i++) {
        const double dY = file.GetFunctions()[static_cast<std::size_t>(i)].m_Values[nRow];
        const bool bInside = window.Contains(dX, dY);
        target.m_ppY[i][target.m_nPoints] = bInside ? dY : std::numeric_limits<double>::quiet_NaN();
        bShown = bShown || bInside;
    }
    target.m_pX[target.m_nPoints] = dX;
    target.m_nPoints += bShown;
}

void CheckSymbols(const CColumnFile& file) {
    const std::vector<COLUMN>& columns = file.GetFunctions();
    if (columns.size() > MAX_SYMBOLS) {
        throw CInputError(
            file.GetName(), 0, 0,
            "column " + std::to_string(columns[MAX_SYMBOLS].nNumber) +
                " would be a third kind of symbols, of at most two; choose with --symbols-columns");
    }
    CheckHasNumbers(file);
}

/// Null when the window shows none.
std::unique_ptr<CMultiCurve> MakeSymbols(const CColumnFile& file, const PLOTWINDOW& window) {
    auto pSymbols = std::make_unique<CMultiCurve>(static_cast<int>(file.GetFunctions().size()));
    pSymbols->Allocate(file.GetNumRows());
    pSymbols->m_nPoints = 0;
    for (std::size_t nRow = 0; nRow < file.GetAbscissa().m_Values.size(); nRow++) {
        AddRow(*pSymbols, file, nRow, window);
    }
    return pSymbols->m_nPoints > 0 ? std::move(pSymbols) : nullptr;
}

/// The points of the symbols, in no part: they widen the axes and draw nothing.
std::unique_ptr<CMultipartCurve> MakeFrame(const CMultiCurve& symbols) {
    CCurveParts parts({});
    const std::vector<double> x(symbols.m_pX, symbols.m_pX + symbols.m_nPoints);
    for (int i = 0; i < symbols.m_nDimensions; i++) {
        parts.Add(x, std::vector<double>(symbols.m_ppY[i], symbols.m_ppY[i] + symbols.m_nPoints), 0);
    }
    std::unique_ptr<CMultipartCurve> pFrame = parts.Make(1);
    pFrame->m_nParts = 0;
    return pFrame;
}

} // namespace

CPlotData::CPlotData(const std::vector<CColumnFile>& curves, const std::optional<CColumnFile>& symbols,
                     const PLOTWINDOW& window, PlotGaps gaps) {
    const std::vector<CURVESOURCE> sources = CollectCurves(curves);
    m_nCurves = static_cast<int>(sources.size());
    if (symbols) {
        CheckSymbols(*symbols);
        m_pSymbols = MakeSymbols(*symbols, window);
    }
    const bool bOneGrid = !sources.empty() && HaveOneGrid(sources);
    if (bOneGrid && AreWhole(sources, window)) {
        m_pMultiCurve = MakeMultiCurve(sources);
    } else if (bOneGrid && gaps == PlotGaps::Stay) {
        m_pMultiCurve = MakeGrid(sources, window);
    } else {
        m_pMultipartCurve = MakeMultipartCurve(sources, window);
    }
    if (!m_pMultiCurve && !m_pMultipartCurve) {
        if (!m_pSymbols) {
            throw CException("nothing of the data lies within the scales");
        }
        m_pMultipartCurve = MakeFrame(*m_pSymbols);
    }
    const std::span<const CColumnFile> named = curves.empty() ? std::span(&*symbols, 1) : std::span(curves);
    m_strArgumentName = ArgumentName(named);
    m_strFunctionNames = FunctionNames(named);
}

} // namespace tessara
