#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tessara {

/// What the user asks `tessara archive` for, as written.
struct ARCHIVEOPTIONS {
    std::string strFolder;
    std::string strExtension; ///< empty for whichever files of the folder have
    std::string strTitle;
    std::string strFile; ///< "-" for standard input or output
    bool bJson = false;
};

/// Gives the subcommand its own subcommands, which fill `options` when the command line is parsed.
void DeclareArchiveOptions(CLI::App& command, ARCHIVEOPTIONS& options);

/// Does what `tessara archive` is asked for. Returns the exit code: 1 when a check has found something.
/// Throws CException, whose what() is one line for the user.
int RunArchive(const CLI::App& command, const ARCHIVEOPTIONS& options);

} // namespace tessara
