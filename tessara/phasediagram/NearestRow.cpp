#include "tessara/phasediagram/NearestRow.h"

#include <cmath>
#include <limits>
#include <memory>

#include "tessara/numeric/Storage.h"

namespace {

/// The square root of the sum of squares; infinite for what is not a number.
double Distance(double dX, double dY, const CTable& table, int nX, int nY, int nRow) {
    const double dAcross = dX - table.m_ppData[nX][nRow];
    const double dAlong = dY - table.m_ppData[nY][nRow];
    const double dDistance = std::sqrt(dAcross * dAcross + dAlong * dAlong);
    return std::isnan(dDistance) ? std::numeric_limits<double>::infinity() : dDistance;
}

std::unique_ptr<CTable> NearestOf(double dX, double dY, int nX, int nY, std::unique_ptr<CTable> pTable) {
    return std::unique_ptr<CTable>(pTable ? NearestTableRow(dX, dY, nX, nY, pTable.get()) : nullptr);
}

} // namespace

CTable* NearestTableRow(double dX, double dY, int nX, int nY, CTable* pTable) {
    int nNearest = -1;
    double dNearest = std::numeric_limits<double>::infinity();
    for (int i = 0; i < pTable->m_nPoints; ++i) {
        const double dDistance = Distance(dX, dY, *pTable, nX, nY, i);
        if (dDistance < dNearest) {
            dNearest = dDistance;
            nNearest = i;
        }
    }
    if (nNearest < 0) {
        return nullptr;
    }
    auto pRow = std::make_unique<CTable>(pTable->m_nDimensions);
    pRow->Allocate(1);
    for (int j = 0; j < pTable->m_nDimensions; ++j) {
        pRow->m_ppData[j][0] = pTable->m_ppData[j][nNearest];
    }
    return pRow.release();
}

CTable* NearestSectionRow(double dX, double dY, int nX, int nY, CMultipartTable* pTable) {
    auto pAtX = NearestOf(dX, dY, nX, nY, std::unique_ptr<CTable>(pTable->Value(nX, dX)));
    auto pAtY = NearestOf(dX, dY, nX, nY, std::unique_ptr<CTable>(pTable->Value(nY, dY)));
    if (pAtX && pAtY) {
        const bool bAtX = Distance(dX, dY, *pAtX, nX, nY, 0) < Distance(dX, dY, *pAtY, nX, nY, 0);
        return bAtX ? pAtX.release() : pAtY.release();
    }
    return pAtX ? pAtX.release() : pAtY.release();
}
