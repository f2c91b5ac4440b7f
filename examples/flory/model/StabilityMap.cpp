#include "examples/flory/model/StabilityMap.h"

#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "examples/flory/model/Sample.h"
#include "examples/flory/model/TangentPlane.h"

namespace flory {

CStabilityMap::CStabilityMap(double dFirstLength, double dSecondLength, double dChi, int nSize,
                             CFractionRange phi, CFractionRange w)
    : m_dFirstLength(dFirstLength), m_dSecondLength(dSecondLength), m_dChi(dChi), m_nSize(nSize), m_phi(phi),
      m_w(w) {
    static_cast<void>(CSample({dFirstLength, dSecondLength}, {1, 1})); // refuses bad lengths
    if (nSize < 1 || nSize > 10000 || !std::isfinite(dChi)) {
        throw std::invalid_argument("a stability map needs a finite chi and 1 to 10000 rows");
    }
    for (const CFractionRange& range : {phi, w}) {
        if (!(range.dFirst >= 0 && range.dFirst < range.dLast && range.dLast <= 1)) {
            throw std::invalid_argument("a range of a stability map must ascend within 0 to 1");
        }
    }
}

bool CStabilityMap::Compute(const CRowProgress& progress) {
    m_values.clear();
    m_values.reserve(static_cast<std::size_t>(m_nSize) * static_cast<std::size_t>(m_nSize));
    for (int nRow = 0; nRow < m_nSize; ++nRow) {
        if (progress && !progress(nRow, m_nSize)) {
            return false;
        }
        AddRow();
    }
    return !progress || progress(m_nSize, m_nSize);
}

void CStabilityMap::AddRow() {
    const double w = W(RowsDone());
    const CSample sample({m_dFirstLength, m_dSecondLength}, {1 - w, w});
    std::vector<double> row;
    row.reserve(static_cast<std::size_t>(m_nSize));
    for (int nColumn = 0; nColumn < m_nSize; ++nColumn) {
        row.push_back(CTangentPlane(sample, Phi(nColumn)).Minimum().dX - m_dChi);
    }
    m_values.insert(m_values.end(), row.begin(), row.end());
}

double CStabilityMap::Value(int nRow, int nColumn) const {
    if (nRow < 0 || nRow >= RowsDone() || nColumn < 0 || nColumn >= m_nSize) {
        throw std::out_of_range("a point outside the stability map");
    }
    return m_values[static_cast<std::size_t>(nRow) * static_cast<std::size_t>(m_nSize) +
                    static_cast<std::size_t>(nColumn)];
}

} // namespace flory
