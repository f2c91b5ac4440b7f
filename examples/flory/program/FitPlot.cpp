#include "examples/flory/program/FitPlot.h"

#include <algorithm>
#include <cmath>

#include "examples/flory/model/Spinodal.h"
#include "tessara/platform/base/Number.h"

namespace flory {

namespace {

constexpr int N_POINTS = 201;

tessara::CColumnFile FileOf(const char* pszName, std::vector<double> x, std::vector<double> y) {
    tessara::COLUMN abscissa{1, "", std::move(x)};
    std::vector<tessara::COLUMN> functions;
    functions.push_back({2, "", std::move(y)});
    return tessara::CColumnFile::FromColumns(pszName, std::move(abscissa), std::move(functions));
}

} // namespace

CFitPlot::CFitPlot(const CMeasuredFile& measured, const CInteractionFit& fit,
                   const CSolutionArguments& solution)
    : m_measured(measured), m_bComposition(fit.C().has_value()) {
    const auto [first, last] = std::minmax_element(measured.abscissae.begin(), measured.abscissae.end());
    if (measured.kind == Measured::Chi) {
        AddChi(fit, *first, *last);
    } else {
        AddTemperatures(fit, solution, *first, *last);
    }
    const double dShift = measured.bCelsius ? -ICE_POINT : 0;
    std::vector<double> x = measured.abscissae, y;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const CInteractionFit::CPoint& point = measured.points[i];
        if (measured.kind == Measured::Chi) {
            x[i] += dShift;
            y.push_back(point.dChi - (fit.C() ? fit.C()->dValue * point.dPhi : 0));
        } else {
            y.push_back(point.dTemperature + dShift);
        }
    }
    m_source.curves.push_back(FileOf("curve", m_x, m_y));
    m_source.symbols = FileOf("points", std::move(x), std::move(y));
}

/// Temperatures are given in kelvin.
void CFitPlot::AddCurvePoint(double dX, double dY) {
    const double dShift = m_measured.bCelsius ? -ICE_POINT : 0;
    m_x.push_back(m_measured.kind == Measured::Chi ? dX + dShift : dX);
    m_y.push_back(m_measured.kind == Measured::Chi ? dY : dY + dShift);
}

void CFitPlot::AddChi(const CInteractionFit& fit, double dFirst, double dLast) {
    for (int i = 0; i < N_POINTS; ++i) {
        const double dT = dFirst + (dLast - dFirst) * i / (N_POINTS - 1);
        AddCurvePoint(dT, fit.A().dValue + fit.B().dValue / dT);
    }
}

void CFitPlot::AddTemperatures(const CInteractionFit& fit, const CSolutionArguments& solution, double dFirst,
                               double dLast) {
    const CInteraction interaction = fit.Interaction();
    std::optional<CCloudPointCurve> curve;
    if (m_measured.kind == Measured::CloudPoints) {
        curve.emplace(CurveOf(solution));
    }
    for (int i = 0; i < N_POINTS; ++i) {
        const double x = dFirst + (dLast - dFirst) * i / (N_POINTS - 1);
        const std::optional<double> chi =
            curve ? CloudPointChi(*curve, x) : std::optional(CriticalPoint(CSample(1 / x / x)).dChi);
        AddCurvePoint(x, chi ? interaction.Temperature(*chi) : std::nan(""));
    }
}

void CFitPlot::SetTitles(tessara::PLOTOPTIONS& options) const {
    const std::string strT = m_measured.bCelsius ? "t~i / °C~N" : "T~i / K~N";
    const auto set = [](std::optional<std::string>& title, const std::string& strDefault) {
        title = title.value_or(strDefault);
    };
    switch (m_measured.kind) {
    case Measured::Chi:
        set(options.symbol, m_bComposition ? "c~G - c~if~G" : "c~G");
        set(options.argumentSymbol, strT);
        break;
    case Measured::CloudPoints:
        set(options.symbol, strT);
        set(options.argumentSymbol, "f~G");
        break;
    case Measured::CriticalTemperatures:
        set(options.symbol, strT);
        set(options.argumentSymbol, "N~i-1/2~H");
        break;
    }
}

std::string CFitPlot::CurveText(const std::vector<std::string>& note) const {
    std::string strText;
    for (const std::string& strLine : note) {
        strText += "# " + strLine + '\n';
    }
    const std::string strT = m_measured.bCelsius ? "T_C" : "T";
    const bool bCritical = m_measured.kind == Measured::CriticalTemperatures;
    strText += m_measured.kind == Measured::Chi ? strT + (m_bComposition ? "\tchi - c phi\n" : "\tchi\n")
                                                : (bCritical ? "N_root\t" : "phi\t") + strT + '\n';
    for (std::size_t i = 0; i < m_x.size(); ++i) {
        strText += tessara::FormatText("%.8g\t%.8g\n", m_x[i], m_y[i]);
    }
    return strText;
}

} // namespace flory
