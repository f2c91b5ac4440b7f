#include "cli/ViewCommand.h"

#include <cstdlib>
#include <unistd.h>

#include <CLI/CLI.hpp>

#include "cli/Picture.h"
#include "cli/PictureSize.h"
#include "cli/Program.h"
#include "cli/view/ViewerApp.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/GraphicsException.h"
#include "tessara/platform/ui/windows/System.h"

namespace tessara {

namespace {

constexpr const char* PLATFORM = "QT_QPA_PLATFORM";
constexpr const char* SCREENSHOT_SIZE = "1000x700"; ///< of the window
constexpr double SCREEN_DOTS_PER_INCH = 96;

constexpr const char* EXAMPLES =
    R"(Shows a file of columns or a diagram file in a window, and follows it when it changes. Help > Keys (F1) lists all
keys. For the files see `tessara plot --help` and `tessara diagram --help`.

Examples:
  tessara view chi.txt
  tessara view table.csv --columns T,chi
  tessara view ps.json
  tessara view ps.json --screenshot window.png --size 1000x700)";

CViewerStart StartOf(const VIEWOPTIONS& options, const std::string& strVersion) {
    CViewerStart start;
    start.source = {options.strFile, options.columns, options.delimiter, options.bSort};
    start.strVersion = strVersion;
    start.strScreenshot = options.strScreenshot;
    if (options.size || !options.strScreenshot.empty()) {
        start.size.emplace(options.size.value_or(SCREENSHOT_SIZE), SCREEN_DOTS_PER_INCH);
    }
    return start;
}

void CheckScreenshot(const std::string& strPath) {
    if (FormatOfFile(strPath) != PictureFormat::Png) {
        throw CException("--screenshot: the name must end with .png");
    }
}

/// The toolkit ends the process when it loses the display, and says so in its own way or not at all.
class CDisplayWatch {
public:
    CDisplayWatch() {
        s_bRunning = true;
        std::atexit(&OnExit);
    }
    ~CDisplayWatch() { s_bRunning = false; }
    CDisplayWatch(const CDisplayWatch&) = delete;
    CDisplayWatch& operator=(const CDisplayWatch&) = delete;

private:
    static void OnExit() {
        if (s_bRunning) {
            Complain("tessara", "the connection to the display is lost");
            _exit(EXIT_BAD_INPUT);
        }
    }

    static inline bool s_bRunning = false;
};

} // namespace

void DeclareViewOptions(CLI::App& command, VIEWOPTIONS& options) {
    command.add_option("FILE", options.strFile, "file of columns, or diagram file")->required();
    DeclareColumns(command, options);
    command.add_option("--screenshot", options.strScreenshot, "write a picture of the window and end: .png")
        ->option_text("OUT");
    command.add_option("--size", options.size, "size of the window in pixels; 1000x700 for a picture")
        ->option_text("SIZE");
    command.footer(EXAMPLES);
}

CDisplay::CDisplay() : m_bScreen(std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY")) {
    if (const char* const pszPlatform = std::getenv(PLATFORM)) {
        m_platform = pszPlatform;
    }
}

void CDisplay::SetPlatform() const {
    if (m_platform) {
        setenv(PLATFORM, m_platform->c_str(), 1);
    } else {
        unsetenv(PLATFORM);
    }
}

void CDisplay::Use() const {
    constexpr const char* ADVICE = "; --screenshot needs none";
    if (!m_platform && !m_bScreen) {
        throw CException(std::string("there is no display to show a window on") + ADVICE);
    }
    SetPlatform();
    try {
        RequireWindows();
    } catch (const CGraphicsException& error) {
        throw CException(error.what() + std::string(ADVICE));
    }
}

void CDisplay::UseForPicture() const {
    setenv(PLATFORM, (m_platform ? *m_platform + ";offscreen" : "offscreen").c_str(), 1);
}

int RunView(const VIEWOPTIONS& options, const CDisplay& display, const std::string& strVersion) {
    CViewerStart start = StartOf(options, strVersion);
    if (start.strScreenshot.empty()) {
        display.Use();
    } else {
        CheckScreenshot(start.strScreenshot);
        display.UseForPicture();
    }
    const CDisplayWatch watch;
    CViewerApp app(std::move(start));
    char szName[] = "tessara";
    char* arguments[] = {szName, nullptr};
    const int nCode = AfxRunApplication(1, arguments);
    app.RethrowFailure();
    return nCode;
}

} // namespace tessara
