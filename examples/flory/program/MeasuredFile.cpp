#include "examples/flory/program/MeasuredFile.h"

#include <cmath>

#include "cli/ColumnFile.h"
#include "cli/InputError.h"
#include "examples/flory/model/Spinodal.h"
#include "tessara/platform/base/Number.h"

namespace flory {

namespace {

Measured KindOf(const CMeasuredOptions& options) {
    const bool bCloudPoints = !options.solution.strChains.empty();
    if (options.bComposition && (bCloudPoints || options.bCritical)) {
        throw CException("--composition: a term in phi can only be fitted to measured chi");
    }
    return bCloudPoints        ? Measured::CloudPoints
           : options.bCritical ? Measured::CriticalTemperatures
                               : Measured::Chi;
}

tessara::CColumnFile Read(const CMeasuredOptions& options) {
    const char* pszDefault = options.bComposition ? "1,2,3" : "1,2";
    tessara::COLUMNFORMAT format;
    format.choice = tessara::CColumnChoice("--columns", options.columns.value_or(pszDefault));
    if (options.delimiter) {
        format.delimiter = tessara::CDelimiter::FromName(*options.delimiter);
    }
    tessara::CColumnFile file = tessara::CColumnFile::Read(options.strFile, format);
    const std::size_t nExpected = options.bComposition ? 2 : 1;
    if (file.GetFunctions().size() != nExpected) {
        throw CException(std::string("--columns: ") +
                         (options.bComposition ? "temperature, chi and polymer fraction are needed"
                                               : "two columns are needed, temperatures first"));
    }
    return file;
}

bool IsCelsius(const std::string& strColumn) {
    return strColumn.ends_with("_C") || strColumn.find("°C") != std::string::npos;
}

[[noreturn]] void Refuse(const std::string& strFile, double dValue, const char* pszProblem) {
    throw tessara::CInputError(strFile, 0, 0, tessara::FormatText("%.15g %s", dValue, pszProblem));
}

/// Turns what the second column holds into chi, by the model where it is something else.
class CChiOfColumn {
public:
    CChiOfColumn(Measured kind, const CMeasuredOptions& options) : m_kind(kind), m_strFile(options.strFile) {
        if (kind == Measured::CloudPoints) {
            m_curve.emplace(CurveOf(options.solution));
        }
    }

    double operator()(double dValue) const {
        switch (m_kind) {
        case Measured::CloudPoints:
            return OfCloudPoint(dValue);
        case Measured::CriticalTemperatures:
            if (!(dValue >= 1e-3 && dValue <= 1e9)) {
                Refuse(m_strFile, dValue, "is no chain length");
            }
            return CriticalPoint(CSample(dValue)).dChi;
        default:
            return dValue;
        }
    }

private:
    double OfCloudPoint(double dPhi) const {
        if (!(dPhi > 0 && dPhi < 1)) {
            Refuse(m_strFile, dPhi, "is no polymer fraction between 0 and 1");
        }
        const std::optional<double> chi = CloudPointChi(*m_curve, dPhi);
        if (!chi) {
            Refuse(m_strFile, dPhi, "is a polymer fraction beyond the cloud-point curve");
        }
        return *chi;
    }

    Measured m_kind;
    std::string m_strFile;
    std::optional<CCloudPointCurve> m_curve;
};

} // namespace

CCloudPointCurve CurveOf(const CSolutionArguments& solution) {
    constexpr double THINNEST = 1e-100;
    return CCloudPointCurve(SampleOf(solution), CCloudPointCurve::POINTS, THINNEST);
}

CMeasuredFile ReadMeasured(const CMeasuredOptions& options) {
    CMeasuredFile measured{KindOf(options), false, {}, {}, {}};
    const tessara::CColumnFile file = Read(options);
    const CChiOfColumn chiOf(measured.kind, options);
    measured.strColumn = file.GetAbscissa().strName;
    measured.bCelsius = options.bCelsius || IsCelsius(measured.strColumn);
    for (std::size_t i = 0; i < file.GetAbscissa().m_Values.size(); ++i) {
        const double dT = file.GetAbscissa().m_Values[i] + (measured.bCelsius ? ICE_POINT : 0);
        const double dValue = file.GetFunctions()[0].m_Values[i];
        const double dPhi = options.bComposition ? file.GetFunctions()[1].m_Values[i] : 0;
        if (std::isnan(dValue) || std::isnan(dPhi)) {
            continue;
        }
        if (!(dT > 0)) {
            Refuse(options.strFile, dT, "K is no temperature; --celsius reads degrees Celsius");
        }
        measured.points.push_back({dT, chiOf(dValue), dPhi});
        measured.abscissae.push_back(measured.kind == Measured::Chi                    ? dT
                                     : measured.kind == Measured::CriticalTemperatures ? 1 / std::sqrt(dValue)
                                                                                       : dValue);
    }
    return measured;
}

} // namespace flory
