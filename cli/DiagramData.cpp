#include "cli/DiagramData.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>

#include "tessara/platform/base/Exception.h"

namespace tessara {

namespace {

constexpr int BRANCHED = 2; ///< number of colours that makes the renderer tell branches apart

using DIAGRAMCOLUMN = std::vector<double> DIAGRAMPART::*;

/// A row is a gap when either of its numbers is.
std::vector<std::string> NamesOf(const DIAGRAMCURVE& curve) {
    std::set<std::string> names;
    for (const DIAGRAMPART& part : curve.parts) {
        for (const auto& [strName, column] : part.columns) {
            names.insert(strName);
        }
    }
    return {names.begin(), names.end()};
}

const std::vector<double>* ColumnOf(const DIAGRAMPART& part, const std::string& strName) {
    const auto found = part.columns.find(strName);
    return found == part.columns.end() ? nullptr : &found->second;
}

/// Cuts a curve in the plane of the column pAbscissa and the ordinates; parts that have no such column add
/// nothing. The column pOther goes along, unless it is null, and then those that are named.
CCurveParts CutCurve(const DIAGRAMCURVE& curve, DIAGRAMCOLUMN pAbscissa, DIAGRAMCOLUMN pOther,
                     const std::vector<std::string>& names, const PLOTWINDOW& window) {
    CCurveParts parts(window, (pOther ? 1 : 0) + names.size());
    for (const DIAGRAMPART& part : curve.parts) {
        CFurtherColumns further;
        if (pOther) {
            further.push_back((part.*pOther).empty() ? nullptr : &(part.*pOther));
        }
        for (const std::string& strName : names) {
            further.push_back(ColumnOf(part, strName));
        }
        const std::vector<double>& x = part.*pAbscissa;
        if (!x.empty()) {
            parts.Add(x, part.y, part.nColor, further);
        }
    }
    return parts;
}

/// A curve without parts is to have no legend either, which one with branches has for each of its parts.
int ColorsOf(const DIAGRAMCURVE& curve, const CCurveParts& parts) {
    return curve.HasBranches() || parts.IsEmpty() ? BRANCHED : 1;
}

bool HasShadowPoints(const DIAGRAMCURVE& binodal) {
    return std::any_of(binodal.parts.begin(), binodal.parts.end(),
                       [](const DIAGRAMPART& part) { return !part.shadow.empty(); });
}

/// Bit by bit, so that what is not a number equals itself.
bool AreSame(const CMultipartTable& a, const CMultipartTable& b) {
    if (a.m_nDimensions != b.m_nDimensions || a.m_nPoints != b.m_nPoints || a.m_nParts != b.m_nParts ||
        a.GetNumColors() != b.GetNumColors()) {
        return false;
    }
    const auto same = [](const void* p, const void* q, std::size_t nBytes) {
        return nBytes == 0 || std::memcmp(p, q, nBytes) == 0;
    };
    const auto nRows = static_cast<std::size_t>(a.m_nPoints);
    for (int i = 0; i < a.m_nDimensions; i++) {
        if (!same(a.m_ppData[i], b.m_ppData[i], nRows * sizeof(double))) {
            return false;
        }
    }
    return same(a.m_pParts, b.m_pParts, static_cast<std::size_t>(a.m_nParts) * sizeof(CCurvePartInfo));
}

void CutPoints(const DIAGRAMPOINTS& points, const PLOTWINDOW& window, CTable& cut) {
    cut.Allocate(static_cast<int>(points.x.size()));
    int nRow = 0;
    for (std::size_t i = 0; i < points.x.size(); i++) {
        if (window.Contains(points.x[i], points.y[i])) {
            cut.m_ppData[0][nRow] = points.x[i];
            cut.m_ppData[1][nRow] = points.y[i];
            nRow++;
        }
    }
    cut.ReAllocate(nRow);
}

bool HasElements(const DIAGRAM& diagram) {
    return !diagram.binodal.parts.empty() || !diagram.spinodal.parts.empty() || !diagram.critical.x.empty() ||
           !diagram.lifshitz.x.empty() || !diagram.multiphase.x.empty();
}

/// The zoom window, or what the scales given by hand leave.
PLOTWINDOW WindowOf(const DIAGRAM& diagram) {
    PLOTWINDOW window;
    if (diagram.zoom) {
        return *diagram.zoom;
    }
    if (diagram.x.scale) {
        window.dXMin = diagram.x.scale->dFrom;
        window.dXMax = diagram.x.scale->dTo;
    }
    if (diagram.y.scale) {
        window.dYMin = diagram.y.scale->dFrom;
        window.dYMax = diagram.y.scale->dTo;
    }
    return window;
}

} // namespace

CDiagramData::CDiagramData(const DIAGRAM& diagram) : m_Critical(2), m_Lifshitz(2), m_Multiphase(2) {
    const PLOTWINDOW window = WindowOf(diagram);
    MakeBinodal(diagram.binodal, window);
    MakeSpinodal(diagram.spinodal, window);
    CutPoints(diagram.critical, window, m_Critical);
    CutPoints(diagram.lifshitz, window, m_Lifshitz);
    CutPoints(diagram.multiphase, window, m_Multiphase);
    if (HasElements(diagram) && IsEmpty()) {
        throw CException("nothing of the diagram lies within what is to be shown");
    }
}

/// The two curves are cut each in its own plane, so that their parts may differ.
void CDiagramData::MakeBinodal(const DIAGRAMCURVE& binodal, const PLOTWINDOW& window) {
    if (binodal.parts.empty()) {
        return;
    }
    m_bShadow = HasShadowPoints(binodal);
    m_BinodalColumns = NamesOf(binodal);
    const bool bThirdColumn = m_bShadow || !m_BinodalColumns.empty();
    const CCurveParts cloudPoints = CutCurve(
        binodal, &DIAGRAMPART::x, bThirdColumn ? &DIAGRAMPART::shadow : nullptr, m_BinodalColumns, window);
    m_pBinodal = cloudPoints.MakeTable(ColorsOf(binodal, cloudPoints));
    if (!m_bShadow) {
        return;
    }
    const CCurveParts shadow =
        CutCurve(binodal, &DIAGRAMPART::shadow, &DIAGRAMPART::x, m_BinodalColumns, window);
    m_pShadow = shadow.MakeTable(ColorsOf(binodal, shadow), SHADOW_COLUMN, 1);
    if (AreSame(*m_pShadow, *m_pBinodal)) {
        m_pShadow.reset();
    }
}

void CDiagramData::MakeSpinodal(const DIAGRAMCURVE& spinodal, const PLOTWINDOW& window) {
    if (!spinodal.parts.empty()) {
        m_SpinodalColumns = NamesOf(spinodal);
        const CCurveParts parts = CutCurve(spinodal, &DIAGRAMPART::x, nullptr, m_SpinodalColumns, window);
        m_pSpinodal = parts.MakeTable(ColorsOf(spinodal, parts));
    }
}

bool CDiagramData::IsEmpty() const {
    const auto isEmpty = [](const std::unique_ptr<CMultipartTable>& p) { return !p || p->m_nPoints == 0; };
    return isEmpty(m_pBinodal) && isEmpty(m_pShadow) && isEmpty(m_pSpinodal) && m_Critical.m_nPoints == 0 &&
           m_Lifshitz.m_nPoints == 0 && m_Multiphase.m_nPoints == 0;
}

/// Where the shadow curve has parts of its own, they come first: the cloud points then take the place of the
/// section that they came with.
void CDiagramData::ApplyTo(CPhaseDiagramOutput& output) {
    if (m_pShadow) {
        output.SetBinodalSection(0, SHADOW_COLUMN, 1, m_pShadow.get(), 0);
    }
    if (m_pBinodal) {
        output.SetBinodalSection(0, m_bShadow && !m_pShadow ? SHADOW_COLUMN : -1, 1, m_pBinodal.get(), 0);
    }
    if (m_pSpinodal) {
        output.SetSpinodalSection(0, 1, m_pSpinodal.get());
    }
    output.SetCriticalPoints(0, 1, &m_Critical);
    output.SetLifshitzPoints(0, 1, &m_Lifshitz);
    output.SetMultiphasePoints(0, 1, &m_Multiphase);
}

} // namespace tessara
