#pragma once

#include <optional>
#include <string>
#include <vector>

#include "examples/flory/model/Interaction.h"
#include "examples/flory/model/Sample.h"

namespace CLI {
class App;
}

namespace flory {

/// What the command line says about the polymer and the solvent, as written; checked when it is used.
struct CSolutionArguments {
    std::string strChains;
    std::optional<std::string> weights;
    std::optional<std::string> chi;
};

void DeclareChains(CLI::App& command, CSolutionArguments& arguments);
void DeclareChi(CLI::App& command, CSolutionArguments& arguments, const char* pszHelp);

// These throw CException, whose what() is one line that names the option, for what is not as described.

/// The sample of --chains and --weights; equal weights when there are none.
CSample SampleOf(const CSolutionArguments& arguments);
/// chi(T) of "A,B"; nothing without --chi.
COrdinate InteractionOf(const CSolutionArguments& arguments);
/// Numbers between commas, as many as asked for (0: any number).
std::vector<double> NumbersOf(const char* pszOption, const std::string& strText, std::size_t nCount = 0);
/// Lengths of exactly two chains.
std::vector<double> TwoChainsOf(const CSolutionArguments& arguments);
/// "FROM:TO" as two ascending numbers.
std::pair<double, double> RangeOf(const char* pszOption, const std::string& strText);

/// Numbers as a reader sees them: "300, 9000".
std::string ListText(const std::vector<double>& values);

} // namespace flory
