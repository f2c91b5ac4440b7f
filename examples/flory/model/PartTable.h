#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "tessara/numeric/MultipartTable.h"

namespace flory {

/// The colours of parts: what can be observed, and what solves the equations but cannot.
enum PartColor { PHYSICAL = 0, NON_PHYSICAL = 1 };
/// The colours of the parts of a copolymer's spinodal.
enum SpinodalColor { TRIVIAL = 0, NONTRIVIAL = 1 };

/// Rows gathered into parts, and then into a multipart table of two colours.
///
/// A row with a number that is not finite is left out and ends the part. A part of one row is dropped.
class CPartTable {
public:
    explicit CPartTable(int nColumns) : m_nColumns(nColumns) {}

    void BeginPart(int nColor);
    void AddRow(std::initializer_list<double> row);
    /// The table; the parts gathered are done.
    std::unique_ptr<CMultipartTable> Make() const;

private:
    struct CPart {
        int nColor;
        std::vector<double> values; ///< row by row
    };

    int Rows(const CPart& part) const { return static_cast<int>(part.values.size()) / m_nColumns; }

    int m_nColumns;
    std::vector<CPart> m_parts;
};

} // namespace flory
