#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/AxisScale.h"
#include "cli/CurveParts.h"

namespace tessara {

/// One polyline of a curve. The columns have the same length; not-a-number is a gap.
struct DIAGRAMPART {
    int nColor = 0;         ///< 0 for the first branch, 1 to 5 for the other
    bool bHasColor = false; ///< the file names the branch or the colour
    std::vector<double> x;
    std::vector<double> shadow; ///< abscissae of the shadow points; empty without them
    std::vector<double> y;
    std::map<std::string, std::vector<double>> columns; ///< further ones by name, not drawn
};

/// A curve of a diagram; without parts there is none. Either every part has a colour or none.
struct DIAGRAMCURVE {
    std::vector<DIAGRAMPART> parts;

    bool HasBranches() const { return !parts.empty() && parts.front().bHasColor; }
};

struct DIAGRAMPOINTS {
    std::vector<double> x;
    std::vector<double> y;
};

struct DIAGRAMAXIS {
    std::optional<std::string> symbol; ///< indexed text
    std::optional<std::string> format; ///< printf format of one number, for read-outs
    std::optional<AXISSCALE> scale;
};

/// What a diagram file holds: docs/diagram-format.md describes it.
struct DIAGRAM {
    std::optional<std::string> name;
    std::optional<std::string> slide; ///< indexed text
    DIAGRAMAXIS x;
    DIAGRAMAXIS y;
    DIAGRAMCURVE binodal; ///< cloud-point and shadow curve
    DIAGRAMCURVE spinodal;
    DIAGRAMPOINTS critical;
    DIAGRAMPOINTS lifshitz;
    DIAGRAMPOINTS multiphase;
    std::optional<PLOTWINDOW> zoom;
    std::optional<double> leftBoundary;
    std::optional<double> rightBoundary;
    bool bLegend = true;
    bool bCaption = true;
    bool bMonochrome = false;
    bool bMultiphasePoints = false; ///< show the crossings of the cloud-point curve with itself
};

/// Throws CInputError, with the line and the character, for what is no file of the format.
DIAGRAM ReadDiagramFile(const std::string& strPath);
/// The same for a text in memory; strName stands for the file in messages.
DIAGRAM ParseDiagram(std::string_view strText, const std::string& strName);

} // namespace tessara
