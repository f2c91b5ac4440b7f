#pragma once

#include "cli/PictureOptions.h"

namespace tessara {

/// What the user asks `tessara diagram` for, as written; checked when it is used.
struct DIAGRAMOPTIONS : PICTUREOPTIONS {
    std::string strFile;
    std::optional<std::string> zoom;
    bool bMultiphasePoints = false;
};

/// Gives the subcommand its options, which fill `options` when the command line is parsed.
void DeclareDiagramOptions(CLI::App& command, DIAGRAMOPTIONS& options);

/// Those of them that say how a diagram looks, for any command that draws one.
void DeclareDiagramLook(CLI::App& command, DIAGRAMOPTIONS& options, const char* pszNameHelp,
                        const char* pszZoomHelp);

} // namespace tessara
