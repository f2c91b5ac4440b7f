#include "examples/flory/program/MultiplePointCommands.h"

#include <cmath>
#include <cstdio>

#include <CLI/CLI.hpp>

#include "examples/flory/model/MultiplePoints.h"
#include "examples/flory/program/OutputText.h"
#include "examples/flory/program/RowReport.h"

namespace flory {

namespace {

constexpr const char* CRITICAL_END_EXAMPLES =
    R"(Critical end points: samples of given chain lengths whose critical point coexists with another phase. Between the
two of a pair of lengths the critical point cannot be observed, and solutions separate into three phases. The table
holds the sample, the critical point, and the polymer fraction of the other phase and its sigma: it holds exp(sigma r)
times as much of chains of length r. Of three lengths, the share w3 of the last one is given a range, row by row.

Examples:
  flory critical-end --chains 300,9000 --chi -0.2956,243.29
  flory critical-end --chains 100,1000,9000 --w3 0.001:0.01 --rows 10 -o ends.txt)";

constexpr const char* TRICRITICAL_EXAMPLES =
    R"(Tricritical points, in which three phases become one. For one chain length: the sample of it and the nearest longer
one that has such a point; pairs of more equal lengths have no three phases. For three lengths: all samples of these.
A point is stable when no other phase undercuts it.

Examples:
  flory tricritical --chains 300
  flory tricritical --chains 100,1000,10000)";

/// Beyond this reach of ln(w2/w1) a species has less than one molecule in any solution.
constexpr double LOG_REACH = 60;

void Declare(CLI::App& command, CSolutionArguments& solution, std::string& strOutput) {
    DeclareChains(command, solution);
    DeclareChi(command, solution, "chi = A + B/T, T in kelvin; the table has T then");
    command.add_option("-o,--output", strOutput, "text file of columns to write (standard output otherwise)");
}

std::string Header(const char* pszTitle, const std::vector<double>& lengths, const COrdinate& ordinate,
                   std::size_t nSpecies, const char* pszFurther) {
    std::string strText = std::string("# ") + pszTitle + "; chain lengths " + ListText(lengths);
    if (ordinate) {
        strText += "; chi = A + B/T, A and B " + ListText({ordinate->A(), ordinate->B()}) + " K";
    }
    strText += '\n';
    for (std::size_t i = 1; i < nSpecies; ++i) {
        strText += "w" + std::to_string(i + 1) + '\t';
    }
    return strText + (ordinate ? "phi\tT\tchi" : "phi\tchi") + pszFurther + '\n';
}

/// Weights without the first, fraction, temperature where there is one, chi.
std::vector<double> RowOf(const CSample& sample, const CCriticalPoint& critical, const COrdinate& ordinate) {
    std::vector<double> row(sample.Weights().begin() + 1, sample.Weights().end());
    row.push_back(critical.dPhi);
    if (ordinate) {
        row.push_back(ordinate->Temperature(critical.dChi));
    }
    row.push_back(critical.dChi);
    return row;
}

void AppendEndPoints(std::string& strText, const CSampleLine& line, const COrdinate& ordinate) {
    for (const CCriticalEndPoint& point : CriticalEndPoints(line, -LOG_REACH, LOG_REACH)) {
        std::vector<double> row = RowOf(point.sample, point.critical, ordinate);
        row.insert(row.end(), {point.dOther, point.dS});
        AppendRow(strText, row);
    }
}

void AppendThreeLengths(std::string& strText, const CCriticalEndOptions& options,
                        const std::vector<double>& lengths, const COrdinate& ordinate) {
    const auto [dFirst, dLast] = RangeOf("--w3", options.strW3);
    if (!(dFirst >= 0 && dLast < 1)) {
        throw CException("--w3: the shares must be from 0 to below 1");
    }
    CRowReport report;
    const CRowProgress progress = report.Progress();
    for (int i = 0; i < options.nRows; ++i) {
        report.Check(progress(i, options.nRows));
        const double dWay = options.nRows > 1 ? static_cast<double>(i) / (options.nRows - 1) : 0;
        AppendEndPoints(strText, LineOfSamples(lengths, 2, std::lerp(dFirst, dLast, dWay)), ordinate);
    }
    progress(options.nRows, options.nRows);
}

void Write(const std::string& strOutput, const std::string& strText) {
    if (strOutput.empty()) {
        std::fputs(strText.c_str(), stdout);
    } else {
        WriteText(strOutput, strText);
    }
}

void CheckOutput(const std::string& strOutput) {
    if (!strOutput.empty()) {
        CheckWritable(strOutput);
    }
}

std::vector<double> LengthsOf(const CSolutionArguments& solution, std::size_t nFew, std::size_t nMany,
                              const char* pszProblem) {
    std::vector<double> lengths = NumbersOf("--chains", solution.strChains);
    if (lengths.size() != nFew && lengths.size() != nMany) {
        throw CException(std::string("--chains: ") + pszProblem);
    }
    SampleOf({solution.strChains, std::nullopt, std::nullopt}); // refuses bad lengths
    return lengths;
}

} // namespace

void DeclareCriticalEndOptions(CLI::App& command, CCriticalEndOptions& options) {
    Declare(command, options.solution, options.strOutput);
    command.add_option("--w3", options.strW3, "range of the third length's share, divided evenly")
        ->option_text("FROM:TO [0.001:0.5]");
    command.add_option("--rows", options.nRows, "values of w3")->option_text("NUMBER [20]");
    command.footer(CRITICAL_END_EXAMPLES);
}

void DeclareTricriticalOptions(CLI::App& command, CTricriticalOptions& options) {
    Declare(command, options.solution, options.strOutput);
    command.footer(TRICRITICAL_EXAMPLES);
}

void RunCriticalEnd(const CCriticalEndOptions& options) {
    const auto lengths = LengthsOf(options.solution, 2, 3, "two or three chain lengths are needed");
    const COrdinate ordinate = InteractionOf(options.solution);
    if (options.nRows < 1 || options.nRows > 1000000) {
        throw CException("--rows: must be 1 to 1000000");
    }
    CheckOutput(options.strOutput);
    std::string strText =
        Header("Critical end points", lengths, ordinate, lengths.size(), "\tother_phi\tsigma");
    if (lengths.size() == 2) {
        AppendEndPoints(strText, LineOfSamples(lengths), ordinate);
    } else {
        AppendThreeLengths(strText, options, lengths, ordinate);
    }
    Write(options.strOutput, strText);
}

void RunTricritical(const CTricriticalOptions& options) {
    const auto lengths = LengthsOf(options.solution, 1, 3, "one or three chain lengths are needed");
    const COrdinate ordinate = InteractionOf(options.solution);
    CheckOutput(options.strOutput);
    const std::vector<CTricriticalPoint> points =
        lengths.size() == 1 ? std::vector{TricriticalPoint(lengths[0])} : TricriticalPoints(lengths);
    const char* pszFurther = lengths.size() == 1 ? "\tr2\tstable" : "\tstable";
    std::string strText =
        Header("Tricritical points", lengths, ordinate, lengths.size() == 1 ? 2 : 3, pszFurther);
    for (const CTricriticalPoint& point : points) {
        std::vector<double> row = RowOf(point.sample, point.critical, ordinate);
        if (lengths.size() == 1) {
            row.push_back(point.sample.Length(1));
        }
        row.push_back(IsObservable(point) ? 1 : 0);
        AppendRow(strText, row);
    }
    Write(options.strOutput, strText);
}

} // namespace flory
