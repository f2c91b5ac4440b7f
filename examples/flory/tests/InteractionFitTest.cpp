#include "examples/flory/model/InteractionFit.h"

#include <cmath>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

#include "examples/flory/model/LinearFit.h"

namespace {

using namespace flory;
using CPoints = std::vector<CInteractionFit::CPoint>;

/// Points of chi = -0.3 + 240/T + 0.4 phi; the errors are those of what was measured.
template <class CHI_ERROR, class T_ERROR>
CPoints PointsOf(int nPoints, double dC, CHI_ERROR chiError, T_ERROR temperatureError) {
    CPoints points;
    for (int i = 0; i < nPoints; ++i) {
        const double dT = 290 + 50. * i / nPoints, dPhi = (i * 7 % 5) * 0.1;
        const double dChi = -0.3 + 240 / dT + dC * dPhi;
        points.push_back({dT + temperatureError(), dChi + chiError(), dPhi});
    }
    return points;
}

double None() {
    return 0;
}

TEST(InteractionFitTest, RecoversWhatHasNoErrors) {
    const auto fit = CInteractionFit::ToChi(PointsOf(12, 0.4, None, None), true);
    EXPECT_NEAR(fit.A().dValue, -0.3, 1e-11);
    EXPECT_NEAR(fit.B().dValue, 240, 1e-9);
    ASSERT_TRUE(fit.C());
    EXPECT_NEAR(fit.C()->dValue, 0.4, 1e-12);
    const auto ofTemperatures = CInteractionFit::ToTemperature(PointsOf(12, 0, None, None));
    EXPECT_NEAR(ofTemperatures.A().dValue, -0.3, 1e-11);
    EXPECT_NEAR(ofTemperatures.B().dValue, 240, 1e-9);
    EXPECT_NEAR(ofTemperatures.Theta().dValue, 300, 1e-9);
    EXPECT_LT(ofTemperatures.Deviation(), 1e-9);
}

TEST(InteractionFitTest, ErrorsTellHowFarTheTruthIs) {
    std::mt19937 random(5);
    std::normal_distribution<double> chiError(0, 0.004), temperatureError(0, 0.5);
    constexpr int N_CASES = 1000, N_POINTS = 40;
    for (const bool bChi : {true, false}) {
        int nNear[3] = {0, 0, 0}, nVeryNear = 0;
        for (int i = 0; i < N_CASES; ++i) {
            const CPoints points =
                bChi ? PointsOf(
                           N_POINTS, 0, [&] { return chiError(random); }, None)
                     : PointsOf(N_POINTS, 0, None, [&] { return temperatureError(random); });
            const auto fit =
                bChi ? CInteractionFit::ToChi(points, false) : CInteractionFit::ToTemperature(points);
            nNear[0] += std::abs(fit.A().dValue + 0.3) < 3 * fit.A().dError;
            nNear[1] += std::abs(fit.B().dValue - 240) < 3 * fit.B().dError;
            nNear[2] += std::abs(fit.Theta().dValue - 300) < 3 * fit.Theta().dError;
            nVeryNear += std::abs(fit.B().dValue - 240) < fit.B().dError;
        }
        for (const int n : nNear) {
            EXPECT_GE(n, 990) << bChi;
        }
        EXPECT_NEAR(nVeryNear, 683, 50) << bChi; // and the errors are not too large
    }
}

TEST(InteractionFitTest, HasNoErrorsForAsManyPointsAsParameters) {
    const auto fit = CInteractionFit::ToChi({{290, 0.5}, {300, 0.45}}, false);
    EXPECT_NEAR(fit.A().dValue + fit.B().dValue / 290, 0.5, 1e-12);
    EXPECT_TRUE(std::isnan(fit.A().dError));
    EXPECT_TRUE(std::isnan(fit.Deviation()));
}

TEST(InteractionFitTest, RefusesPointsThatDoNotTellTheParametersApart) {
    EXPECT_THROW(CInteractionFit::ToChi({{290, 0.5}}, false), std::invalid_argument);
    EXPECT_THROW(CInteractionFit::ToChi({{290, 0.5}, {290, 0.6}, {290, 0.7}}, false), std::invalid_argument);
    EXPECT_THROW(CInteractionFit::ToChi({{290, 0.5, 0.1}, {300, 0.6, 0.1}, {310, 0.7, 0.1}}, true),
                 std::invalid_argument);
    EXPECT_THROW(FitLinear({{1, NAN}}, {1, 2}), std::invalid_argument);
}

TEST(CloudPointChiTest, IsTheFirstOfAllCloudPoints) {
    const CCloudPointCurve curve(CSample({100, 3000}, {0.9, 0.1}));
    const CThreePhasePoint& corner = curve.ThreePhasePoints().at(0);
    EXPECT_NEAR(CloudPointChi(curve, corner.dPhi * (1 + 1e-9)).value(), corner.dChi, 1e-7);
    const auto& points = curve.Points();
    for (std::size_t i = 1; i < points.size(); i += 7) {
        const auto chi = CloudPointChi(curve, points[i].dFirst);
        ASSERT_TRUE(chi);
        EXPECT_LE(*chi, points[i].dChi * (1 + 1e-11));
    }
    EXPECT_FALSE(CloudPointChi(curve, 1e-12));
}

} // namespace
