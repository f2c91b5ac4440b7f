#pragma once

#include "tessara/numeric/CurvePartInfo.h"

namespace tessara {

constexpr int INITIAL_PARTS = 64;
constexpr int PARTS_GROWTH = 16;

/// The part bookkeeping of a multipart container, seen through references to its fields: how parts are begun,
/// ended and given room, for every class that has parts. Lives on the stack for one call.
class CPartRecords {
public:
    CPartRecords(int& nParts, int& nMaxParts, CCurvePartInfo*& pParts)
        : m_nParts(nParts), m_nMaxParts(nMaxParts), m_pParts(pParts) {}

    /// Allocates nMaxParts records.
    void Allocate(int nMaxParts);
    /// Fills the free record, making one where there is none.
    void Begin(int nFirst, int nColor);
    /// Completes that record and makes room for the next.
    void End(int nLast);
    /// Adds records when all are in use.
    void Grow();

private:
    int& m_nParts;
    int& m_nMaxParts;
    CCurvePartInfo*& m_pParts;
};

/// The rows of a part that a container of nPoints rows has, possibly none: a record may reach beyond a
/// container that was cut.
CCurvePartInfo ClipPart(const CCurvePartInfo& part, int nPoints);

} // namespace tessara
