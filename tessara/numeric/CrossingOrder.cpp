#include <algorithm>

#include "tessara/numeric/CrossingSearch.h"

namespace tessara {
namespace {

bool Precedes(const CCrossing& a, const CCrossing& b) {
    return a.nA != b.nA ? a.nA < b.nA : a.nB < b.nB;
}

/// Where the crossings of each nA begin, and one more entry for the end.
std::vector<std::size_t> FirstPlaces(const CCrossingList& crossings, int nCountA) {
    std::vector<std::size_t> places(static_cast<std::size_t>(nCountA) + 1);
    for (const CCrossing& crossing : crossings.All()) {
        ++places[static_cast<std::size_t>(crossing.nA) + 1];
    }
    for (std::size_t i = 1; i < places.size(); ++i) {
        places[i] += places[i - 1];
    }
    return places;
}

} // namespace

CCrossingList SortedCrossings(CCrossingList crossings, int nCountA) {
    // Counting looks at every nA: not worth while for few crossings.
    if (crossings.Size() < static_cast<std::size_t>(nCountA) / 16) {
        std::sort(crossings.All().begin(), crossings.All().end(), Precedes);
        return crossings;
    }
    std::vector<std::size_t> places = FirstPlaces(crossings, nCountA);
    CCrossingList sorted;
    CCrossing* pSorted = sorted.Room(crossings.Size());
    for (const CCrossing& crossing : crossings.All()) {
        pSorted[places[static_cast<std::size_t>(crossing.nA)]++] = crossing;
    }
    sorted.Keep(crossings.Size());
    // Each place is now the end of its group.
    std::size_t nBegin = 0;
    for (int nA = 0; nA < nCountA; ++nA) {
        const std::size_t nEnd = places[static_cast<std::size_t>(nA)];
        std::sort(pSorted + nBegin, pSorted + nEnd, Precedes);
        nBegin = nEnd;
    }
    return sorted;
}

} // namespace tessara
