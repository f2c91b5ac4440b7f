#include "examples/flory/program/MapCommands.h"

#include <CLI/CLI.hpp>

#include "examples/flory/model/StabilityMap.h"
#include "examples/flory/model/ThreePhaseMap.h"
#include "examples/flory/program/OutputText.h"
#include "examples/flory/program/RowReport.h"
#include "tessara/platform/base/Number.h"

namespace flory {

namespace {

constexpr const char* STABILITY_EXAMPLES =
    R"(How far solutions of two chain lengths are from separating at one chi, over the polymer's volume fraction phi and the
share w of the second chain: min X - chi of the tangent-plane test, positive where the solution is stable. The table
has a line for each point of a grid.

Example:
  flory stability --chains 300,9000 --at-chi 0.56 --size 200 --phi 0:0.2 --w 0:0.1 -o map.txt)";

constexpr const char* THREE_PHASES_EXAMPLES =
    R"(The three-phase points of two chain lengths over the share w of the second one: the fraction phi of the solution, its
temperature or chi, the fractions of the two other phases, and 3. A share has none, one or several. Where they end
stands a critical end point, where two of the phases are the same: its last number is 2.

Example:
  flory three-phases --chains 300,9000 --chi -0.2956,243.29 --w 0.001:0.05 --rows 50 -o three.txt)";

CLI::Option* AddOutput(CLI::App& command, std::string& strOutput) {
    return command.add_option("-o,--output", strOutput, "text file of columns to write")->required();
}

CFractionRange FractionsOf(const char* pszOption, const std::string& strText) {
    const auto [dFirst, dLast] = RangeOf(pszOption, strText);
    if (dFirst < 0 || dLast > 1) {
        throw CException(std::string(pszOption) + ": fractions must lie between 0 and 1");
    }
    return {dFirst, dLast};
}

std::string TextOf(const CStabilityMap& map, const CStabilityOptions& options) {
    std::string strText = "# Stability of solutions, min X - chi at chi = " + ListText({options.dChi}) +
                          "; chain lengths " + ListText(TwoChainsOf(options.solution)) +
                          "\nw\tphi\tstability\n";
    for (int nRow = 0; nRow < map.Size(); ++nRow) {
        for (int nColumn = 0; nColumn < map.Size(); ++nColumn) {
            AppendRow(strText, {map.W(nRow), map.Phi(nColumn), map.Value(nRow, nColumn)});
        }
    }
    return strText;
}

std::string TextOf(const CTable& table, const CThreePhasesOptions& options) {
    const COrdinate chi = InteractionOf(options.solution);
    const bool bTemperature = chi.has_value();
    std::string strText = "# Three-phase points; chain lengths " + ListText(TwoChainsOf(options.solution));
    strText += chi ? "; chi = A + B/T, A and B " + ListText({chi->A(), chi->B()}) + " K\n" : "\n";
    strText += bTemperature ? "w\tphi\tT\tshadow1\tshadow2\tchi\tphases\n"
                            : "w\tphi\tchi\tshadow1\tshadow2\tphases\n";
    for (int i = 0; i < table.m_nPoints; ++i) {
        std::vector<double> row;
        for (const int n : bTemperature ? std::vector{0, 1, 2, 3, 4, 5, 6} : std::vector{0, 1, 2, 3, 4, 6}) {
            row.push_back(table.m_ppData[n][i]);
        }
        AppendRow(strText, row);
    }
    return strText;
}

} // namespace

void DeclareStabilityOptions(CLI::App& command, CStabilityOptions& options) {
    DeclareChains(command, options.solution);
    command.add_option("--at-chi", options.dChi, "interaction parameter")
        ->required()
        ->option_text("NUMBER REQUIRED");
    AddOutput(command, options.strOutput);
    command.add_option("--size", options.nSize, "points of the grid each way")->option_text("NUMBER [400]");
    command.add_option("--phi", options.strPhi, "range of phi")->option_text("FROM:TO [0:1]");
    command.add_option("--w", options.strW, "range of w")->option_text("FROM:TO [0:1]");
    command.footer(STABILITY_EXAMPLES);
}

void DeclareThreePhasesOptions(CLI::App& command, CThreePhasesOptions& options) {
    DeclareChains(command, options.solution);
    DeclareChi(command, options.solution, "chi = A + B/T, T in kelvin; the table has T then");
    AddOutput(command, options.strOutput);
    command.add_option("--w", options.strW, "range of w, divided evenly in ln(w/(1-w))")
        ->option_text("FROM:TO [0.001:0.5]");
    command.add_option("--rows", options.nRows, "values of w")->option_text("NUMBER [200]");
    command.footer(THREE_PHASES_EXAMPLES);
}

void RunStability(const CStabilityOptions& options) {
    const std::vector<double> chains = TwoChainsOf(options.solution);
    if (options.nSize < 1 || options.nSize > 2000) {
        throw CException("--size: must be 1 to 2000");
    }
    CStabilityMap map(chains[0], chains[1], options.dChi, options.nSize, FractionsOf("--phi", options.strPhi),
                      FractionsOf("--w", options.strW));
    CheckWritable(options.strOutput);
    {
        CRowReport report;
        report.Check(map.Compute(report.Progress()));
    }
    WriteText(options.strOutput, TextOf(map, options));
}

void RunThreePhases(const CThreePhasesOptions& options) {
    const std::vector<double> chains = TwoChainsOf(options.solution);
    const COrdinate ordinate = InteractionOf(options.solution);
    const auto [dFirst, dLast] = RangeOf("--w", options.strW);
    if (!(dFirst > 0 && dLast < 1)) {
        throw CException("--w: the shares must lie between 0 and 1");
    }
    if (options.nRows < 1 || options.nRows > 1000000) {
        throw CException("--rows: must be 1 to 1000000");
    }
    CThreePhaseMap map(chains[0], chains[1], dFirst, dLast, options.nRows);
    CheckWritable(options.strOutput);
    {
        CRowReport report;
        report.Check(map.Compute(report.Progress()));
    }
    WriteText(options.strOutput, TextOf(*map.Table(ordinate), options));
}

} // namespace flory
