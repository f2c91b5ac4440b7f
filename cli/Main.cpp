#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <CLI/CLI.hpp>

#include "cli/DiagramCommand.h"
#include "cli/InputError.h"
#include "cli/PlotCommand.h"
#include "tessara/platform/base/Exception.h"

namespace {

constexpr int EXIT_BAD_INPUT = 2;
constexpr const char* VERSION_LINE = "tessara " TESSARA_VERSION;

int Complain(const char* pszMessage) {
    std::fprintf(stderr, "tessara: %s\n", tessara::OneLine(pszMessage).c_str());
    return EXIT_BAD_INPUT;
}

CLI::App* AddSubcommand(CLI::App& app, const char* pszName, const char* pszHelp) {
    CLI::App* pCommand = app.add_subcommand(pszName, pszHelp);
    pCommand->set_version_flag("--version", VERSION_LINE);
    return pCommand;
}

int Run(int argc, char** argv) {
    CLI::App app("Draws plots for polymer-solution thermodynamics", "tessara");
    app.set_version_flag("--version", VERSION_LINE);
    app.footer("`tessara plot --help` and `tessara diagram --help` show the options and examples.");
    tessara::PLOTOPTIONS plotOptions;
    tessara::DIAGRAMOPTIONS diagramOptions;
    CLI::App* pPlot = AddSubcommand(app, "plot", "Draw files of columns as a picture");
    tessara::DeclarePlotOptions(*pPlot, plotOptions);
    CLI::App* pDiagram = AddSubcommand(app, "diagram", "Draw a phase diagram from a diagram file");
    tessara::DeclareDiagramOptions(*pDiagram, diagramOptions);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& answer) {
        return app.exit(answer);
    }
    if (*pPlot) {
        tessara::RunPlot(plotOptions);
    } else if (*pDiagram) {
        tessara::RunDiagram(diagramOptions);
    } else {
        throw CException("a subcommand is required: tessara plot or tessara diagram");
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    // Pictures need no display, whatever the environment says, and Qt's advice about it is no message of
    // ours.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_LOGGING_RULES", "*.warning=false", 0);
    std::signal(SIGXFSZ, SIG_IGN); // a limit of file sizes is an error like a full disk
    try {
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        return Complain("out of memory");
    } catch (const std::exception& error) {
        return Complain(error.what());
    }
}
