#include <algorithm>
#include <span>

#include "tessara/phasediagram/PhaseDiagramOutput.h"

namespace {

constexpr int BRANCH_COLORS = 2; ///< a curve of so many colours has branches

bool HasPartOf(const CMultipartCurve& curve, bool bFirstBranch) {
    const std::span<const CCurvePartInfo> parts(curve.m_pParts, static_cast<std::size_t>(curve.m_nParts));
    return std::any_of(parts.begin(), parts.end(), [bFirstBranch](const CCurvePartInfo& part) {
        return (part.nColor == 0) == bFirstBranch;
    });
}

} // namespace

int CPhaseDiagramOutput::AddCurveLabel(const char* pszName, const char* pszBranch) {
    const int nRow = m_nCurveLabels;
    m_CurveLabels.Add(pszName);
    ++m_nCurveLabels;
    if (pszBranch) {
        m_CurveLabels.Add(pszBranch);
        ++m_nCurveLabels;
    }
    return nRow;
}

void CPhaseDiagramOutput::AddCurveLabels(const CMultipartCurve* pCurve, const char* pszName,
                                         const char* pszFirst, const char* pszOther, int& nSingle,
                                         int& nFirst, int& nOther) {
    if (!pCurve) {
        return;
    }
    if (pCurve->m_nColors != BRANCH_COLORS) {
        nSingle = AddCurveLabel(pszName, nullptr);
        return;
    }
    if (HasPartOf(*pCurve, true)) {
        nFirst = AddCurveLabel(pszName, pszFirst);
    }
    if (HasPartOf(*pCurve, false)) {
        nOther = AddCurveLabel(pszName, pszOther);
    }
}

int CPhaseDiagramOutput::AddPointLabel(const CCurve* pPoints, const char* pszLabel) {
    if (!pPoints) {
        return -1;
    }
    m_PointLabels.Add(pszLabel);
    return m_nPointLabels++;
}

void CPhaseDiagramOutput::FillLabelsArray() {
    m_nCurveLabels = 0;
    m_nPointLabels = 0;
    m_LegendRows = {};
    m_CurveLabels.RemoveAll();
    m_PointLabels.RemoveAll();
    tessara::CLegendRows& rows = m_LegendRows;
    AddCurveLabels(m_pShownSpinodal, "Spinodal curve", "(trivial branch)", "(nontrivial branch)",
                   rows.nSpinodal, rows.nSpinodalTrivial, rows.nSpinodalNontrivial);
    AddCurveLabels(m_pShownCloudPointCurve, "Cloud-point curve", "(physical)", "(non-physical)",
                   rows.nCloudPoint, rows.nCloudPointPhysical, rows.nCloudPointNonPhysical);
    AddCurveLabels(m_pShownShadowCurve, "Shadow curve", "(physical)", "(non-physical)", rows.nShadow,
                   rows.nShadowPhysical, rows.nShadowNonPhysical);
    rows.nCriticalPoints = AddPointLabel(m_pCriticalPoints.get(), "Critical point(s)");
    rows.nLifshitzPoints = AddPointLabel(m_pLifshitzPoints.get(), "Lifshitz point(s)");
    AddPointLabel(m_pMultiphasePoints.get(), "Multiphase point(s)");
}
