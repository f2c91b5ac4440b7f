#include "tessara/phasediagram/PointReadOut.h"

#include <cmath>
#include <limits>
#include <memory>

#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"
#include "tessara/platform/base/Number.h"
#include "tessara/plot/PlotText.h"

namespace tessara {

namespace {

constexpr int VALUE_COLUMN = 2;

/// Which of several points lies nearest to one: the first that was offered, or a later one that is nearer.
class CNearest {
public:
    CNearest(double dX, double dY) : m_dX(dX), m_dY(dY) {}

    bool Offer(double dX, double dY) {
        const double dDistance = std::hypot(dX - m_dX, dY - m_dY);
        if (m_bAny && !(dDistance < m_dDistance)) {
            return false;
        }
        m_bAny = true;
        m_dDistance = std::isnan(dDistance) ? std::numeric_limits<double>::infinity() : dDistance;
        return true;
    }

private:
    double m_dX;
    double m_dY;
    bool m_bAny = false;
    double m_dDistance = 0;
};

} // namespace

void CPointReadOut::SetValues(double dX, double dY, EPointReadOut eReadOut,
                              const CPointReadOutSource& source) {
    m_lines.RemoveAll();
    const bool bNamed = !m_symbols[0].IsEmpty() && !m_symbols[1].IsEmpty();
    if (bNamed) {
        m_lines.Add(ValueLine(m_symbols[0], source.strAbscissaFormat, dX));
        m_lines.Add(ValueLine(m_symbols[1], source.strOrdinateFormat, dY));
    }
    if (eReadOut == EPointReadOut::cloudPoint) {
        AddNearestValue(dX, dY, source);
    } else if (eReadOut == EPointReadOut::multiphasePoint) {
        AddPhases(dX, dY, source);
    }
    ShowLines(m_lines);
}

void CPointReadOut::Clear() {
    m_lines.RemoveAll();
    ShowLines(m_lines);
}

/// A section may have no further column, or no value there.
void CPointReadOut::AddNearestValue(double dX, double dY, const CPointReadOutSource& source) {
    CMultipartTable* const pSection = source.pBinodalSection;
    if (!pSection || pSection->m_nDimensions <= VALUE_COLUMN) {
        return;
    }
    CNearest nearest(dX, dY);
    std::optional<double> value;
    const std::unique_ptr<CTable> sections[] = {
        std::unique_ptr<CTable>(pSection->Value(source.nX, dX)),
        std::unique_ptr<CTable>(pSection->Value(source.nY, dY)),
    };
    for (const auto& pRows : sections) {
        for (int i = 0; pRows && i < pRows->m_nPoints; ++i) {
            if (nearest.Offer(pRows->m_ppData[source.nX][i], pRows->m_ppData[source.nY][i])) {
                value = pRows->m_ppData[VALUE_COLUMN][i];
            }
        }
    }
    if (value && std::isfinite(*value)) {
        m_lines.Add(FormatText("F~G' = %lg~N", *value).c_str());
    }
}

void CPointReadOut::AddPhases(double dX, double dY, const CPointReadOutSource& source) {
    const CMultipartTable* const pFound = source.pFoundMultiphasePoints;
    if (!pFound || pFound->m_nDimensions <= VALUE_COLUMN) {
        return;
    }
    CNearest nearest(dX, dY);
    const CCurvePartInfo* pNearest = nullptr;
    for (int i = 0; i < pFound->m_nParts; ++i) {
        const CCurvePartInfo& part = pFound->m_pParts[i];
        if (part.nPoints > 0 && nearest.Offer(pFound->m_ppData[source.nX][part.nFirst],
                                              pFound->m_ppData[source.nY][part.nFirst])) {
            pNearest = &part;
        }
    }
    for (int k = 0; pNearest && k < pNearest->nPoints; ++k) {
        const double dValue = pFound->m_ppData[VALUE_COLUMN][pNearest->nFirst + k];
        if (!std::isfinite(dValue)) {
            continue;
        }
        m_lines.Add(FormatText("F~G'~N%d~L = %lg~N", k + 1, dValue).c_str());
    }
}

} // namespace tessara
