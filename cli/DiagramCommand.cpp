#include "cli/DiagramCommand.h"

#include <algorithm>
#include <tuple>

#include "cli/DiagramFile.h"
#include "cli/DiagramOutput.h"
#include "cli/InputError.h"
#include "cli/NumberList.h"
#include "cli/Picture.h"
#include "cli/TextFile.h"

namespace tessara {

namespace {

std::optional<AXISSCALE> ScaleOf(const char* pszOption, const std::optional<std::string>& text) {
    return text ? std::optional(ParseAxisScale(pszOption, *text)) : std::nullopt;
}

/// Any two opposite corners.
std::optional<PLOTWINDOW> ZoomOf(const DIAGRAMOPTIONS& options) {
    if (!options.zoom) {
        return std::nullopt;
    }
    if (options.xScale || options.yScale) {
        throw CException("--zoom and --x-scale or --y-scale exclude each other");
    }
    const std::vector<double> values = ParseNumberList("--zoom", *options.zoom);
    if (values.size() != 4 || values[0] == values[2] || values[1] == values[3]) {
        throw CException("--zoom: " + Quoted(*options.zoom) + " is not a region X1:Y1:X2:Y2");
    }
    PLOTWINDOW window;
    std::tie(window.dXMin, window.dXMax) = std::minmax(values[0], values[2]);
    std::tie(window.dYMin, window.dYMax) = std::minmax(values[1], values[3]);
    return window;
}

/// What the command line says about the region.
struct REGION {
    explicit REGION(const DIAGRAMOPTIONS& options)
        : zoom(ZoomOf(options)), xScale(ScaleOf("--x-scale", options.xScale)),
          yScale(ScaleOf("--y-scale", options.yScale)) {}

    std::optional<PLOTWINDOW> zoom;
    std::optional<AXISSCALE> xScale;
    std::optional<AXISSCALE> yScale;
};

/// A zoom window replaces that of the file, and so does a scale.
void Override(DIAGRAM& diagram, const REGION& region) {
    if (region.zoom || region.xScale || region.yScale) {
        diagram.zoom = region.zoom;
    }
    diagram.x.scale = region.xScale ? region.xScale : diagram.x.scale;
    diagram.y.scale = region.yScale ? region.yScale : diagram.y.scale;
}

void Override(DIAGRAM& diagram, const DIAGRAMOPTIONS& options) {
    diagram.name = options.name ? options.name : diagram.name.value_or(FileStem(options.strFile));
    diagram.slide = options.slide ? options.slide : diagram.slide;
    diagram.bLegend = diagram.bLegend && !options.bNoLegend;
    diagram.bCaption = diagram.bCaption && !options.bNoCaption;
    diagram.bMonochrome = diagram.bMonochrome || options.bMonochrome;
    diagram.bMultiphasePoints = diagram.bMultiphasePoints || options.bMultiphasePoints;
}

} // namespace

void RunDiagram(const DIAGRAMOPTIONS& options) {
    const CPictureSize size(options.strSize, options.dDotsPerInch);
    FormatOfFile(options.strOutput);
    const REGION region(options);
    DIAGRAM diagram = ReadDiagramFile(options.strFile);
    Override(diagram, region);
    Override(diagram, options);
    CDiagramOutput output(diagram);
    DrawOutput(output, size, options.strOutput);
}

} // namespace tessara
