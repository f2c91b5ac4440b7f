#include "cli/DiagramText.h"

#include <nlohmann/json.hpp>

namespace tessara {

namespace {

using nlohmann::ordered_json;

/// The members of one object, one a line.
class CMembers {
public:
    explicit CMembers(int nIndent) : m_strIndent(static_cast<std::size_t>(nIndent), ' ') {}

    void Add(const std::string& strName, const std::string& strValue) {
        m_strText += (m_strText.empty() ? "\n" : ",\n") + m_strIndent + "  " + ordered_json(strName).dump() +
                     ": " + strValue;
    }
    void Add(const std::string& strName, const ordered_json& value) {
        // Texts are bytes to a program; in the file they are UTF-8.
        Add(strName, value.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
    }
    std::string Object() const { return "{" + m_strText + "\n" + m_strIndent + "}"; }

private:
    std::string m_strIndent;
    std::string m_strText;
};

/// nlohmann writes what is not finite as null, and of a number the fewest digits that give it back.
void AddColumn(CMembers& part, const std::string& strName, const std::vector<double>& column) {
    part.Add(strName, ordered_json(column));
}

ordered_json AxisValue(const DIAGRAMAXIS& axis) {
    ordered_json value = ordered_json::object();
    if (axis.symbol) {
        value["symbol"] = *axis.symbol;
    }
    if (axis.format) {
        value["format"] = *axis.format;
    }
    if (axis.scale) {
        const AXISSCALE& scale = *axis.scale;
        value["scale"] = {
            {"from", scale.dFrom}, {"to", scale.dTo}, {"step", scale.dStep}, {"exponent", scale.nExponent}};
    }
    return value;
}

std::string PartText(const DIAGRAMPART& part, const char* pszFirst, const char* pszOther) {
    constexpr int PART_INDENT = 4;
    CMembers members(PART_INDENT);
    if (part.bHasColor && part.nColor > 1) {
        members.Add("color", ordered_json(part.nColor));
    } else if (part.bHasColor) {
        members.Add("branch", ordered_json(part.nColor == 0 ? pszFirst : pszOther));
    }
    AddColumn(members, "x", part.x);
    if (!part.shadow.empty()) {
        AddColumn(members, "shadow", part.shadow);
    }
    AddColumn(members, "y", part.y);
    if (!part.columns.empty()) {
        CMembers columns(PART_INDENT + 2);
        for (const auto& [strName, column] : part.columns) {
            AddColumn(columns, strName, column);
        }
        members.Add("columns", columns.Object());
    }
    return members.Object();
}

void AddCurve(CMembers& file, const char* pszName, const DIAGRAMCURVE& curve, const char* pszFirst,
              const char* pszOther) {
    std::string strParts;
    for (const DIAGRAMPART& part : curve.parts) {
        strParts += (strParts.empty() ? "\n    " : ",\n    ") + PartText(part, pszFirst, pszOther);
    }
    if (!strParts.empty()) {
        file.Add(pszName, "[" + strParts + "\n  ]");
    }
}

void AddPoints(CMembers& file, const char* pszName, const DIAGRAMPOINTS& points) {
    ordered_json list = ordered_json::array();
    for (std::size_t i = 0; i < points.x.size(); ++i) {
        list.push_back({points.x[i], points.y[i]});
    }
    if (!list.empty()) {
        file.Add(pszName, list);
    }
}

void AddRegion(CMembers& file, const DIAGRAM& diagram) {
    if (diagram.zoom) {
        const PLOTWINDOW& zoom = *diagram.zoom;
        file.Add("zoom", ordered_json{{"x", {zoom.dXMin, zoom.dXMax}}, {"y", {zoom.dYMin, zoom.dYMax}}});
    }
    ordered_json boundaries;
    if (diagram.leftBoundary) {
        boundaries["left"] = *diagram.leftBoundary;
    }
    if (diagram.rightBoundary) {
        boundaries["right"] = *diagram.rightBoundary;
    }
    if (!boundaries.empty()) {
        file.Add("boundaries", boundaries);
    }
}

void AddTexts(CMembers& file, const DIAGRAM& diagram) {
    if (diagram.name) {
        file.Add("name", ordered_json(*diagram.name));
    }
    if (diagram.slide) {
        file.Add("slide", ordered_json(*diagram.slide));
    }
    file.Add("x", AxisValue(diagram.x));
    file.Add("y", AxisValue(diagram.y));
}

} // namespace

std::string DiagramText(const DIAGRAM& diagram, const std::vector<std::string>& note) {
    CMembers file(0);
    file.Add("format", ordered_json("tessara-diagram"));
    file.Add("version", ordered_json(1));
    if (!note.empty()) {
        file.Add("note", ordered_json(note));
    }
    AddTexts(file, diagram);
    AddCurve(file, "binodal", diagram.binodal, "physical", "non-physical");
    AddCurve(file, "spinodal", diagram.spinodal, "trivial", "nontrivial");
    AddPoints(file, "critical", diagram.critical);
    AddPoints(file, "lifshitz", diagram.lifshitz);
    AddPoints(file, "multiphase", diagram.multiphase);
    AddRegion(file, diagram);
    file.Add("legend", ordered_json(diagram.bLegend));
    file.Add("caption", ordered_json(diagram.bCaption));
    file.Add("monochrome", ordered_json(diagram.bMonochrome));
    file.Add("multiphasePoints", ordered_json(diagram.bMultiphasePoints));
    return file.Object() + "\n";
}

} // namespace tessara
