#include "examples/flory/program/CopolymerCommand.h"

#include <CLI/CLI.hpp>

#include "cli/InputError.h"
#include "examples/flory/program/Arguments.h"
#include "examples/flory/program/CopolymerDiagram.h"
#include "examples/flory/program/DiagramFileOutput.h"

namespace flory {

namespace {

constexpr const char* EXAMPLES =
    R"(The spinodal of molten homopolymers A and B with a diblock copolymer in the random-phase approximation: chi times the
diblock's length over its volume fraction or, with --at, over that of A. Beyond a Lifshitz point a structure forms
before the blend separates (nontrivial branch).

Examples:
  flory copolymer --homopolymers 50,50 --diblock 100 -o lifshitz.png
  flory copolymer --homopolymers 40,90 --diblock 100,0.3 --at 0.2 -o across.json)";

double CheckedShare(const char* pszOption, double dShare) {
    if (!(dShare >= 0 && dShare <= 1)) {
        throw CException(std::string(pszOption) + ": must be 0 to 1");
    }
    return dShare;
}

double CheckedLength(const char* pszOption, double dLength) {
    if (!(dLength >= 1e-3 && dLength <= 1e9)) {
        throw CException(std::string(pszOption) + ": a chain length must be 0.001 to 1000000000");
    }
    return dLength;
}

CCopolymerPlan PlanOf(const CCopolymerOptions& options) {
    const std::vector<double> homopolymers = NumbersOf("--homopolymers", options.strHomopolymers, 2);
    const std::vector<double> diblock = NumbersOf("--diblock", options.strDiblock);
    if (diblock.size() > 2) {
        throw CException("--diblock: " + tessara::Quoted(options.strDiblock) + " is not N or N,F");
    }
    if (options.nPoints < 16 || options.nPoints > 100000) {
        throw CException("--points: must be 16 to 100000");
    }
    if (options.at && !(*options.at >= 0 && *options.at < 1)) {
        throw CException("--at: must be from 0 to below 1");
    }
    return {CheckedLength("--homopolymers", homopolymers[0]),
            CheckedLength("--homopolymers", homopolymers[1]),
            CheckedLength("--diblock", diblock[0]),
            CheckedShare("--diblock", diblock.size() > 1 ? diblock[1] : 0.5),
            CheckedShare("--share", options.dShare),
            options.at,
            options.nPoints};
}

std::vector<std::string> NoteOf(const CCopolymerPlan& plan) {
    return {"Homopolymers A and B with a diblock copolymer in the random-phase approximation, computed by "
            "flory " TESSARA_VERSION,
            "lengths of A and B " + ListText({plan.dLengthA, plan.dLengthB}),
            "length of the diblock and its share of A " + ListText({plan.dDiblockLength, plan.dDiblockA}),
            plan.diblock ? "fraction of the diblock " + ListText({*plan.diblock})
                         : "share of A in the homopolymers " + ListText({plan.dShare})};
}

} // namespace

void DeclareCopolymerOptions(CLI::App& command, CCopolymerOptions& options) {
    command.add_option("--homopolymers", options.strHomopolymers, "chain lengths of A and B")
        ->required()
        ->option_text("NA,NB REQUIRED");
    command.add_option("--diblock", options.strDiblock, "the diblock's length, and its share of A")
        ->required()
        ->option_text("N[,F] REQUIRED");
    tessara::DeclareOutput(command, options,
                           "file to write: .json (a diagram file), .png, .svg, .pdf or .wmf");
    command.add_option("--share", options.dShare, "share of A in the homopolymers")
        ->option_text("NUMBER [0.5]");
    command.add_option("--at", options.at, "fixed fraction of the diblock; that of A varies then")
        ->option_text("PHI")
        ->excludes("--share");
    command.add_option("--points", options.nPoints, "points of a branch")->option_text("NUMBER [401]");
    tessara::DeclareDiagramLook(command, options, "caption", "show only the region between two corners");
    command.footer(EXAMPLES);
}

void RunCopolymer(const CCopolymerOptions& options) {
    const CDiagramFileOutput output(options);
    const CCopolymerPlan plan = PlanOf(options);
    output.Write(CopolymerDiagram(plan), NoteOf(plan));
}

} // namespace flory
