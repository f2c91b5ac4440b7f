#include "cli/DiagramOptions.h"

#include <CLI/CLI.hpp>

namespace tessara {

namespace {

constexpr const char* EXAMPLES =
    R"(The file holds one phase diagram in JSON: spinodal, cloud-point and shadow curve, points, titles and look. Options go
before what the file says. The smallest file that draws something:

  {"format": "tessara-diagram", "version": 1, "critical": [[0.11, 279.8]]}

)" INDEXED_TEXT_HELP R"(
Examples:
  tessara diagram ps.json -o ps.png
  tessara diagram ps.json -o corner.svg --zoom 0.04:282:0.16:286 --no-legend --name "Three phases"
  tessara diagram ps.json -o ps.pdf --x-scale 0:0.3:0.05 --size 160x115mm --monochrome
  tessara diagram ps.json -o ps.wmf --multiphase-points)";

} // namespace

void DeclareDiagramLook(CLI::App& command, DIAGRAMOPTIONS& options, const char* pszNameHelp,
                        const char* pszZoomHelp) {
    DeclareName(command, options, pszNameHelp);
    DeclareSlide(command, options, "indexed text under the legend");
    DeclareSize(command, options);
    command.add_option("--zoom", options.zoom, pszZoomHelp)->option_text("X1:Y1:X2:Y2");
    DeclareScales(command, options);
    command.add_flag("--multiphase-points", options.bMultiphasePoints,
                     "mark where the cloud-point curve crosses itself");
    DeclareSwitches(command, options);
}

void DeclareDiagramOptions(CLI::App& command, DIAGRAMOPTIONS& options) {
    command.add_option("FILE", options.strFile, "diagram file")->required();
    DeclareOutput(command, options);
    DeclareDiagramLook(command, options, "caption (otherwise that of the file, or the file's name)",
                       "show only the region between two corners; curves are cut at its edges");
    command.footer(EXAMPLES);
}

} // namespace tessara
