#include "examples/flory/program/FitCommand.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include <CLI/CLI.hpp>

#include "cli/InputError.h"
#include "cli/Picture.h"
#include "cli/PlotSetup.h"
#include "cli/TextFile.h"
#include "examples/flory/program/FitPlot.h"
#include "examples/flory/program/OutputText.h"
#include "tessara/platform/base/Number.h"

namespace flory {

namespace {

constexpr const char* EXAMPLES =
    R"(Fits chi(T) = a + b/T to measured points, by least squares, and prints a and b with their standard errors. A file holds
temperatures in kelvin (in degrees Celsius when the column's name ends with _C or has °C) and, in its next column,
  chi itself;
  with --chains, the polymer fractions of cloud points at these temperatures;
  with --critical, the chain lengths of polymers whose critical temperatures these are.
With chi, the errors are taken to be those of chi, otherwise those of the temperatures.

Examples:
  flory fit chi.txt -o chi.png
  flory fit chi.txt --columns T_C,chi,phi2 --composition
  flory fit cloud_points.txt --chains 300,9000 --weights 0.99,0.01 -o fit.pdf
  flory fit critical.txt --columns T_C,N --critical -o curve.txt)";

bool IsText(const std::string& strPath) {
    CString strLower(strPath);
    strLower.MakeLower();
    return strLower.View().ends_with(".txt");
}

/// The digits after the point that show two digits of the error.
int DecimalsOf(double dError) {
    constexpr int MAX_DECIMALS = 12;
    return std::clamp(1 - static_cast<int>(std::floor(std::log10(dError))), 0, MAX_DECIMALS);
}

std::string TextOf(const char* pszName, const CInteractionFit::CParameter& parameter, const char* pszUnit) {
    std::string strText = std::string(pszName) + " = ";
    if (parameter.dError > 0 && std::isfinite(parameter.dError)) {
        const int nDecimals = DecimalsOf(parameter.dError);
        strText +=
            tessara::FormatText("%.*f ± %.*f", nDecimals, parameter.dValue, nDecimals, parameter.dError);
    } else {
        strText += tessara::FormatText("%.8g", parameter.dValue);
    }
    return strText + pszUnit;
}

std::vector<std::string> Report(const CMeasuredFile& measured, const CInteractionFit& fit) {
    std::vector<std::string> lines;
    const std::string strKind = measured.kind == Measured::Chi           ? "values of chi"
                                : measured.kind == Measured::CloudPoints ? "cloud points"
                                                                         : "critical temperatures";
    lines.push_back("chi = a + b/T" + std::string(fit.C() ? " + c phi" : "") + ", T in kelvin, fitted to " +
                    std::to_string(measured.points.size()) + " " + strKind +
                    (measured.bCelsius ? "; temperatures read as degrees Celsius" : ""));
    lines.push_back(TextOf("a", fit.A(), ""));
    lines.push_back(TextOf("b", fit.B(), " K"));
    if (fit.C()) {
        lines.push_back(TextOf("c", *fit.C(), ""));
    }
    if (fit.Theta().dValue > 0) {
        lines.push_back(TextOf("theta temperature", fit.Theta(), " K"));
    }
    lines.push_back(std::isnan(fit.Deviation())
                        ? "as many points as parameters: no standard errors"
                        : tessara::FormatText("standard deviation of a point %.3g%s", fit.Deviation(),
                                              measured.kind == Measured::Chi ? "" : " K"));
    if (!fit.C()) {
        lines.push_back(tessara::FormatText("for flory: --chi %.8g,%.8g", fit.A().dValue, fit.B().dValue));
    }
    return lines;
}

CInteractionFit FitOf(const CMeasuredFile& measured, const CMeasuredOptions& options) {
    try {
        return measured.kind == Measured::Chi ? CInteractionFit::ToChi(measured.points, options.bComposition)
                                              : CInteractionFit::ToTemperature(measured.points);
    } catch (const std::invalid_argument& error) {
        throw tessara::CInputError(options.strFile, 0, 0, error.what());
    }
}

} // namespace

void DeclareFitOptions(CLI::App& command, CFitOptions& options) {
    CMeasuredOptions& measured = options.measured;
    command.add_option("FILE", measured.strFile, "file of columns with the measured points")->required();
    command.add_option(
        "-o,--output", options.plot.strOutput,
        "picture of points and curve, .png, .svg, .pdf or .wmf; or .txt, the curve as columns");
    command
        .add_option("--columns", measured.columns,
                    "columns to read, temperatures first: numbers from 1, or names from the header")
        ->option_text("A,B[,C] [1,2[,3]]");
    command.add_option("--delimiter", measured.delimiter,
                       "tab, comma, semicolon or space (detected otherwise)");
    command.add_flag("--celsius", measured.bCelsius, "temperatures are in degrees Celsius");
    command
        .add_option("--chains", measured.solution.strChains,
                    "the points are cloud points of a polymer of these chain lengths")
        ->option_text("R1,R2,...");
    command.add_option("--weights", measured.solution.weights, "their shares of the polymer's volume")
        ->option_text("W1,W2,...")
        ->needs("--chains");
    command.add_flag("--critical", measured.bCritical, "the points are critical temperatures")
        ->excludes("--chains");
    command.add_flag("--composition", measured.bComposition, "fit a + b/T + c phi; phi is a third column");
    tessara::DeclareName(command, options.plot, "caption (the file's name otherwise)");
    tessara::DeclareSize(command, options.plot);
    tessara::DeclareScales(command, options.plot);
    tessara::DeclareSwitches(command, options.plot);
    command.footer(EXAMPLES);
}

void RunFit(CFitOptions options) {
    tessara::PLOTOPTIONS& look = options.plot;
    const bool bText = IsText(look.strOutput);
    const bool bPicture = !look.strOutput.empty() && !bText;
    const tessara::CPictureSize size(look.strSize, look.dDotsPerInch);
    if (bPicture) {
        tessara::FormatOfFile(look.strOutput);
    }
    const CMeasuredFile measured = ReadMeasured(options.measured);
    const CInteractionFit fit = FitOf(measured, options.measured);
    const std::vector<std::string> report = Report(measured, fit);
    if (bText || bPicture) {
        const CFitPlot picture(measured, fit, options.measured.solution);
        if (bText) {
            WriteText(look.strOutput, picture.CurveText(report));
        } else {
            picture.SetTitles(look);
            look.name = look.name.value_or(tessara::FileStem(options.measured.strFile));
            const tessara::CPlotSetup setup(look);
            const tessara::CPlotData data(picture.Source().curves, picture.Source().symbols,
                                          setup.GetWindow());
            COutputCurve plot;
            setup.ApplyTo(plot, data);
            tessara::DrawOutput(plot, size, look.strOutput);
        }
    }
    for (const std::string& strLine : report) {
        std::puts(strLine.c_str());
    }
}

} // namespace flory
