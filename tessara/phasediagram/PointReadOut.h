#pragma once

#include "tessara/phasediagram/ReadOutDialog.h"

class CMultipartTable;

namespace tessara {

/// What is read out beside the coordinates of a picked point.
enum class EPointReadOut {
    coordinates = 1,     ///< nothing
    cloudPoint = 2,      ///< column 2 of the binodal section at the nearest row
    multiphasePoint = 3, ///< the phases of the nearest found multiphase point
    criticalPoint = 4    ///< nothing
};

/// The numbers that a read-out of a point needs of its diagram. Tables may be null.
struct CPointReadOutSource {
    CString strAbscissaFormat;
    CString strOrdinateFormat;
    CMultipartTable* pBinodalSection = nullptr;
    CMultipartTable* pFoundMultiphasePoints = nullptr;
    int nX = 0; ///< columns of the cloud-point curve
    int nY = 0;
};

/// A read-out window that lists the coordinates of a picked point: the Get Value window, and the upper half
/// of the Cross Section window.
class CPointReadOut : public CReadOutDialog {
public:
    static constexpr UINT GET_VALUE_TEMPLATE = 16406;

    explicit CPointReadOut(CWnd* pParent, UINT nTemplate = GET_VALUE_TEMPLATE)
        : CReadOutDialog(nTemplate, pParent, 2) {}

    /// Lists a point. Without symbols, which come when the window is shown, there are no lines for the
    /// coordinates.
    void SetValues(double dX, double dY, EPointReadOut eReadOut, const CPointReadOutSource& source);
    void Clear();

private:
    void AddNearestValue(double dX, double dY, const CPointReadOutSource& source);
    void AddPhases(double dX, double dY, const CPointReadOutSource& source);

    CStringArray m_lines;
};

} // namespace tessara
