#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "examples/flory/model/BinodalSection.h"
#include "examples/flory/model/CloudPointCurve.h"
#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/Spinodal.h"

namespace {

using namespace flory;

/// Phases as a table has them: ascending, with sigma relative to the densest.
struct CReadState {
    double dChi;
    std::vector<double> phis;
    std::vector<double> volumes;
    std::vector<double> sigmas;
};

/// The physical runs of a section's table, by ascending chi. The part of the thinnest and the densest phase
/// is followed by those of the phases between.
std::vector<std::vector<CReadState>> ReadRuns(const CMultipartTable& table) {
    std::vector<std::vector<CReadState>> runs;
    for (int n = 0; n < table.m_nParts; ++n) {
        const CCurvePartInfo& part = table.m_pParts[n];
        if (part.nColor != PHYSICAL) {
            continue;
        }
        const int nLast = part.nFirst + part.nPoints - 1;
        const bool bBetween = table.m_ppData[0][nLast] == table.m_ppData[1][nLast];
        if (!bBetween) {
            runs.emplace_back(static_cast<std::size_t>(part.nPoints));
        }
        for (int i = 0; i < part.nPoints; ++i) {
            const auto value = [&](int nColumn) { return table.m_ppData[nColumn][part.nFirst + i]; };
            CReadState& state = runs.back().at(static_cast<std::size_t>(i));
            if (!bBetween) {
                state = {value(5), {value(0)}, {1}, {-value(4), 0}};
            } else {
                state.sigmas.insert(state.sigmas.begin() + 1, state.sigmas[0] + value(4));
            }
            state.phis.insert(state.phis.begin() + 1, value(1));
            state.volumes.insert(state.volumes.begin() + 1, value(3));
            state.volumes[0] -= value(3);
        }
    }
    for (auto& run : runs) {
        if (run.front().dChi > run.back().dChi) {
            std::reverse(run.begin(), run.end());
        }
    }
    std::sort(runs.begin(), runs.end(),
              [](const auto& a, const auto& b) { return a.front().dChi < b.front().dChi; });
    return runs;
}

/// The free energy of phases written out: species i has fraction phi_i = common_i exp(sigma r_i).
class CPlainPhases {
public:
    CPlainPhases(const CSample& sample, double dPhi, const CReadState& state)
        : m_sample(sample), m_dChi(state.dChi) {
        for (std::size_t i = 0; i < sample.Species(); ++i) {
            double dSum = 0;
            for (std::size_t k = 0; k < state.sigmas.size(); ++k) {
                dSum += state.volumes[k] * std::exp(state.sigmas[k] * sample.Length(i));
            }
            m_logs.push_back(std::log(dPhi * sample.Weight(i) / dSum));
        }
    }

