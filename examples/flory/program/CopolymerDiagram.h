#pragma once

#include <optional>

#include "cli/DiagramFile.h"

namespace flory {

/// A blend of homopolymers A and B with a diblock copolymer, and which compositions are drawn.
struct CCopolymerPlan {
    double dLengthA;
    double dLengthB;
    double dDiblockLength;
    double dDiblockA = 0.5; ///< share of A in the diblock
    double dShare = 0.5;    ///< of A in the homopolymers, while the diblock's fraction is the abscissa
    std::optional<double> diblock =
        {}; ///< fixed fraction of the diblock; the fraction of A is the abscissa then
    int nPoints = 401;
};

/// The spinodal, chi times the diblock's length over the composition, with its trivial and nontrivial branch,
/// the critical and the Lifshitz points. The scales show where the blend first becomes unstable.
///
/// Throws std::invalid_argument as the model does.
tessara::DIAGRAM CopolymerDiagram(const CCopolymerPlan& plan);

} // namespace flory
