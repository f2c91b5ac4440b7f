#include "cli/PlotOptions.h"

#include <CLI/CLI.hpp>

namespace tessara {

namespace {

constexpr const char* EXAMPLES =
    R"(Files: lines of fields between tabs, commas, semicolons or spaces; the first column is the abscissa, each further
one a curve. Lines that start with # are comments; the first other line may name the columns. NA, nan and empty fields
are gaps.

Indexed text: a tilde and a letter say how the text before them is drawn: ~N normal, ~H raised, ~L lowered, ~G Greek,
~b bold, ~i italic, as in "c~G(T)~N".

Examples:
  tessara plot chi.txt -o chi.png
  tessara plot table.csv --columns T,chi -o chi.pdf --symbol "c~G" --argument-symbol "T, K~N"
  tessara plot fit.txt --symbols measured.txt --symbols-columns 1,3 -o chi.svg --size 160x115mm
  tessara plot a.txt b.txt -o both.wmf --x-scale 20:70:10 --monochrome)";

void DeclareInput(CLI::App& command, PLOTOPTIONS& options) {
    command.add_option("FILE", options.files, "files of columns; none are needed with --symbols");
    command.add_option("-o,--output", options.strOutput, "picture to write: .png, .svg, .pdf or .wmf")
        ->required();
    command
        .add_option("--columns", options.columns,
                    "columns to draw, the abscissa first: numbers from 1, or names from the header")
        ->option_text("A,B,...");
    command.add_option("--delimiter", options.delimiter,
                       "tab, comma, semicolon or space (detected otherwise)");
    command.add_flag("--sort", options.bSort, "sort the rows of each file by the abscissa");
    command.add_option("--symbols", options.symbols, "file drawn as markers: squares, second column circles")
        ->option_text("FILE");
    command.add_option("--symbols-columns", options.symbolsColumns, "columns of the file of markers")
        ->option_text("A,B[,C]")
        ->needs("--symbols");
}

void DeclareTexts(CLI::App& command, PLOTOPTIONS& options) {
    const auto add = [&](const char* pszName, std::optional<std::string>& target, const char* pszHelp) {
        command.add_option(pszName, target, pszHelp)->option_text("TEXT");
    };
    add("--name", options.name, "caption (the first file's name otherwise)");
    add("--symbol", options.symbol, "indexed text of the vertical axis");
    add("--argument-name", options.argumentName, "name of the argument, for read-outs");
    add("--argument-symbol", options.argumentSymbol, "indexed text of the horizontal axis");
    add("--slide", options.slide, "addition to the vertical axis' text, shown beside the legend's room");
    add("--function-format", options.functionFormat, "printf format of function values in read-outs");
    add("--argument-format", options.argumentFormat, "printf format of arguments in read-outs");
}

void DeclareLook(CLI::App& command, PLOTOPTIONS& options) {
    command.add_option("--size", options.strSize, "size as 800x575 (pixels) or 160x115mm")
        ->option_text("SIZE [1600x1150]");
    command.add_option("--dpi", options.dDotsPerInch, "dots per inch")->option_text("NUMBER [240]");
    command
        .add_option("--x-scale", options.xScale, "scale of the horizontal axis; curves are cut at its ends")
        ->option_text("FROM:TO:STEP[:EXP]");
    command.add_option("--y-scale", options.yScale, "scale of the vertical axis, likewise")
        ->option_text("FROM:TO:STEP[:EXP]");
    command.add_option("--fit", options.strFit, "let axes end where the data end: x, y or xy")
        ->check(CLI::IsMember({"x", "y", "xy"}))
        ->option_text("AXES");
    command.add_flag("--diagonal", options.bDiagonal, "draw the diagonal of the frame");
    command.add_flag("--no-legend", options.bNoLegend, "no legend, and no room for one");
    command.add_flag("--no-caption", options.bNoCaption, "no caption");
    command.add_flag("--monochrome", options.bMonochrome, "dash patterns instead of colours");
}

} // namespace

void DeclarePlotOptions(CLI::App& command, PLOTOPTIONS& options) {
    DeclareInput(command, options);
    DeclareTexts(command, options);
    DeclareLook(command, options);
    command.footer(EXAMPLES);
}

} // namespace tessara
