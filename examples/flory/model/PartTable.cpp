#include "examples/flory/model/PartTable.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace flory {

void CPartTable::BeginPart(int nColor) {
    m_parts.push_back({nColor, {}});
}

void CPartTable::AddRow(std::initializer_list<double> row) {
    if (!std::all_of(row.begin(), row.end(), [](double d) { return std::isfinite(d); })) {
        BeginPart(m_parts.back().nColor);
        return;
    }
    m_parts.back().values.insert(m_parts.back().values.end(), row.begin(), row.end());
}

std::unique_ptr<CMultipartTable> CPartTable::Make() const {
    auto pTable = std::make_unique<CMultipartTable>(m_nColumns);
    pTable->SetNumColors(2);
    int nRows = 0;
    for (const CPart& part : m_parts) {
        nRows += Rows(part) > 1 ? Rows(part) : 0;
    }
    if (nRows == 0) {
        return pTable;
    }
    pTable->Allocate(nRows);
    int nRow = 0;
    for (const CPart& part : m_parts) {
        if (Rows(part) < 2) {
            continue;
        }
        pTable->BeginPart(nRow, part.nColor);
        for (std::size_t i = 0; i < part.values.size(); ++i) {
            const auto nColumn = static_cast<int>(i) % m_nColumns;
            pTable->m_ppData[nColumn][nRow + static_cast<int>(i) / m_nColumns] = part.values[i];
        }
        nRow += Rows(part);
        pTable->EndPart(nRow - 1);
    }
    return pTable;
}

} // namespace flory
