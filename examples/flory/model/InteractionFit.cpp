#include "examples/flory/model/InteractionFit.h"

#include <cmath>

#include "examples/flory/model/LinearFit.h"
#include "examples/flory/model/Searches.h"

namespace flory {

namespace {

/// A first-order estimate of the error of a function of two parameters, from its derivatives.
double PropagatedError(double dByFirst, double dBySecond, double dVariance1, double dVariance2,
                       double dCovariance) {
    return std::sqrt(dByFirst * dByFirst * dVariance1 + dBySecond * dBySecond * dVariance2 +
                     2 * dByFirst * dBySecond * dCovariance);
}

} // namespace

CInteractionFit CInteractionFit::ToChi(const std::vector<CPoint>& points, bool bComposition) {
    std::vector<std::vector<double>> columns(bComposition ? 3 : 2);
    std::vector<double> y;
    for (const CPoint& point : points) {
        columns[0].push_back(1);
        columns[1].push_back(1 / point.dTemperature);
        if (bComposition) {
            columns[2].push_back(point.dPhi);
        }
        y.push_back(point.dChi);
    }
    const CLinearFit fit = FitLinear(columns, y);
    const auto parameter = [&](std::size_t k) {
        return CParameter{fit.parameters[k], std::sqrt(fit.covariances[k][k])};
    };
    CInteractionFit result;
    result.m_a = parameter(0);
    result.m_b = parameter(1);
    if (bComposition) {
        result.m_c = parameter(2);
    }
    result.m_dCovariance = fit.covariances[0][1];
    result.m_dDeviation = fit.dDeviation;
    return result;
}

CInteractionFit CInteractionFit::ToTemperature(const std::vector<CPoint>& points) {
    std::vector<std::vector<double>> columns(2);
    std::vector<double> y;
    for (const auto& [dT, dChi, dPhi] : points) {
        columns[0].push_back(dT * dT);
        columns[1].push_back(dT * dT * dChi);
        y.push_back(dT);
    }
    const CLinearFit fit = FitLinear(columns, y);
    // 1/T = p + q chi, so that b = 1/q and a = -p/q
    const double p = fit.parameters[0], q = fit.parameters[1];
    const double dVarianceP = fit.covariances[0][0], dVarianceQ = fit.covariances[1][1];
    const double dCovariance = fit.covariances[0][1];
    CInteractionFit result;
    result.m_a = {-p / q, PropagatedError(-1 / q, p / q / q, dVarianceP, dVarianceQ, dCovariance)};
    result.m_b = {1 / q, std::sqrt(dVarianceQ) / q / q};
    result.m_dCovariance = dCovariance / q / q / q - p * dVarianceQ / q / q / q / q;
    result.m_dDeviation = fit.dDeviation;
    return result;
}

CInteractionFit::CParameter CInteractionFit::Theta() const {
    const double dReach = 0.5 - m_a.dValue;
    const double dTheta = m_b.dValue / dReach;
    return {dTheta, PropagatedError(dTheta / dReach, 1 / dReach, m_a.dError * m_a.dError,
                                    m_b.dError * m_b.dError, m_dCovariance)};
}

std::optional<double> CloudPointChi(const CCloudPointCurve& curve, double dPhi) {
    const CCoexistenceFunction& function = curve.Function();
    const auto distance = [&](double dSigma) { return std::log(function.At(dSigma, 0).dFirst / dPhi); };
    for (const CCloudPointCurve::CStretch& stretch : curve.Stretches()) {
        if (stretch.bPhysical && distance(stretch.dFirst) >= 0 && distance(stretch.dLast) <= 0) {
            return function.At(FindZero(distance, stretch.dFirst, stretch.dLast), 0).dChi;
        }
    }
    return std::nullopt;
}

} // namespace flory