    double Phi(double s) const {
        double dSum = 0;
        for (std::size_t i = 0; i < m_logs.size(); ++i) {
            dSum += std::exp(m_logs[i] + s * m_sample.Length(i));
        }
        return dSum;
    }
    double Nu(double s) const {
        double dSum = 0;
        for (std::size_t i = 0; i < m_logs.size(); ++i) {
            dSum += std::exp(m_logs[i] + s * m_sample.Length(i)) / m_sample.Length(i);
        }
        return dSum;
    }
    double Solvent(double s) const {
        const double dPhi = Phi(s);
        return std::log1p(-dPhi) + dPhi - Nu(s) + m_dChi * dPhi * dPhi;
    }
    /// Less what is the same in every phase: ln(common_i)/r_i.
    double Chains(double s) const {
        const double dRest = 1 - Phi(s);
        return s - dRest - Nu(s) + m_dChi * dRest * dRest;
    }
    /// How far the free energy of a phase lies above the tangent plane in the phase of sigma 0.
    double Distance(double s) const {
        const double dPhi = Phi(s);
        return dPhi * (Chains(s) - Chains(0)) + (1 - dPhi) * (Solvent(s) - Solvent(0));
    }
    /// The least of them on a plain grid.
    double LeastDistance() const {
        constexpr double THINNEST = 1e-9;
        double dLeast = 0;
        const double dLongest = m_sample.Longest();
        for (const double dWay : {1., -1.}) {
            for (double y = 0; Phi(dWay * y / dLongest) < 1 && Phi(dWay * y / dLongest) > THINNEST;
                 y += 0.02 * std::hypot(1, dWay > 0 ? std::min(y, 5.) : y)) {
                dLeast = std::min(dLeast, Distance(dWay * y / dLongest));
            }
        }
        return dLeast;
    }

private:
    const CSample& m_sample;
    double m_dChi;
    std::vector<double> m_logs;
};

/// What is wrong with a state as one of least free energy; empty when nothing is.
std::string FaultOf(const CSample& sample, double dPhi, const CReadState& state) {
    constexpr double LEAST_SOLVENT = 1e-12;
    const CPlainPhases plain(sample, dPhi, state);
    double dWhole = 0;
    for (std::size_t k = 0; k < state.phis.size(); ++k) {
        const double s = state.sigmas[k];
        dWhole += state.volumes[k] * state.phis[k];
        // The last digits of a phase almost without solvent are lost in its fraction.
        const double dTolerance = 1e-9 + 1e-14 / (1 - state.phis.back());
        if (!(state.volumes[k] > -1e-12)) {
            return "a volume is negative";
        }
        if (!(std::abs(plain.Phi(s) - state.phis[k]) < 1e-9 * state.phis[k] + 1e-290)) {
            return "a fraction is not that of its species";
        }
        const bool bHasSolvent = std::max(state.phis[k], state.phis.back()) < 1 - LEAST_SOLVENT;
        if (bHasSolvent && (!(std::abs(plain.Solvent(s) - plain.Solvent(0)) < dTolerance) ||
                            !(std::abs(plain.Chains(s) - plain.Chains(0)) < dTolerance))) {
            return "the chemical potentials differ";
        }
        if (k > 0 && !(s - state.sigmas[k - 1] > 1e-9 / sample.Longest())) {
            return "two phases are one";
        }
    }
    if (!(std::abs(dWhole - dPhi) < 1e-9 * dPhi)) {
        return "the phases are not the whole";
    }
    const double dSolvent = 1 - state.phis.back();
    return dSolvent > LEAST_SOLVENT && plain.LeastDistance() < -1e-11 - 1e-14 / dSolvent
               ? "another phase undercuts"
               : "";
}

/// Whether the phases that have volume are the same in two states.
bool AreSame(const CReadState& a, const CReadState& b) {
    for (const auto& [from, to] : {std::pair(&a, &b), std::pair(&b, &a)}) {
        for (std::size_t k = 0; k < from->phis.size(); ++k) {
            const bool bFound = std::any_of(to->phis.begin(), to->phis.end(), [&](double dPhi) {
                return std::abs(dPhi - from->phis[k]) < 1e-6;
            });
            if (from->volumes[k] > 1e-6 && !bFound) {
                return false;
            }
        }
    }
    return true;
}

/// What is wrong with a section; empty when there is one state of least free energy at every chi, and these
/// change continuously.
std::string FaultOf(const CSample& sample, double dPhi) {
    constexpr double GAP = 1e-8;
    constexpr double JUMP = 0.05;
    const auto runs = ReadRuns(*CBinodalSection(sample, dPhi).Table());
    std::ostringstream fault;
    fault.precision(12);
    double dChi = 2 * CriticalPoint(sample).dChi;
    if (runs.empty()) {
        const CReadState whole{dChi * (1 - 1e-9), {dPhi}, {1}, {0}};
        return FaultOf(sample, dPhi, whole).empty() ? "" : "a solution that separates has no section";
    }
    if (!(std::abs(runs.back().back().dChi - dChi) < GAP)) {
        fault << "ends at chi " << runs.back().back().dChi;
        return fault.str();
    }
    const CReadState before{runs.front().front().dChi * (1 - 1e-7), {dPhi}, {1}, {0}};
    if (!FaultOf(sample, dPhi, before).empty()) {
        return "does not begin at the cloud point";
    }
    const CReadState* pLast = nullptr;
    for (const auto& run : runs) {
        if (pLast && !(std::abs(run.front().dChi - pLast->dChi) < GAP && AreSame(run.front(), *pLast))) {
            fault << "breaks between chi " << pLast->dChi << " and " << run.front().dChi;
            return fault.str();
        }
        for (std::size_t i = 0; i < run.size(); ++i) {
            for (std::size_t k = 0; i > 0 && k < run[i].phis.size(); ++k) {
                if (!(std::abs(run[i].phis[k] - run[i - 1].phis[k]) < JUMP) ||
                    !(run[i].dChi > run[i - 1].dChi - GAP)) {
                    fault << "jumps from chi " << run[i - 1].dChi << " to " << run[i].dChi;
                    return fault.str();
                }
            }
            const bool bLooked = i % 16 == 1 || i + 1 == run.size();
            const std::string strFault = bLooked ? FaultOf(sample, dPhi, run[i]) : "";
            if (!strFault.empty()) {
                fault << strFault << " at chi " << run[i].dChi << ", " << run[i].phis.size() << " phases";
                return fault.str();
            }
        }
        pLast = &run.back();
    }
    return "";
}

std::string TextOf(const CSample& sample, double dPhi) {
    std::ostringstream text;
    text.precision(17);
    text << "lengths";
    for (const double r : sample.Lengths()) {
        text << ' ' << r;
    }
    text << ", weights";
    for (const double w : sample.Weights()) {
        text << ' ' << w;
    }
    text << ", fraction " << dPhi;
    return text.str();
}

TEST(SectionTilingTest, StatesCoverEveryChiOnce) {
    const struct {
        std::vector<double> lengths;
        std::vector<double> weights;
        double dPhi;
    } cases[] = {
        // An onset that Newton's method reaches elsewhere.
        {{60.5, 2280}, {0.99935, 0.00065}, 0.0813},
        // A third phase that one finds from neither side of the border.
        {{16.079, 639.96}, {1, 3.256e-4}, 0.13499},
        // Near the critical end point, where the conditions of three phases depend on each other.
        {{100, 3000}, {0.9, 0.1}, 0.12},
        {{100, 3000}, {0.9, 0.1}, 0.12127},
        // Four phases.
        {{10, 200, 4000}, {1, 0.03, 0.001}, 0.3},
        // Chains as short as the solvent, and a solution almost without solvent.
        {{1, 30}, {0.5, 0.5}, 0.3},
        {{100, 3000}, {0.9, 0.1}, 0.9},
        {{100, 3000}, {0.9, 0.1}, 1e-12},
        {{100}, {1}, 0.3},
        // The thinner phase is the solvent.
        {{68019}, {1}, 0.504},
        {{744390, 2312036, 406819697}, {83, 2, 0.2}, 0.5005},
        // So near the critical end point that the phases beside the critical one hardly differ.
        {{100, 3000}, {0.9, 0.1}, 0.12078130886},
        {{100, 3000}, {0.9, 0.1}, 0.12078030896},
    };
    for (const auto& known : cases) {
        const CSample sample(known.lengths, known.weights);
        EXPECT_EQ(FaultOf(sample, known.dPhi), "") << TextOf(sample, known.dPhi);
    }
    const CSample sample({100, 3000}, {0.9, 0.1});
    const double dCritical = CriticalPoint(sample).dPhi;
    for (const double dFactor : {1., 1 + 1e-12, 1 - 1e-9, 1 + 1e-6, 1 - 1e-4}) {
        EXPECT_EQ(FaultOf(sample, dCritical * dFactor), "") << dFactor;
    }
}

/// Two to five lengths, the shortest 1 to 1000.
CSample RandomSample(std::mt19937& random, std::size_t nLengths) {
    const auto uniform = [&](double dLow, double dHigh) {
        return std::uniform_real_distribution<>(dLow, dHigh)(random);
    };
    std::vector<double> lengths{std::exp(uniform(0, std::log(1000.)))}, weights{1};
    while (lengths.size() < nLengths) {
        lengths.push_back(std::min(1e9, lengths.back() * std::exp(uniform(0.3, 4.1))));
        weights.push_back(weights.back() * std::exp(uniform(-6, 1)));
    }
    return CSample(lengths, weights);
}

/// FLORY_SECTIONS=10000 looks at as many.
TEST(SectionTilingTest, StatesOfRandomSamplesCoverEveryChiOnce) {
    const char* pszCount = std::getenv("FLORY_SECTIONS");
    const int nCount = pszCount ? std::atoi(pszCount) : 100;
    std::mt19937 random(20240405);
    int nWithMore = 0, nFaults = 0;
    for (int n = 0; n < nCount; ++n) {
        const CSample sample = RandomSample(random, 2 + static_cast<std::size_t>(n) % 4);
        double dPhi = std::exp(std::uniform_real_distribution<>(-7, -0.1)(random));
        const auto corners = CCloudPointCurve(sample, 400).ThreePhasePoints();
        if (n % 4 > 0 && !corners.empty()) {
            dPhi = corners[0].dPhi * std::exp(std::uniform_real_distribution<>(-1.2, 0.05)(random));
            ++nWithMore;
        }
        const std::string strFault = FaultOf(sample, dPhi);
        nFaults += !strFault.empty();
        EXPECT_EQ(strFault, "") << TextOf(sample, dPhi);
    }
    EXPECT_GT(nWithMore, nCount / 8) << "the samples show too little";
    EXPECT_EQ(nFaults, 0) << "of " << nCount;
}

} // namespace
