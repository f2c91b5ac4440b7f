#include "examples/flory/program/Arguments.h"

#include <stdexcept>

#include <CLI/CLI.hpp>

#include "cli/InputError.h"
#include "cli/NumberList.h"
#include "tessara/platform/base/Number.h"

namespace flory {

namespace {

/// The model says what is wrong, the command line where.
template <class MAKE>
auto Made(const char* pszOption, MAKE make) {
    try {
        return make();
    } catch (const std::invalid_argument& error) {
        throw CException(std::string(pszOption) + ": " + error.what());
    }
}

} // namespace

void DeclareChains(CLI::App& command, CSolutionArguments& arguments) {
    command.add_option("--chains", arguments.strChains, "chain lengths in volumes of a solvent molecule")
        ->required()
        ->option_text("R1,R2,... REQUIRED");
}

void DeclareChi(CLI::App& command, CSolutionArguments& arguments, const char* pszHelp) {
    command.add_option("--chi", arguments.chi, pszHelp)->option_text("A,B");
}

std::vector<double> NumbersOf(const char* pszOption, const std::string& strText, std::size_t nCount) {
    std::vector<double> values = tessara::ParseNumberList(pszOption, strText, ',');
    if (nCount > 0 && values.size() != nCount) {
        throw CException(std::string(pszOption) + ": " + tessara::Quoted(strText) + " is not " +
                         std::to_string(nCount) + " numbers with commas between them");
    }
    return values;
}

CSample SampleOf(const CSolutionArguments& arguments) {
    const std::vector<double> chains = NumbersOf("--chains", arguments.strChains);
    std::vector<double> weights(chains.size(), 1);
    if (arguments.weights) {
        weights = NumbersOf("--weights", *arguments.weights);
        if (weights.size() != chains.size()) {
            throw CException("--weights: " + std::to_string(weights.size()) + " for " +
                             std::to_string(chains.size()) + " chain lengths");
        }
    }
    Made("--chains", [&] { return CSample(chains, std::vector<double>(chains.size(), 1)); });
    return Made("--weights", [&] { return CSample(chains, weights); });
}

COrdinate InteractionOf(const CSolutionArguments& arguments) {
    if (!arguments.chi) {
        return {};
    }
    const std::vector<double> values = NumbersOf("--chi", *arguments.chi, 2);
    return Made("--chi", [&] { return CInteraction(values[0], values[1]); });
}

std::vector<double> TwoChainsOf(const CSolutionArguments& arguments) {
    std::vector<double> chains = NumbersOf("--chains", arguments.strChains, 2);
    Made("--chains", [&] { return CSample(chains, {1, 1}); });
    return chains;
}

std::pair<double, double> RangeOf(const char* pszOption, const std::string& strText) {
    const std::vector<double> ends = tessara::ParseNumberList(pszOption, strText);
    if (ends.size() != 2 || !(ends[0] < ends[1])) {
        throw CException(std::string(pszOption) + ": " + tessara::Quoted(strText) +
                         " is not a range FROM:TO");
    }
    return {ends[0], ends[1]};
}

std::string ListText(const std::vector<double>& values) {
    std::string strText;
    for (const double dValue : values) {
        strText += (strText.empty() ? "" : ", ") + tessara::FormatText("%.15g", dValue);
    }
    return strText;
}

} // namespace flory
