#pragma once

#include <optional>
#include <string>

#include "cli/PlotOptions.h"

namespace tessara {

/// What the user asks `tessara view` for, as written; checked when it is used.
struct VIEWOPTIONS : COLUMNOPTIONS {
    std::string strFile;
    std::string strScreenshot; ///< empty for none
    std::optional<std::string> size;
};

/// Gives the subcommand its options, which fill `options` when the command line is parsed.
void DeclareViewOptions(CLI::App& command, VIEWOPTIONS& options);

/// Where windows can be shown, as the environment says. Looked up before the program decides that its
/// pictures need no display.
class CDisplay {
public:
    CDisplay();

    /// Lets windows appear there. Throws CException where there is no display or none can be reached.
    void Use() const;
    /// Lets windows be made for a picture: without a display unless the user has named a platform that can be
    /// had.
    void UseForPicture() const;

private:
    void SetPlatform() const;

    std::optional<std::string> m_platform; ///< that the user has named
    bool m_bScreen;
};

/// Does what `tessara view` is asked for: shows the file until the user closes the window, or writes a
/// picture of the window. strVersion is shown in About. Returns the exit code. Throws CException, whose
/// what() is one line for the user.
int RunView(const VIEWOPTIONS& options, const CDisplay& display, const std::string& strVersion);

} // namespace tessara
