#include "cli/view/DiagramValues.h"

#include <cmath>
#include <limits>

#include "cli/view/ElementFormats.h"
#include "cli/view/PlainText.h"
#include "cli/view/ValuesText.h"

namespace tessara {

namespace {

using BRANCHNAME = const char* (*)(const DIAGRAMCURVE& curve, int nColor);

/// Points of which a window shows some; the others, and gaps, interrupt them.
class CShownPoints {
public:
    explicit CShownPoints(const PLOTWINDOW& window) : m_window(window) {}

    void Add(double dX, double dY) {
        if (!m_window.Contains(dX, dY)) {
            Interrupt();
            return;
        }
        if (m_bInterrupted && !m_points.x.empty()) {
            m_points.x.push_back(std::numeric_limits<double>::quiet_NaN());
            m_points.y.push_back(std::numeric_limits<double>::quiet_NaN());
        }
        m_bInterrupted = false;
        m_points.x.push_back(dX);
        m_points.y.push_back(dY);
    }
    void Interrupt() { m_bInterrupted = true; }
    const DIAGRAMPOINTS& Get() const { return m_points; }

private:
    const PLOTWINDOW& m_window;
    DIAGRAMPOINTS m_points;
    bool m_bInterrupted = false;
};

class CDiagramValues {
public:
    CDiagramValues(const DIAGRAM& diagram, const PLOTWINDOW& window)
        : m_window(window), m_strX(PlainText(diagram.x.symbol.value_or("x~N"))),
          m_strY(PlainText(diagram.y.symbol.value_or("f(x)~N"))) {}

    /// The parts of one branch, or of a curve without branches.
    void AddBranch(const std::string& strName, const DIAGRAMCURVE& curve,
                   std::vector<double> DIAGRAMPART::*pAbscissa, BRANCHNAME pBranchName, int nColor) {
        CShownPoints points(m_window);
        for (const DIAGRAMPART& part : curve.parts) {
            if (curve.HasBranches() && (part.nColor == 0) != (nColor == 0)) {
                continue;
            }
            points.Interrupt();
            for (std::size_t i = 0; i < (part.*pAbscissa).size(); ++i) {
                points.Add((part.*pAbscissa)[i], part.y[i]);
            }
        }
        const std::string strBranch = pBranchName(curve, nColor);
        Add(strBranch.empty() ? strName : strName + " " + strBranch, points.Get());
    }
    void AddCurve(const std::string& strName, const DIAGRAMCURVE& curve,
                  std::vector<double> DIAGRAMPART::*pAbscissa, BRANCHNAME pBranchName) {
        AddBranch(strName, curve, pAbscissa, pBranchName, 0);
        if (curve.HasBranches()) {
            AddBranch(strName, curve, pAbscissa, pBranchName, 1);
        }
    }
    void AddPoints(const std::string& strName, const DIAGRAMPOINTS& points) {
        DIAGRAMPOINTS shown;
        for (std::size_t i = 0; i < points.x.size(); ++i) {
            if (m_window.Contains(points.x[i], points.y[i])) {
                shown.x.push_back(points.x[i]);
                shown.y.push_back(points.y[i]);
            }
        }
        Add(strName, shown);
    }
    std::string Make() const { return m_text.Make(); }

private:
    void Add(const std::string& strName, const DIAGRAMPOINTS& points) {
        if (!points.x.empty()) {
            m_text.AddColumn(strName + ": " + m_strX, points.x);
            m_text.AddColumn(strName + ": " + m_strY, points.y);
        }
    }

    const PLOTWINDOW& m_window;
    const std::string m_strX;
    const std::string m_strY;
    CValuesText m_text;
};

} // namespace

std::string DiagramValues(const DIAGRAM& diagram, const PLOTWINDOW& window, const CMultipartTable* pFound) {
    CDiagramValues values(diagram, window);
    values.AddCurve("Spinodal curve", diagram.spinodal, &DIAGRAMPART::x, SpinodalBranch);
    values.AddCurve("Cloud-point curve", diagram.binodal, &DIAGRAMPART::x, BinodalBranch);
    values.AddCurve("Shadow curve", diagram.binodal, &DIAGRAMPART::shadow, BinodalBranch);
    values.AddPoints("Critical point(s)", diagram.critical);
    values.AddPoints("Lifshitz point(s)", diagram.lifshitz);
    values.AddPoints("Multiphase point(s)", diagram.multiphase);
    DIAGRAMPOINTS found;
    for (int i = 0; pFound && i < pFound->m_nParts; ++i) {
        const int nRow = pFound->m_pParts[i].nFirst;
        found.x.push_back(pFound->m_ppData[0][nRow]);
        found.y.push_back(pFound->m_ppData[1][nRow]);
    }
    values.AddPoints("Found multiphase point(s)", found);
    return values.Make();
}

} // namespace tessara
