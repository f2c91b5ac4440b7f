#include "cli/PlotOptions.h"

#include <CLI/CLI.hpp>

namespace tessara {

namespace {

constexpr const char* EXAMPLES =
    R"(Files: lines of fields between tabs, commas, semicolons or spaces; the first column is the abscissa, each further
one a curve. Lines that start with # are comments; the first other line may name the columns. NA, nan and empty fields
are gaps.

)" INDEXED_TEXT_HELP R"(

Examples:
  tessara plot chi.txt -o chi.png
  tessara plot table.csv --columns T,chi -o chi.pdf --symbol "c~G" --argument-symbol "T, K~N"
  tessara plot fit.txt --symbols measured.txt --symbols-columns 1,3 -o chi.svg --size 160x115mm
  tessara plot a.txt b.txt -o both.wmf --x-scale 20:70:10 --monochrome)";

void DeclareInput(CLI::App& command, PLOTOPTIONS& options) {
    command.add_option("FILE", options.files, "files of columns; none are needed with --symbols");
    DeclareOutput(command, options);
    DeclareColumns(command, options);
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
    DeclareName(command, options, "caption (the first file's name otherwise)");
    add("--symbol", options.symbol, "indexed text of the vertical axis");
    add("--argument-name", options.argumentName, "name of the argument, for read-outs");
    add("--argument-symbol", options.argumentSymbol, "indexed text of the horizontal axis");
    DeclareSlide(command, options, "addition to the vertical axis' text, shown beside the legend's room");
    add("--function-format", options.functionFormat, "printf format of function values in read-outs");
    add("--argument-format", options.argumentFormat, "printf format of arguments in read-outs");
}

void DeclareLook(CLI::App& command, PLOTOPTIONS& options) {
    DeclareSize(command, options);
    DeclareScales(command, options);
    command.add_option("--fit", options.strFit, "let axes end where the data end: x, y or xy")
        ->check(CLI::IsMember({"x", "y", "xy"}))
        ->option_text("AXES");
    command.add_flag("--diagonal", options.bDiagonal, "draw the diagonal of the frame");
    DeclareSwitches(command, options);
}

} // namespace

void DeclareColumns(CLI::App& command, COLUMNOPTIONS& options) {
    command
        .add_option("--columns", options.columns,
                    "columns to draw, the abscissa first: numbers from 1, or names from the header")
        ->option_text("A,B,...");
    command.add_option("--delimiter", options.delimiter,
                       "tab, comma, semicolon or space (detected otherwise)");
    command.add_flag("--sort", options.bSort, "sort the rows of each file by the abscissa");
}

void DeclarePlotOptions(CLI::App& command, PLOTOPTIONS& options) {
    DeclareInput(command, options);
    DeclareTexts(command, options);
    DeclareLook(command, options);
    command.footer(EXAMPLES);
}

} // namespace tessara
