#include "cli/view/SectionPlot.h"

#include <algorithm>
#include <cmath>

#include "cli/DiagramData.h"
#include "cli/view/PlainText.h"
#include "cli/view/ShownCurvePlot.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

constexpr const char* SHADOW_SYMBOL = "F~G'~N";

/// The columns of a section.
class CSectionColumns {
public:
    CSectionColumns(int nTold, const CTable& section) : m_section(section), m_nHeld(nTold == 1 ? 1 : 0) {
        // The window tells the abscissa of the cloud points also where that of the shadow was held.
        if (m_nHeld == 0 && HasShadow() && !IsLevel(0) && IsLevel(CDiagramData::SHADOW_COLUMN)) {
            m_nHeld = CDiagramData::SHADOW_COLUMN;
        }
    }

    int GetHeld() const { return m_nHeld; }
    int GetAcross() const { return m_nHeld == 1 ? 0 : 1; }
    /// What is shown.
    int GetValue() const {
        if (m_nHeld == CDiagramData::SHADOW_COLUMN) {
            return 0;
        }
        return HasShadow() ? CDiagramData::SHADOW_COLUMN : m_nHeld;
    }

private:
    /// A table without shadow points may have the column for the sake of those behind it.
    bool HasShadow() const {
        if (m_section.m_nDimensions <= CDiagramData::SHADOW_COLUMN) {
            return false;
        }
        const double* const pShadow = m_section.m_ppData[CDiagramData::SHADOW_COLUMN];
        return std::any_of(pShadow, pShadow + m_section.m_nPoints, [](double d) { return std::isfinite(d); });
    }
    /// Whether a column holds one value, but for rounding.
    bool IsLevel(int nColumn) const {
        constexpr double HAIR = 1e-9;
        const double* const p = m_section.m_ppData[nColumn];
        return std::all_of(p, p + m_section.m_nPoints,
                           [&](double d) { return std::fabs(d - p[0]) <= HAIR * std::fabs(p[0]); });
    }

    const CTable& m_section;
    int m_nHeld;
};

std::string SymbolOf(const DIAGRAM& diagram, int nColumn) {
    if (nColumn == CDiagramData::SHADOW_COLUMN) {
        return SHADOW_SYMBOL;
    }
    return nColumn == 0 ? diagram.x.symbol.value_or("x~N") : diagram.y.symbol.value_or("f(x)~N");
}

std::string FormatOf(const DIAGRAM& diagram, int nColumn) {
    return (nColumn == 1 ? diagram.y.format : diagram.x.format).value_or("%.6lg");
}

CColumnFile SortedRows(const CTable& section, int nX, int nY) {
    COLUMN x = {nX + 1, "", {}};
    COLUMN y = {nY + 1, "", {}};
    for (int i = 0; i < section.m_nPoints; ++i) {
        if (std::isfinite(section.m_ppData[nX][i]) && std::isfinite(section.m_ppData[nY][i])) {
            x.m_Values.push_back(section.m_ppData[nX][i]);
            y.m_Values.push_back(section.m_ppData[nY][i]);
        }
    }
    CColumnFile rows = CColumnFile::FromColumns("section", std::move(x), {std::move(y)});
    rows.Sort();
    return rows;
}

PLOTOPTIONS OptionsOf(const DIAGRAM& diagram, const CSectionColumns& columns, double dHeld) {
    const std::string strAcross = SymbolOf(diagram, columns.GetAcross());
    const QUANTITY held(PlainText(SymbolOf(diagram, columns.GetHeld())));
    PLOTOPTIONS options;
    options.name =
        "Cross section at " + held.Show(FormatValue(FormatOf(diagram, columns.GetHeld()).c_str(), dHeld));
    options.symbol = SymbolOf(diagram, columns.GetValue());
    options.argumentSymbol = strAcross;
    options.argumentName = PlainText(strAcross);
    options.argumentFormat = FormatOf(diagram, columns.GetAcross());
    options.functionFormat = FormatOf(diagram, columns.GetValue());
    return options;
}

} // namespace

std::unique_ptr<CShownPlot> OpenSectionPlot(const DIAGRAM& diagram, int nColumn, const CTable& section) {
    if (section.m_nPoints == 0 || section.m_nDimensions < 2) {
        return nullptr;
    }
    const CSectionColumns columns(nColumn, section);
    CColumnFile rows = SortedRows(section, columns.GetAcross(), columns.GetValue());
    if (rows.GetNumRows() == 0) {
        return nullptr;
    }
    return std::make_unique<CShownCurvePlot>(
        OptionsOf(diagram, columns, section.m_ppData[columns.GetHeld()][0]), PLOTSOURCE{{}, std::move(rows)});
}

} // namespace tessara
