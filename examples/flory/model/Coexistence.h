#pragma once

namespace flory {

/// Two phases in equilibrium. In the second, species i is exp(dSigma r_i) times as concentrated.
///
/// Relative accuracy of all numbers about 1e-12.
struct CCoexistence {
    double dSigma;  ///< what tells the phases apart; positive when the second is the denser one
    double dVolume; ///< v, the volume fraction of the second phase, in [0, 1]
    double dPhi;    ///< polymer fraction of the whole, phi_0
    double dFirst;  ///< polymer fraction of the first phase: the cloud point when v = 0
    double dSecond; ///< polymer fraction of the second phase: the shadow when v = 0
    double
        dSolventLog; ///< ln of the first phase's solvent fraction over the second's; has the sign of dSigma
    double dChi;     ///< interaction parameter
};

/// The same with the phases exchanged.
constexpr CCoexistence Exchanged(const CCoexistence& c) {
    return {-c.dSigma, 1 - c.dVolume, c.dPhi, c.dSecond, c.dFirst, -c.dSolventLog, c.dChi};
}

} // namespace flory
