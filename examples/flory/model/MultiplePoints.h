#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "examples/flory/model/Sample.h"
#include "examples/flory/model/Spinodal.h"

namespace flory {

/// A critical point whose phase is in equilibrium with another one: two of three phases have become
/// identical. In the other phase species i is exp(dS r_i) times as concentrated.
struct CCriticalEndPoint {
    CSample sample; ///< composition of the critical phase
    CCriticalPoint critical;
    double dS;
    double dOther; ///< polymer fraction of the other phase
};

/// A phase that is three identical ones.
struct CTricriticalPoint {
    CSample sample;
    CCriticalPoint critical;
};

/// Whether no other phase undercuts it.
bool IsObservable(const CTricriticalPoint& point);

/// Samples on a line: a sample for each real t. For two lengths, t = ln(w_2/w_1).
using CSampleLine = std::function<CSample(double t)>;

/// The samples of some lengths in which species nLast has the share dShare of the polymer and the two others
/// are in the ratio exp(t). Of two lengths, nLast is ignored.
CSampleLine LineOfSamples(const std::vector<double>& lengths, std::size_t nLast = 2, double dShare = 0);

/// How far the critical point of a sample is from coexisting with another phase: min X/chi_c - 1 over all
/// phases but those next to it (see CTangentPlane); nothing where no other phase is near equilibrium.
/// Negative when the critical point cannot be observed.
std::optional<double> CriticalMargin(const CSample& sample);

/// The critical end points on a line of samples, by ascending t in [dFirst, dLast]: where the critical point
/// begins or ceases to be stable. Weights are accurate to about 1e-10.
///
/// Two of them that lie closer together than a few hundredths in t are found when the critical point between
/// them is unstable against small changes, as near a tricritical point; otherwise they may be missed.
std::vector<CCriticalEndPoint> CriticalEndPoints(const CSampleLine& line, double dFirst, double dLast);

/// The sample of a given shorter chain and one other length that has a tricritical point; for a smaller ratio
/// of the lengths a solution does not have three phases. Its ratio is 5 + 2 sqrt(6) for infinitely long
/// chains and grows for short ones. Throws std::invalid_argument for a length outside [0.01, 1e8].
///
/// Along the critical point's phase, where the free energy's derivatives vanish up to the third, the fourth
/// does when r_z+1 = 3 r_z + 2 sqrt(r_z), and the fifth when the derivative of this along the phase, by m_k'
/// = m_k+1, does too.
CTricriticalPoint TricriticalPoint(double dShorter);

/// The tricritical points of all samples of three given lengths, stable or not; none when the lengths are too
/// near each other. Throws std::invalid_argument for another number of lengths.
std::vector<CTricriticalPoint> TricriticalPoints(const std::vector<double>& lengths);

} // namespace flory
