#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/PlotOptions.h"
#include "examples/flory/model/InteractionFit.h"
#include "examples/flory/program/Arguments.h"

namespace flory {

constexpr double ICE_POINT = 273.15; ///< K at 0 degrees Celsius

/// What was measured, over the temperature.
enum class Measured {
    Chi,                 ///< the interaction parameter
    CloudPoints,         ///< polymer fractions at which solutions of one sample begin to separate
    CriticalTemperatures ///< of polymers of one length each
};

/// Measured points from a file of columns: temperatures, then what they belong to and, where asked for, the
/// polymer fraction. Rows with a gap are left out.
struct CMeasuredFile {
    Measured kind;
    bool bCelsius;                               ///< the file's temperatures, which the points have in kelvin
    std::string strColumn;                       ///< the temperatures' name in the file, may be empty
    std::vector<CInteractionFit::CPoint> points; ///< with chi that the model gives where it was not measured
    std::vector<double> abscissae;               ///< over which the points are drawn
};

/// How a file of measured points is read, as written.
struct CMeasuredOptions : tessara::COLUMNOPTIONS {
    std::string strFile;
    CSolutionArguments solution; ///< without chains for measured chi
    bool bCritical = false;
    bool bComposition = false;
    bool bCelsius = false;
};

/// Throws CException, whose what() is one line that names the file or the option.
CMeasuredFile ReadMeasured(const CMeasuredOptions& options);

/// The sample whose cloud points were measured.
CCloudPointCurve CurveOf(const CSolutionArguments& solution);

} // namespace flory
