#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/AxisScale.h"
#include "cli/Picture.h"
#include "tessara/numeric/Table.h"
#include "tessara/platform/ui/windows/Wnd.h"
#include "tessara/plot/PixelMap.h"
#include "tessara/plot/ZoomWindow.h"

namespace tessara {

/// What can be switched on and off in a plot.
enum class EPlotSwitch { legend, caption, monochrome, multiphasePoints };

/// The windows that read values out.
enum class EReadOut { getValue, extendedGetValue, crossSection };

inline constexpr EReadOut READ_OUTS[] = {EReadOut::getValue, EReadOut::extendedGetValue,
                                         EReadOut::crossSection};

/// Where the arrow keys take the mark: along the picked curve, or to another one.
enum class EWalk { back, forward, previousCurve, nextCurve };

/// The scales given by hand; an axis without one is automatic.
struct CAxisScales {
    std::optional<AXISSCALE> x;
    std::optional<AXISSCALE> y;
};

/// The point that is read out, and what was picked there: the colour of a diagram's element, the number of a
/// curve plot's function.
struct CPlotMark {
    double dX;
    double dY;
    DWORD nPicked;
};

/// A file's content as the viewer shows it: a curve plot or a phase diagram, with the data that it is made
/// from.
///
/// Positions are pixels of the view. The plot answers the mouse as the renderers do; the view forwards its
/// messages and paints when it is invalidated. Main thread.
class CShownPlot {
public:
    CShownPlot() = default;
    virtual ~CShownPlot() = default;
    CShownPlot(const CShownPlot&) = delete;
    CShownPlot& operator=(const CShownPlot&) = delete;

    /// The caption: plain text.
    virtual std::string GetName() const = 0;
    /// Shows what another plot shows, with its switches and scales and without a zoom; the other is spent
    /// then. Read-out windows, what is marked and zoom-in mode stay. Does not invalidate the view. False, and
    /// nothing has happened, for a plot that has other windows.
    virtual bool Follow(CShownPlot& next);
    /// Paints and writes pictures. Lives as long as this object.
    virtual DRAWING GetDrawing() = 0;
    /// The shown values as lines of tab-separated numbers under a line of names.
    virtual std::string GetValuesText() const = 0;

    // Look

    /// Whether the plot has such a switch.
    virtual bool Has(EPlotSwitch eSwitch) const = 0;
    virtual bool IsOn(EPlotSwitch eSwitch) const = 0;
    /// Does not invalidate the view.
    virtual void Toggle(EPlotSwitch eSwitch) = 0;
    virtual CAxisScales GetScales() const = 0;
    /// Shows the data within the scales. Throws CException when nothing lies within them, and nothing has
    /// changed then. Ends a zoom.
    virtual void SetScales(const CAxisScales& scales) = 0;

    // Zoom

    /// The data rectangle that is shown; nothing for the whole plot.
    virtual std::optional<CZoomWindow> GetZoom() const = 0;
    virtual void SetZoom(const std::optional<CZoomWindow>& zoom) = 0;
    /// The map of the last paint on the screen; its rectangle is the plot's frame in the view.
    virtual CPixelMap GetPixelMap() const = 0;
    /// Plain text for a point of the plot: "T = 305.21, x = 0.043".
    virtual std::string DescribePoint(double dX, double dY) const = 0;

    // Mouse. After OnLButtonUp the zoom may have changed.

    /// Lets the user drag a rectangle to zoom into, once.
    virtual void EnableZoomInMode(bool bEnable) = 0;
    virtual bool IsZoomInModeEnabled() const = 0;
    virtual void OnLButtonDown(CPoint point) = 0;
    virtual void OnMouseMove(CPoint point) = 0;
    virtual void OnLButtonUp(CPoint point) = 0;
    /// True when the pointer's shape has been set.
    virtual bool OnSetCursor() = 0;

    // Read-outs

    virtual bool Offers(EReadOut eReadOut) const = 0;
    /// Called once, before any mouse message: the window that shows the plot.
    virtual void Attach(CWnd* pView) = 0;
    /// Destroys the read-out windows; the view is about to go, or to show something else.
    virtual void Detach() = 0;
    /// Showing one hides another that is shown; what was marked stays where the new one can read it out.
    virtual void ShowReadOut(EReadOut eReadOut, bool bShow) = 0;
    virtual bool IsReadOutVisible(EReadOut eReadOut) const = 0;
    /// The read-out that is shown.
    std::optional<EReadOut> GetReadOut() const;
    /// Moves the mark while a read-out is shown; picks the first curve when none is picked. A step is the
    /// next point of the curve that lies at another pixel. False when there is nowhere to go.
    virtual bool Walk(EWalk eWalk) = 0;
    /// What is marked while a read-out is shown.
    virtual std::optional<CPlotMark> GetMark() const = 0;
    /// Reads out and marks a point while a read-out is shown, as a click there does. The view is to be
    /// painted anew when this comes before the first paint.
    virtual void SetMark(const CPlotMark& mark) = 0;
    /// A cross section that the Cross Section window has posted: its column and its table, as a plot.
    virtual std::unique_ptr<CShownPlot> OpenSection(int nColumn, std::unique_ptr<CTable> pTable) const;
};

/// What the viewer opens.
struct CViewSource {
    std::string strPath;
    std::optional<std::string> columns;   ///< of a file of columns, as `tessara plot --columns` has them
    std::optional<std::string> delimiter; ///< likewise
    bool bSort = false;                   ///< sort rows by their abscissae
};

/// Reads a diagram file, told by its first character that is no blank, a brace, or else a file of columns.
/// Throws CException, whose what() is one line for the user.
std::unique_ptr<CShownPlot> OpenShownPlot(const CViewSource& source);

} // namespace tessara
