#include "examples/flory/program/SolutionDiagram.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/DiagramOutput.h"
#include "cli/DiagramText.h"
#include "examples/flory/model/Spinodal.h"
#include "examples/flory/program/RoundScale.h"
#include "tessara/platform/base/Exception.h"

namespace {

using namespace flory;
using tessara::DIAGRAM;

const CInteraction POLYSTYRENE(-0.2956, 243.29);

CSolutionPlan Bidisperse(const COrdinate& ordinate = {}) {
    return {ordinate ? CSample({300, 9000}, {0.99, 0.01}) : CSample({100, 3000}, {0.9, 0.1}), ordinate};
}

DIAGRAM ThroughAFile(const DIAGRAM& diagram) {
    return tessara::ParseDiagram(tessara::DiagramText(diagram, {}), "diagram");
}

/// The diagram as it is drawn, with what it finds.
class CDrawnDiagram : public tessara::CDiagramOutput {
public:
    using CDiagramOutput::CDiagramOutput;

    /// Abscissa and ordinate of each found multiphase point.
    std::vector<std::pair<double, double>> FoundPoints() {
        ToggleMultiphasePoints();
        std::vector<std::pair<double, double>> points;
        const CMultipartTable* pFound = m_pFoundMultiphasePoints.get();
        for (int i = 0; pFound && i < pFound->m_nParts; ++i) {
            const int nRow = pFound->m_pParts[i].nFirst;
            points.emplace_back(pFound->m_ppData[m_CloudPointColumns.nX][nRow],
                                pFound->m_ppData[m_CloudPointColumns.nY][nRow]);
        }
        return points;
    }
};

TEST(SolutionDiagramTest, FoundMultiphasePointsAreTheExactThreePhasePoints) {
    const struct {
        COrdinate ordinate;
        double dPhi;
        double dOrdinate;
        double dTolerance; // of the ordinate
    } cases[] = {{{}, 0.173241989, 0.6094427926, 1e-9}, {POLYSTYRENE, 0.0891387, 283.650, 1e-3}};
    for (const auto& known : cases) {
        CDrawnDiagram drawn(ThroughAFile(SolutionDiagram(Bidisperse(known.ordinate))));
        const auto points = drawn.FoundPoints();
        ASSERT_EQ(points.size(), 1u);
        EXPECT_NEAR(points[0].first, known.dPhi, 1e-7);
        EXPECT_NEAR(points[0].second, known.dOrdinate, known.dTolerance);
    }
}

TEST(SolutionDiagramTest, EveryThreePhasePointIsFoundOnceInWhateverPolymer) {
    int nPoints = 0;
    for (const double dRatio : {12., 17.3, 30., 41.7, 90.}) {
        for (const double dWeight : {0.003, 0.01, 0.037, 0.1}) {
            for (const COrdinate& ordinate : {COrdinate(), COrdinate(POLYSTYRENE)}) {
                const CSample sample({100, 100 * dRatio}, {1 - dWeight, dWeight});
                const DIAGRAM diagram = SolutionDiagram({sample, ordinate});
                const auto found = CDrawnDiagram(diagram).FoundPoints();
                ASSERT_EQ(found.size(), diagram.multiphase.x.size()) << dRatio << " " << dWeight;
                for (std::size_t i = 0; i < found.size(); ++i) {
                    EXPECT_NEAR(found[i].first, diagram.multiphase.x[i], 1e-8 * found[i].first);
                    EXPECT_NEAR(found[i].second, diagram.multiphase.y[i], 1e-8 * found[i].second);
                    ++nPoints;
                }
            }
        }
    }
    EXPECT_GT(nPoints, 10) << "the samples show too little";
}

TEST(SolutionDiagramTest, PartsShareTheirEndsInTheFileAndHaveAllDigits) {
    const DIAGRAM diagram = SolutionDiagram(Bidisperse(POLYSTYRENE));
    const DIAGRAM read = ThroughAFile(diagram);
    ASSERT_EQ(read.binodal.parts.size(), 3u);
    for (std::size_t n = 0; n < 3; ++n) {
        const tessara::DIAGRAMPART& part = read.binodal.parts[n];
        EXPECT_EQ(part.x, diagram.binodal.parts[n].x);
        EXPECT_EQ(part.y, diagram.binodal.parts[n].y);
        EXPECT_EQ(part.columns, diagram.binodal.parts[n].columns);
        EXPECT_EQ(part.nColor, n == 1 ? 1 : 0);
        if (n > 0) {
            EXPECT_EQ(part.x.front(), read.binodal.parts[n - 1].x.back());
            EXPECT_EQ(part.y.front(), read.binodal.parts[n - 1].y.back());
            EXPECT_EQ(part.shadow.front(), read.binodal.parts[n - 1].shadow.back());
        }
        const std::size_t i = part.x.size() / 2;
        EXPECT_NEAR(POLYSTYRENE.Temperature(part.columns.at("chi")[i]), part.y[i], 1e-10);
    }
    EXPECT_NEAR(read.critical.y.at(0), 279.792, 1e-3);
    EXPECT_EQ(read.y.symbol, "T~i / K~N");
}

TEST(SolutionDiagramTest, ACriticalEndPointIsMarkedOnceAsAMultiphasePoint) {
    // As found, and as typed with fewer digits.
    for (const double w : {0.039414444420535519, 0.0394144444, 0.03941444, 0.03941445, 3.559955362398181e-07,
                           3.55995536e-07}) {
        const tessara::DIAGRAM diagram = SolutionDiagram({CSample({100, 3000}, {1 - w, w}), {}});
        ASSERT_EQ(diagram.critical.x.size(), 1u);
        const auto near = testing::DoubleNear(diagram.critical.x[0], 1e-3 * diagram.critical.x[0]);
        EXPECT_THAT(diagram.multiphase.x, testing::ElementsAre(near)) << w;
    }
}

TEST(SolutionDiagramTest, ScalesShowWhatTheDiagramIsDrawnFor) {
    for (const bool bAround : {false, true}) {
        CSolutionPlan plan = Bidisperse(POLYSTYRENE);
        plan.bAroundThreePhases = bAround;
        const DIAGRAM diagram = SolutionDiagram(plan);
        for (const tessara::DIAGRAMPOINTS& points : {diagram.critical, diagram.multiphase}) {
            EXPECT_LT(diagram.x.scale->dFrom, points.x[0]);
            EXPECT_GT(diagram.x.scale->dTo, points.x[0]);
            EXPECT_LT(diagram.y.scale->dFrom, points.y[0]);
            EXPECT_GT(diagram.y.scale->dTo, points.y[0]);
        }
        EXPECT_EQ(diagram.y.scale->dTo > 296.9, !bAround) << "the highest cloud point";
    }
    CSolutionPlan single{CSample(100), {}};
    single.bAroundThreePhases = true;
    EXPECT_THROW(SolutionDiagram(single), CException);
}

TEST(SolutionDiagramTest, LeavesOutWhatIsNotAskedFor) {
    CSolutionPlan plan = Bidisperse();
    plan.bSpinodal = false;
    plan.bShadow = false;
    plan.bPhysicalOnly = true;
    const DIAGRAM diagram = SolutionDiagram(plan);
    EXPECT_TRUE(diagram.spinodal.parts.empty());
    ASSERT_EQ(diagram.binodal.parts.size(), 2u);
    EXPECT_TRUE(diagram.binodal.parts[0].shadow.empty());
    EXPECT_FALSE(diagram.binodal.HasBranches());
    EXPECT_TRUE(SolutionDiagram({CSample(100), {}}).binodal.parts.at(0).shadow.empty())
        << "the shadow curve of one species is its cloud-point curve";
}

TEST(SolutionDiagramTest, SectionsAreThePhasesOfTheirFractions) {
    CSolutionPlan plan = Bidisperse();
    plan.sections = {0.12, 0.05};
    const DIAGRAM diagram = ThroughAFile(SolutionDiagram(plan));
    EXPECT_EQ(diagram.leftBoundary, 0.05);
    EXPECT_EQ(diagram.rightBoundary, 0.12);
    EXPECT_TRUE(diagram.critical.x.empty());
    int nStates = 0;
    for (const tessara::DIAGRAMPART& part : diagram.binodal.parts) {
        for (std::size_t i = 0; i < part.x.size(); ++i) {
            const double v = part.columns.at("volume")[i];
            const double dWhole = (1 - v) * part.x[i] + v * part.shadow[i];
            nStates += std::abs(dWhole - 0.12) < 1e-9 || std::abs(dWhole - 0.05) < 1e-9;
        }
    }
    EXPECT_GT(nStates, 200);
}

TEST(SolutionDiagramTest, WithoutATemperatureThereIsNoCurve) {
    // chi stays below -0.5 at every temperature.
    const DIAGRAM diagram = SolutionDiagram({CSample(100), CInteraction(-0.5, -30)});
    EXPECT_TRUE(diagram.binodal.parts.empty());
    EXPECT_TRUE(diagram.critical.x.empty());
    // A lower critical solution: the curves end where chi does.
    const DIAGRAM lower = SolutionDiagram({CSample(100), CInteraction(0.7, -30)});
    EXPECT_NEAR(lower.critical.y.at(0), 30 / (0.7 - 0.605), 1e-9);
    EXPECT_GT(lower.y.scale->dTo, lower.critical.y[0]);
}

TEST(RoundScaleTest, HoldsTheValuesBetweenRoundEnds) {
    const struct {
        double dMin, dMax, dFrom, dTo, dStep;
    } cases[] = {{0, 0.2437, 0, 0.25, 0.05},
                 {267.6, 296.85, 265, 300, 5},
                 {0.02, 0.12, 0.02, 5 * 0.02 + 0.02, 0.02},
                 {-3, 7, -4, 8, 2},
                 {1e-9, 8e-9, 1e-9, 8e-9, 1e-9}};
    for (const auto& known : cases) {
        const tessara::AXISSCALE scale = RoundScale(known.dMin, known.dMax);
        EXPECT_DOUBLE_EQ(scale.dFrom, known.dFrom);
        EXPECT_DOUBLE_EQ(scale.dTo, known.dTo);
        EXPECT_DOUBLE_EQ(scale.dStep, known.dStep);
    }
}

} // namespace
