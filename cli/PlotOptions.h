#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/PictureOptions.h"

namespace tessara {

/// What the user asks `tessara plot` for, as written; checked when it is used.
struct PLOTOPTIONS : PICTUREOPTIONS {
    std::vector<std::string> files;

    std::optional<std::string> columns;
    std::optional<std::string> delimiter;
    bool bSort = false;
    std::optional<std::string> symbols;
    std::optional<std::string> symbolsColumns;

    std::optional<std::string> symbol;
    std::optional<std::string> argumentName;
    std::optional<std::string> argumentSymbol;
    std::optional<std::string> functionFormat;
    std::optional<std::string> argumentFormat;

    std::string strFit;
    bool bDiagonal = false;
};

/// Gives the subcommand its options, which fill `options` when the command line is parsed.
void DeclarePlotOptions(CLI::App& command, PLOTOPTIONS& options);

} // namespace tessara
