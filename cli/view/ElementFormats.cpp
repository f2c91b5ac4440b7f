#include "cli/view/ElementFormats.h"

#include "cli/AxisTitle.h"

namespace tessara {

namespace {

constexpr const char* NUMBER_FORMAT = "%.6lg";

/// The lines of one element, in their order.
class CElementLines {
public:
    CElementLines(CPhaseDiagramOutput& output, int nElement) : m_output(output), m_nElement(nElement) {}

    void AddHeading(const std::string& strPlain) {
        const std::string strText = PlainIndexedText(strPlain);
        // The normal style that closes it gives way to the bold one.
        m_output.AddFormatString(m_nElement, -1, (strText.substr(0, strText.size() - 1) + "b").c_str());
    }
    void AddValue(int nColumn, const std::string& strSymbol, const std::string& strFormat) {
        std::string strLine;
        for (const char ch : strSymbol) {
            strLine += ch == '%' ? "%%" : std::string(1, ch);
        }
        m_output.AddFormatString(m_nElement, nColumn, (strLine + " = " + strFormat + "~N").c_str());
    }
    void AddCoordinates(const DIAGRAM& diagram) {
        AddValue(0, diagram.x.symbol.value_or("x~N"), diagram.x.format.value_or(NUMBER_FORMAT));
        AddValue(1, diagram.y.symbol.value_or("f(x)~N"), diagram.y.format.value_or(NUMBER_FORMAT));
    }
    void AddColumns(int nFirst, const std::vector<std::string>& names) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            AddValue(nFirst + static_cast<int>(i), PlainIndexedText(names[i]), NUMBER_FORMAT);
        }
    }

private:
    CPhaseDiagramOutput& m_output;
    const int m_nElement;
};

std::string Named(const char* pszName, const char* pszBranch) {
    return *pszBranch ? std::string(pszName) + " " + pszBranch : pszName;
}

void AddCloudPoints(CPhaseDiagramOutput& output, const DIAGRAM& diagram, const CDiagramData& data,
                    int nElement) {
    const bool bPhysical = nElement == ELEMENT_CLOUD_POINT_CURVE;
    CElementLines lines(output, nElement);
    lines.AddHeading(Named("Cloud-point curve", BinodalBranch(diagram.binodal, bPhysical ? 0 : 1)));
    lines.AddCoordinates(diagram);
    if (data.HasShadow()) {
        lines.AddValue(CDiagramData::SHADOW_COLUMN, "F~G'", NUMBER_FORMAT);
    }
    lines.AddColumns(CDiagramData::FIRST_BINODAL_COLUMN, data.GetBinodalColumns());
}

void AddPoints(CPhaseDiagramOutput& output, const DIAGRAM& diagram, int nElement, const char* pszName) {
    CElementLines lines(output, nElement);
    lines.AddHeading(pszName);
    lines.AddCoordinates(diagram);
}

} // namespace

const char* SpinodalBranch(const DIAGRAMCURVE& spinodal, int nColor) {
    return !spinodal.HasBranches() ? "" : nColor == 0 ? "(trivial branch)" : "(nontrivial branch)";
}

const char* BinodalBranch(const DIAGRAMCURVE& binodal, int nColor) {
    return !binodal.HasBranches() ? "" : nColor == 0 ? "(physical)" : "(non-physical)";
}

void AddElementFormats(CPhaseDiagramOutput& output, const DIAGRAM& diagram, const CDiagramData& data) {
    CElementLines spinodal(output, ELEMENT_SPINODAL);
    spinodal.AddHeading(Named("Spinodal curve", SpinodalBranch(diagram.spinodal, 0)));
    spinodal.AddCoordinates(diagram);
    spinodal.AddColumns(CDiagramData::FIRST_SPINODAL_COLUMN, data.GetSpinodalColumns());
    AddCloudPoints(output, diagram, data, ELEMENT_CLOUD_POINT_CURVE);
    AddCloudPoints(output, diagram, data, ELEMENT_CLOUD_POINT_CURVE_NON_PHYSICAL);
    AddPoints(output, diagram, ELEMENT_CRITICAL_POINTS, "Critical point");
    AddPoints(output, diagram, ELEMENT_MULTIPHASE_POINTS, "Multiphase point");
}

} // namespace tessara
