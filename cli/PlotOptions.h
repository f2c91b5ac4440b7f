#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/PictureOptions.h"

namespace tessara {

/// How files of columns are read, as written; checked when it is used.
struct COLUMNOPTIONS {
    std::optional<std::string> columns;
    std::optional<std::string> delimiter;
    bool bSort = false;
};

/// What the user asks `tessara plot` for, as written; checked when it is used.
struct PLOTOPTIONS : PICTUREOPTIONS, COLUMNOPTIONS {
    std::vector<std::string> files;

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

/// Gives a subcommand the options that say how files of columns are read.
void DeclareColumns(CLI::App& command, COLUMNOPTIONS& options);

/// Gives the subcommand its options, which fill `options` when the command line is parsed.
void DeclarePlotOptions(CLI::App& command, PLOTOPTIONS& options);

} // namespace tessara
