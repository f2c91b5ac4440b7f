#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tessara {

/// What the user asks `tessara plot` for, as written; checked when it is used.
struct PLOTOPTIONS {
    std::vector<std::string> files;
    std::string strOutput;

    std::optional<std::string> columns;
    std::optional<std::string> delimiter;
    bool bSort = false;
    std::optional<std::string> symbols;
    std::optional<std::string> symbolsColumns;

    std::string strSize = "1600x1150";
    double dDotsPerInch = 240;

    std::optional<std::string> name;
    std::optional<std::string> symbol;
    std::optional<std::string> argumentName;
    std::optional<std::string> argumentSymbol;
    std::optional<std::string> slide;
    std::optional<std::string> functionFormat;
    std::optional<std::string> argumentFormat;

    std::optional<std::string> xScale;
    std::optional<std::string> yScale;
    std::string strFit;
    bool bDiagonal = false;
    bool bNoLegend = false;
    bool bNoCaption = false;
    bool bMonochrome = false;
};

/// Gives the subcommand its options, which fill `options` when the command line is parsed.
void DeclarePlotOptions(CLI::App& command, PLOTOPTIONS& options);

} // namespace tessara
