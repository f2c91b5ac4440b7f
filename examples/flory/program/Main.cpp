#include <cstdlib>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/InputError.h"
#include "cli/Program.h"
#include "examples/flory/program/CopolymerCommand.h"
#include "examples/flory/program/FitCommand.h"
#include "examples/flory/program/MapCommands.h"
#include "examples/flory/program/MultiplePointCommands.h"
#include "examples/flory/program/RowReport.h"
#include "examples/flory/program/SolutionCommand.h"

namespace {

constexpr int EXIT_INTERRUPTED = 130; ///< as the shell has it for a program that Ctrl-C ended
constexpr const char* VERSION_LINE = "flory " TESSARA_VERSION;
constexpr const char* SOLUTION = "solution";

constexpr const char* HELP =
    R"(`flory OPTIONS` is short for `flory solution OPTIONS`; `flory solution --help` and the like show the options.

Examples:
  flory --chains 300,9000 --weights 0.99,0.01 --chi -0.2956,243.29 -o ps.json
  flory --chains 300,9000 --weights 0.99,0.01 --chi -0.2956,243.29 -o ps.svg
  flory copolymer --homopolymers 50,50 --diblock 100 -o lifshitz.png
  flory three-phases --chains 300,9000 --w 0.001:0.05 -o three.txt
  flory critical-end --chains 300,9000
  flory fit chi.txt -o chi.png
  flory stability --chains 300,9000 --at-chi 0.56 --phi 0:0.2 --w 0:0.1 -o map.txt)";

/// Adds a subcommand that runs once its options are read; they must outlive the parsing.
template <class OPTIONS, class RUN>
void AddSubcommand(CLI::App& app, const char* pszName, const char* pszHelp, OPTIONS& options,
                   void (*pDeclare)(CLI::App&, OPTIONS&), RUN run) {
    CLI::App* const pCommand = app.add_subcommand(pszName, pszHelp);
    pCommand->set_version_flag("--version", VERSION_LINE);
    pDeclare(*pCommand, options);
    pCommand->callback([&options, run] { run(options); });
}

/// Tells what there is instead of a subcommand that is not.
void CheckSubcommand(const CLI::App& app, const std::vector<std::string>& reversed) {
    const std::string strFirst = reversed.empty() ? "" : reversed.back();
    std::string strNames;
    for (const CLI::App* pCommand : app.get_subcommands({})) {
        if (strFirst.starts_with('-') || pCommand->get_name() == strFirst) {
            return;
        }
        strNames += (strNames.empty() ? "" : ", ") + pCommand->get_name();
    }
    throw CException((strFirst.empty() ? "a subcommand or options are needed"
                                       : tessara::Quoted(strFirst) + " is no subcommand") +
                     "; there are " + strNames);
}

/// The arguments in the reverse order that the parser takes, with the subcommand that may be left out.
std::vector<std::string> ArgumentsOf(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::string strFirst = arguments.empty() ? "" : arguments.front();
    const bool bOfProgram = strFirst == "--help" || strFirst == "-h" || strFirst == "--version";
    if (strFirst.starts_with('-') && !bOfProgram) {
        arguments.insert(arguments.begin(), SOLUTION);
    }
    return {arguments.rbegin(), arguments.rend()};
}

int Run(int argc, char** argv) {
    CLI::App app("Computes phase diagrams of polymer solutions and copolymer blends", "flory");
    app.set_version_flag("--version", VERSION_LINE);
    app.footer(HELP);
    app.require_subcommand(1);
    flory::CSolutionOptions solution;
    AddSubcommand(app, SOLUTION, "Draw the phase diagram of a polymer solution", solution,
                  flory::DeclareSolutionOptions, flory::RunSolution);
    flory::CCopolymerOptions copolymer;
    AddSubcommand(app, "copolymer", "Draw the spinodal of a blend with a diblock", copolymer,
                  flory::DeclareCopolymerOptions, flory::RunCopolymer);
    flory::CThreePhasesOptions threePhases;
    AddSubcommand(app, "three-phases", "Tabulate three-phase points", threePhases,
                  flory::DeclareThreePhasesOptions, flory::RunThreePhases);
    flory::CStabilityOptions stability;
    AddSubcommand(app, "stability", "Tabulate where solutions are stable", stability,
                  flory::DeclareStabilityOptions, flory::RunStability);
    flory::CCriticalEndOptions criticalEnd;
    AddSubcommand(app, "critical-end", "Tabulate critical end points", criticalEnd,
                  flory::DeclareCriticalEndOptions, flory::RunCriticalEnd);
    flory::CTricriticalOptions tricritical;
    AddSubcommand(app, "tricritical", "Find samples with a tricritical point", tricritical,
                  flory::DeclareTricriticalOptions, flory::RunTricritical);
    flory::CFitOptions fit;
    AddSubcommand(app, "fit", "Fit chi(T) to measured points", fit, flory::DeclareFitOptions, flory::RunFit);
    std::vector<std::string> arguments = ArgumentsOf(argc, argv);
    CheckSubcommand(app, arguments);
    try {
        app.parse(arguments);
    } catch (const CLI::Success& answer) {
        return app.exit(answer);
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    return tessara::RunProgram("flory", [&] {
        try {
            return Run(argc, argv);
        } catch (const flory::CAborted& aborted) {
            tessara::Complain("flory", aborted.what());
            return EXIT_INTERRUPTED;
        }
    });
}
