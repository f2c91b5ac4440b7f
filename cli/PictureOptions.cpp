#include "cli/PictureOptions.h"

#include <CLI/CLI.hpp>

namespace tessara {

void DeclareOutput(CLI::App& command, PICTUREOPTIONS& options, const char* pszHelp) {
    command.add_option("-o,--output", options.strOutput, pszHelp)->required();
}

void DeclareName(CLI::App& command, PICTUREOPTIONS& options, const char* pszHelp) {
    command.add_option("--name", options.name, pszHelp)->option_text("TEXT");
}

void DeclareSlide(CLI::App& command, PICTUREOPTIONS& options, const char* pszHelp) {
    command.add_option("--slide", options.slide, pszHelp)->option_text("TEXT");
}

void DeclareSize(CLI::App& command, PICTUREOPTIONS& options) {
    command.add_option("--size", options.strSize, "size as 800x575 (pixels) or 160x115mm")
        ->option_text("SIZE [1600x1150]");
    command.add_option("--dpi", options.dDotsPerInch, "dots per inch")->option_text("NUMBER [240]");
}

void DeclareScales(CLI::App& command, PICTUREOPTIONS& options) {
    command
        .add_option("--x-scale", options.xScale, "scale of the horizontal axis; curves are cut at its ends")
        ->option_text("FROM:TO:STEP[:EXP]");
    command.add_option("--y-scale", options.yScale, "scale of the vertical axis, likewise")
        ->option_text("FROM:TO:STEP[:EXP]");
}

void DeclareSwitches(CLI::App& command, PICTUREOPTIONS& options) {
    command.add_flag("--no-legend", options.bNoLegend, "no legend, and no room for one");
    command.add_flag("--no-caption", options.bNoCaption, "no caption");
    command.add_flag("--monochrome", options.bMonochrome, "dash patterns instead of colours");
}

} // namespace tessara
