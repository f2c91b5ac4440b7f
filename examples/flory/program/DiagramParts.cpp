#include "examples/flory/program/DiagramParts.h"

namespace flory {

void AddParts(tessara::DIAGRAMCURVE& curve, const CMultipartTable& table, const CPartColumns& columns,
              bool bBranches) {
    for (int n = 0; n < table.m_nParts; ++n) {
        const CCurvePartInfo& info = table.m_pParts[n];
        const auto column = [&](int nColumn) {
            const double* pFirst = table.m_ppData[nColumn] + info.nFirst;
            return std::vector<double>(pFirst, pFirst + info.nPoints);
        };
        tessara::DIAGRAMPART part;
        part.bHasColor = bBranches;
        part.nColor = bBranches ? info.nColor : 0;
        part.x = column(columns.nX);
        part.y = column(columns.nY);
        if (columns.nShadow >= 0) {
            part.shadow = column(columns.nShadow);
        }
        for (const auto& [nColumn, strName] : columns.further) {
            part.columns[strName] = column(nColumn);
        }
        curve.parts.push_back(std::move(part));
    }
}

} // namespace flory
