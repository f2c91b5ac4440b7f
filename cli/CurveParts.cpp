#include "cli/CurveParts.h"

#include <algorithm>
#include <limits>

namespace tessara {

/// One polyline's pieces, which become parts.
class CCurveParts::CPieces : public CPieceSink {
public:
    CPieces(CCurveParts& parts, const std::vector<double>& x, const std::vector<double>& y, int nColor,
            const CFurtherColumns& further)
        : m_parts(parts), m_x(x), m_y(y), m_nColor(nColor), m_further(further) {}

    void BeginPiece() override {
        m_parts.m_Parts.push_back({static_cast<int>(m_parts.m_X.size()), m_nColor});
    }
    void AddPoints(int nFirst, int nEnd) override {
        const auto append = [&](std::vector<double>& to, const std::vector<double>& from) {
            to.insert(to.end(), from.begin() + nFirst, from.begin() + nEnd);
        };
        append(m_parts.m_X, m_x);
        append(m_parts.m_Y, m_y);
        for (std::size_t i = 0; i < m_parts.m_Further.size(); i++) {
            std::vector<double>& column = m_parts.m_Further[i];
            if (m_further[i]) {
                append(column, *m_further[i]);
            } else {
                column.resize(m_parts.m_X.size(), NOT_A_NUMBER);
            }
        }
    }
    void AddCut(const CCutPlace& place) override {
        m_parts.m_X.push_back(place.dX);
        m_parts.m_Y.push_back(place.dY);
        for (std::size_t i = 0; i < m_parts.m_Further.size(); i++) {
            m_parts.m_Further[i].push_back(ValueAt(m_further[i], place));
        }
    }

private:
    static constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

    /// The value of a further column at a place. The ends are exact, also beside a gap.
    static double ValueAt(const std::vector<double>* pColumn, const CCutPlace& place) {
        const auto nEnd = static_cast<std::size_t>(place.nEnd);
        if (!pColumn) {
            return NOT_A_NUMBER;
        }
        if (place.dWay == 0 || place.dWay == 1) {
            return (*pColumn)[place.dWay == 0 ? nEnd - 1 : nEnd];
        }
        return LerpOverGaps((*pColumn)[nEnd - 1], (*pColumn)[nEnd], place.dWay);
    }

    CCurveParts& m_parts;
    const std::vector<double>& m_x;
    const std::vector<double>& m_y;
    const int m_nColor;
    const CFurtherColumns& m_further;
};

void CCurveParts::Add(const std::vector<double>& x, const std::vector<double>& y, int nColor,
                      const CFurtherColumns& further) {
    CPieces pieces(*this, x, y, nColor, further);
    CutPolyline(x.data(), y.data(), static_cast<int>(x.size()), m_Window, pieces);
}

template <class TARGET>
void CCurveParts::SetParts(TARGET& target, int nColors) const {
    for (std::size_t i = 0; i < m_Parts.size(); i++) {
        const bool bLast = i + 1 == m_Parts.size();
        target.BeginPart(m_Parts[i].nFirst, m_Parts[i].nColor);
        target.EndPart((bLast ? target.m_nPoints : m_Parts[i + 1].nFirst) - 1);
    }
    target.SetNumColors(nColors);
}

std::unique_ptr<CMultipartCurve> CCurveParts::Make(int nColors) const {
    auto pCurve = std::make_unique<CMultipartCurve>(static_cast<int>(m_X.size()));
    std::copy(m_X.begin(), m_X.end(), pCurve->m_pX);
    std::copy(m_Y.begin(), m_Y.end(), pCurve->m_pY);
    SetParts(*pCurve, nColors);
    return pCurve;
}

std::unique_ptr<CMultipartTable> CCurveParts::MakeTable(int nColors, int nX, int nY) const {
    const int nColumns = 2 + static_cast<int>(m_Further.size());
    auto pTable = std::make_unique<CMultipartTable>(nColumns);
    pTable->Allocate(static_cast<int>(m_X.size()));
    auto pFurther = m_Further.begin();
    for (int i = 0; i < nColumns; i++) {
        const std::vector<double>& column = i == nX ? m_X : i == nY ? m_Y : *pFurther++;
        std::copy(column.begin(), column.end(), pTable->m_ppData[i]);
    }
    SetParts(*pTable, nColors);
    return pTable;
}

} // namespace tessara
