#include <cstdlib>

#include <CLI/CLI.hpp>

#include "cli/DiagramCommand.h"
#include "cli/PlotCommand.h"
#include "cli/Program.h"
#include "cli/ViewCommand.h"
#include "cli/archive/ArchiveCommand.h"
#include "tessara/platform/base/Exception.h"

namespace {

constexpr const char* VERSION_LINE = "tessara " TESSARA_VERSION;

CLI::App* AddSubcommand(CLI::App& app, const char* pszName, const char* pszHelp) {
    CLI::App* pCommand = app.add_subcommand(pszName, pszHelp);
    pCommand->set_version_flag("--version", VERSION_LINE);
    return pCommand;
}

int Run(int argc, char** argv, const tessara::CDisplay& display) {
    CLI::App app("Draws plots for polymer-solution thermodynamics", "tessara");
    app.set_version_flag("--version", VERSION_LINE);
    app.footer("`tessara plot --help`, `tessara diagram --help`, `tessara view --help` and `tessara archive "
               "--help` show "
               "the options and examples.");
    tessara::PLOTOPTIONS plotOptions;
    tessara::DIAGRAMOPTIONS diagramOptions;
    CLI::App* pPlot = AddSubcommand(app, "plot", "Draw files of columns as a picture");
    tessara::DeclarePlotOptions(*pPlot, plotOptions);
    CLI::App* pDiagram = AddSubcommand(app, "diagram", "Draw a phase diagram from a diagram file");
    tessara::DeclareDiagramOptions(*pDiagram, diagramOptions);
    tessara::VIEWOPTIONS viewOptions;
    CLI::App* pView = AddSubcommand(app, "view", "Show a file of columns or a diagram file in a window");
    tessara::DeclareViewOptions(*pView, viewOptions);
    tessara::ARCHIVEOPTIONS archiveOptions;
    CLI::App* pArchive =
        AddSubcommand(app, "archive", "Look into an archive of documents, take data out and in");
    tessara::DeclareArchiveOptions(*pArchive, archiveOptions);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& answer) {
        return app.exit(answer);
    }
    if (*pView) {
        return tessara::RunView(viewOptions, display, VERSION_LINE);
    }
    if (*pArchive) {
        return tessara::RunArchive(*pArchive, archiveOptions);
    }
    if (*pPlot) {
        tessara::RunPlot(plotOptions);
    } else if (*pDiagram) {
        tessara::RunDiagram(diagramOptions);
    } else {
        throw CException(
            "a subcommand is required: tessara plot, tessara diagram, tessara view or tessara archive");
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const tessara::CDisplay display; // before the environment is set for pictures
    return tessara::RunProgram("tessara", [&] { return Run(argc, argv, display); });
}
