#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/ColumnFile.h"
#include "cli/CurveParts.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultipartCurve.h"

namespace tessara {

inline constexpr int MAX_CURVES = 6;  ///< as many as there are colours
inline constexpr int MAX_SYMBOLS = 2; ///< squares and circles

/// What becomes of columns over the same abscissae that have gaps, or of which the window shows a part.
enum class PlotGaps {
    EndParts, ///< each column becomes parts of a multipart curve
    Stay      ///< they stay one multi-curve, from which values can be read out; see MakeCurveGrid
};

/// What a plot shows, made from the columns of files: curves and, over them, marker points.
///
/// Columns over the same abscissae and without gaps are one multi-curve. Otherwise the curves are the parts
/// of one multipart curve, column i in colour i; a gap ends a part (but see PlotGaps). Without curves the
/// multipart curve has no parts and holds the marker points, so that the axes reach over them. Errors are
/// thrown as CInputError that names the file.
class CPlotData {
public:
    /// REQUIRES: there is a file of curves or one of symbols. The abscissae of curves must ascend.
    CPlotData(const std::vector<CColumnFile>& curves, const std::optional<CColumnFile>& symbols,
              const PLOTWINDOW& window = {}, PlotGaps gaps = PlotGaps::EndParts);

    /// Exactly one of the two is not null.
    CMultiCurve* GetMultiCurve() const { return m_pMultiCurve.get(); }
    CMultipartCurve* GetMultipartCurve() const { return m_pMultipartCurve.get(); }
    /// The marker points, or null: column 0 squares, column 1 circles.
    CMultiCurve* GetSymbols() const { return m_pSymbols.get(); }
    int GetNumCurves() const { return m_nCurves; }

    /// From the header lines, empty without one: the abscissa's name, and those of the functions, joined.
    /// Plain text.
    const std::string& GetArgumentName() const { return m_strArgumentName; }
    const std::string& GetFunctionNames() const { return m_strFunctionNames; }

private:
    int m_nCurves = 0;
    std::unique_ptr<CMultiCurve> m_pMultiCurve;
    std::unique_ptr<CMultipartCurve> m_pMultipartCurve;
    std::unique_ptr<CMultiCurve> m_pSymbols;
    std::string m_strArgumentName;
    std::string m_strFunctionNames;
};

} // namespace tessara
