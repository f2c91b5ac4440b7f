#include "examples/flory/program/SolutionCommand.h"

#include <CLI/CLI.hpp>

#include "cli/InputError.h"
#include "cli/Program.h"
#include "examples/flory/model/Spinodal.h"
#include "examples/flory/program/DiagramFileOutput.h"
#include "examples/flory/program/RowReport.h"
#include "examples/flory/program/SolutionDiagram.h"

namespace flory {

namespace {

constexpr const char* THREE_PHASE = "three-phase";

constexpr const char* EXAMPLES =
    R"(The phase diagram of a polymer of several chain lengths in a solvent, after Flory and Huggins: temperature, or chi,
over the polymer's volume fraction. The curves are whole in a .json file (docs/diagram-format.md), which
`tessara diagram` draws; the scales show their beginning.

)" INDEXED_TEXT_HELP R"(
Examples:
  flory --chains 1000 -o one.png
  flory --chains 300,9000 --weights 0.99,0.01 --chi -0.2956,243.29 -o ps.json
  flory --chains 300,9000 --weights 0.99,0.01 --chi -0.2956,243.29 --zoom three-phase -o corner.svg
  flory --chains 100,3000 --weights 0.9,0.1 --section 0.12 --y-scale 0.6:0.62:0.005 -o section.pdf)";

int CheckedPoints(int nPoints) {
    if (nPoints < 16 || nPoints > 1000000) {
        throw CException("--points: must be 16 to 1000000");
    }
    return nPoints;
}

std::vector<double> SectionsOf(const CSolutionOptions& options) {
    std::vector<double> sections =
        options.sections ? NumbersOf("--section", *options.sections) : std::vector<double>();
    for (const double dPhi : sections) {
        if (!(dPhi > 0 && dPhi < 1)) {
            throw CException("--section: a polymer fraction must lie between 0 and 1");
        }
    }
    return sections;
}

COrdinate OrdinateOf(const CSolutionOptions& options) {
    const COrdinate interaction = InteractionOf(options.solution);
    if (options.strOrdinate == "T" && !interaction) {
        throw CException("--ordinate: T needs --chi, which tells how chi depends on it");
    }
    return options.strOrdinate == "chi" ? COrdinate() : interaction;
}

std::vector<std::string> NoteOf(const CSolutionOptions& options, const CSample& sample) {
    std::vector<std::string> note = {"Flory-Huggins solution, computed by flory " TESSARA_VERSION,
                                     "chain lengths " + ListText(sample.Lengths()),
                                     "weights " + ListText(sample.Weights())};
    if (const COrdinate chi = InteractionOf(options.solution)) {
        note.push_back("chi = A + B/T, A and B " + ListText({chi->A(), chi->B()}) + " K");
    }
    return note;
}

/// The diagram; tells how far the work is, and what is to be said of the sections.
tessara::DIAGRAM Computed(CSolutionPlan plan) {
    std::vector<std::string> remarks;
    plan.remark = [&](const std::string& strRemark) { remarks.push_back(strRemark); };
    tessara::DIAGRAM diagram;
    {
        CRowReport report(CRowReport::PATIENCE);
        bool bGoOn = true;
        plan.progress = [&, progress = report.Progress()](int nDone, int nSteps) {
            bGoOn = bGoOn && progress(nDone, nSteps);
            return bGoOn;
        };
        diagram = SolutionDiagram(plan);
        report.Check(bGoOn);
    }
    for (const std::string& strRemark : remarks) {
        tessara::Complain("flory", strRemark.c_str());
    }
    return diagram;
}

/// An empty diagram would leave the user to wonder why.
void CheckSeparates(const CSolutionPlan& plan, const tessara::DIAGRAM& diagram) {
    if (!plan.ordinate || !diagram.spinodal.parts.empty() || !diagram.binodal.parts.empty()) {
        return;
    }
    throw CException("--chi: chi stays below " + ListText({plan.ordinate->A()}) +
                     " at every temperature, so that nothing of this diagram has one; its critical point is "
                     "at chi " +
                     ListText({CriticalPoint(plan.sample).dChi}));
}

} // namespace

void DeclareSolutionOptions(CLI::App& command, CSolutionOptions& options) {
    DeclareChains(command, options.solution);
    command
        .add_option("--weights", options.solution.weights,
                    "their shares of the polymer's volume, in any unit (equal otherwise)")
        ->option_text("W1,W2,...");
    DeclareChi(command, options.solution, "chi = A + B/T, T in kelvin; the ordinate is T then");
    tessara::DeclareOutput(command, options,
                           "file to write: .json (a diagram file), .png, .svg, .pdf or .wmf");
    command.add_option("--ordinate", options.strOrdinate, "T or chi")
        ->check(CLI::IsMember({"T", "chi"}))
        ->option_text("T|chi");
    command.add_option("--points", options.nPoints, "points of a curve")->option_text("NUMBER [2000]");
    command
        .add_option("--section", options.sections,
                    "draw what solutions of these polymer fractions separate into, instead of cloud points")
        ->option_text("PHI,...");
    command.add_flag("--no-spinodal", options.bNoSpinodal, "no spinodal");
    command.add_flag("--no-shadow", options.bNoShadow, "no shadow curve");
    command.add_flag("--physical", options.bPhysical, "only what can be observed");
    tessara::DeclareDiagramLook(command, options, "caption",
                                "show only this region; `three-phase`: that of the three-phase points");
    command.footer(EXAMPLES);
}

void RunSolution(const CSolutionOptions& options) {
    tessara::DIAGRAMOPTIONS look = options;
    const bool bThreePhase = look.zoom == THREE_PHASE;
    if (bThreePhase) {
        look.zoom.reset();
    }
    const CDiagramFileOutput output(look);
    const CSolutionPlan plan{SampleOf(options.solution),
                             OrdinateOf(options),
                             CheckedPoints(options.nPoints),
                             !options.bNoSpinodal,
                             !options.bNoShadow,
                             options.bPhysical,
                             bThreePhase,
                             SectionsOf(options)};
    const tessara::DIAGRAM diagram = Computed(plan);
    CheckSeparates(plan, diagram);
    output.Write(diagram, NoteOf(options, plan.sample));
}

} // namespace flory
