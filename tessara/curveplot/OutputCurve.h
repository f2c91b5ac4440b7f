#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/ObArray.h"
#include "tessara/platform/base/String.h"
#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/gdi/MetaFileDC.h"
#include "tessara/plot/ChooseScale.h"
#include "tessara/plot/PixelMap.h"
#include "tessara/plot/ZoomWindow.h"

class CGetValueDialog;
class CWnd;

namespace tessara {

class CCanvas;
class CCurveTraces;
class CPlotMap;
struct CPlotArea;

} // namespace tessara

/// State bits of a curve plot.
enum OutputCurveFlag : DWORD {
    OCF_MARKSHOWN = 0x1,            ///< the mark is drawn on the window
    OCF_OVERCURVE = 0x2,            ///< the pointer is over a coloured pixel of the plot
    OCF_GETVALUE = 0x4,             ///< the Get Value window is shown
    OCF_CUSTOMARGUMENT = 0x1000000, ///< the horizontal scale is custom
    OCF_CUSTOMFUNCTION = 0x2000000, ///< the vertical scale is custom
    OCF_FITARGUMENT = 0x4000000,    ///< the horizontal axis is fitted exactly to the data
    OCF_FITFUNCTION = 0x8000000     ///< the vertical axis is fitted exactly to the data
};

/// The plot of one or several functions f(x) over common abscissae, or of one multipart curve, with a second
/// set of points as markers where wanted: frame, grid, axis titles, caption, legend and curves, on any
/// surface and as a metafile.
///
/// The plot holds pointers to the caller's curves and arrays and copies nothing: they must outlive its use of
/// them. Abscissae are ascending. Values that are infinite or not a number count for no axis and are gaps in
/// a curve. A paint keeps what it found for the next; values that were changed in place are painted by the
/// next paint (but see AnnounceChanges). At most MAX_FUNCTIONS functions are shown; further columns of a
/// multi-curve are left out. Symbols, names and the caption are indexed text (IndexedText.h) but for the
/// caption and the argument's name, which are plain. The background mode of text is the caller's: with an
/// opaque one a text wipes out what stands beside it (CDC). Main thread.
///
///     COutputCurve plot;
///     plot.SetNames("Vapour pressure", "p / kPa~N", "Temperature", "T / K~N");
///     plot.SetOutputData(pTemperatures, pPressures, nPoints);
///     CImageDC dc(800, 575);
///     plot.Paint(&dc, dc.GetClientRect(), nullptr);
class TESSARA_API COutputCurve : public CObject {
    DECLARE_DYNAMIC(COutputCurve)

public:
    static constexpr int MAX_FUNCTIONS = 6;

    COutputCurve();
    ~COutputCurve() override;

    // Data

    /// Shows one curve, or the columns of one multi-curve; the scales are automatic again, without symbols.
    void SetOutputData(CCurve* pCurve);
    void SetOutputData(CMultiCurve* pCurve);
    /// Shows one function over arrays of nPoints values. The diagonal and fitted axes are kept.
    void SetOutputData(double* pX, double* pY, int nPoints);
    /// The same as SetOutputData; diagonal and fitted axes are switched off as well.
    COutputCurve& operator=(CCurve* pCurve);
    COutputCurve& operator=(CMultiCurve* pCurve);
    /// Shows a multipart curve, each part in the colour of its index.
    COutputCurve& operator=(CMultipartCurve* pCurve);
    /// Points to be drawn as markers: the first column as squares, the second as circles. Null for none.
    void SetSymbolsCurve(CMultiCurve* pCurve);

    /// Promises that the values in the curves' arrays change only where DataChanged is called, or data are
    /// set, before the next paint. A paint then does not look at all of them to see whether they are the
    /// same, which takes most of the time of a paint of millions of points. DEFAULT: 0, nothing is promised.
    void AnnounceChanges(int bAnnounce) { m_bChangesAnnounced = bAnnounce; }
    /// Tells of values that were changed in place.
    void DataChanged();

    /// The application's list of curves; what is painted is the output data.
    void Add(CCurve* pCurve);
    void Add(CMultiCurve* pCurve);
    void Add(CMultipartCurve* pCurve);
    void Add(double* pX, double* pY, int nPoints);
    void Add(double* pX, double* pY, int nPoints, int nParts, CCurvePartInfo* pParts);
    /// Empties the list and deletes the curves that Add made from arrays.
    void ClearOutputList();

    void DisplayDiagonal(int bShow);
    void Reset();

    // Names and formats

    void SetNames(const char* name, const char* symbol, const char* argumentName, const char* argumentSymbol);
    void SetCurveName(const char* name);
    void SetCurveSymbol(const char* symbol);
    void SetCurveArgument(const char* symbol);
    void SetArgumentName(const char* name);
    void SetSlideName(const char* name);
    /// printf formats of one double; null restores "%.2lf".
    void SetArgumentFormat(const char* fmt);
    void SetFunctionFormat(const char* fmt);
    const CString& GetArgumentFormat() const;
    const CString& GetFunctionFormat() const;
    /// Takes names and formats from a string resource of four to six lines: curve name, curve symbol,
    /// argument name, argument symbol, function format, argument format. Throws CResourceException when there
    /// is no such string.
    void LoadResourceString(UINT nID);

    // Scales; nAxis is 1 for the argument, 2 for the function.

    /// Sets an axis by hand. Returns 0 and changes nothing unless nAxis names one axis, dFrom < dTo, dStep >
    /// 0 and nExponent lies from -8 to 8.
    int UseCustomScale(int nAxis, double dFrom, double dTo, double dStep, int nExponent);
    /// Chooses the axes named in nAxis (1, 2 or both, 3) from the data again.
    void UseAutomaticScale(int nAxis);
    /// Makes the axes named in nAxis span exactly the data.
    void FitScale(int nAxis);
    /// Cuts curves and symbols that reach beyond custom axes at the axes' ends. Values stay those of the
    /// whole curves. DEFAULT: 0, they are drawn as far as they go.
    void CutToAxes(int bCut) { m_bCutToAxes = bCut; }

    // Zoom; new data end it.

    /// Shows a data rectangle only, or (ShowWhole) the whole plot again. Curves are cut at its edges, and
    /// both axes span exactly it, custom or not. Does not paint.
    void ZoomTo(const tessara::CZoomWindow& window);
    void ShowWhole();
    int IsZoomed() const { return m_bZoomed; }
    /// What is shown while zoomed.
    const tessara::CZoomWindow& GetZoomWindow() const { return m_Zoom; }
    /// From pixels of the window to data, as the last Paint on the screen had it.
    tessara::CPixelMap GetPixelMap() const { return {m_rcPlotDevice, m_ArgumentScale, m_FunctionScale}; }

    // Values

    /// 1 when x lies on the argument axis.
    int IsValidValue(double x);
    /// Function nFunction at x: linear between the points, constant beyond the ends. Of a multipart curve,
    /// its value there. 0 when nothing is shown.
    double Value(int nFunction, double x);

    // Painting

    /// Paints the plot into a client rectangle (left and top 0) of the surface and, when it is given, into
    /// the picture. The surface's state is left as it was. Returns 1, or 0 when there was no memory for the
    /// points.
    int Paint(CDC* pDC, RECT rc, CMetaFileDC* pMetaDC);
    /// Called by Paint after the curves, with a null rectangle, so that a derived class can add to both
    /// surfaces.
    virtual void PaintEmptyRect(CDC* pDC, RECT* pRect, CMetaFileDC* pMetaDC);
    /// Paints on the surface and writes the plot as a placeable metafile. Returns 1 when the file was
    /// written, 0 when it could not be opened; throws CFileException when writing fails.
    int Export(CDC* pDC, RECT rc, const char* fileName);
    /// Does nothing and returns 1.
    int Export(const char* fileName);

    // Read-out: a window beside the plot lists the values at an argument, which a vertical line marks.
    // Without the window every operation only keeps the plot's own state.

    /// Makes the window, hidden, for the window that the plot is painted in.
    void CreateGetValue(CWnd* pParent);
    void ShowGetValue(int bShow);
    int IsGetValueVisible();
    /// Call before the plot's window goes. The plot itself calls it at its end.
    void DestroyGetValue();
    /// Lists the values at x and moves the mark there: of each function, or of each branch that a multipart
    /// curve has at x. A paint lists them anew, so that they follow the data.
    void DisplayValues(double x);
    /// The same, and shows x in the window's field, as a click does.
    void PickArgument(double x);
    /// For the handlers of the window that the plot is painted in; pt in its client area. While the read-out
    /// is shown, the pointer changes its shape over the curves, and a click there reads out.
    void OnMouseMove(CPoint pt, CWnd* pWnd);
    void OnMouseClick(CPoint pt, CWnd* pWnd);

    CObArray m_OutputList;
    int m_nParts = 1;
    int m_nFunctions = 0;
    int m_nPoints = 0;
    int m_bDiagonal = 0;
    DWORD m_nFlags = 0;
    CMultiCurve* m_pSymbolsCurve = nullptr;
    CMultipartCurve* m_pMultipartCurve = nullptr;
    double* m_pX = nullptr;
    double* m_pY[MAX_FUNCTIONS] = {};
    CHOOSESCALE m_FunctionScale;
    CHOOSESCALE m_ArgumentScale;
    double m_dMarkArgument = 0; ///< where the mark stands
    CGetValueDialog* m_pGetValueDialog = nullptr;
    CWnd* m_pParentWnd = nullptr; ///< shows the plot; not to be deleted before the last mark is drawn
    CRect m_rcClient;             ///< of the last Paint
    CRect m_rcPlotDevice;         ///< plot area of the last Paint on a screen, in device pixels
    CString m_strCurveName = "Function";
    CString m_strCurveSymbol = "f(x)~N";
    CString m_strArgumentName = "Argument";
    CString m_strCurveArgument = "x~N";
    CString m_strSlideName;
    CStringArray m_ValueLines;
    CString m_strArgumentFormat = "%.2lf";
    CString m_strFunctionFormat = "%.2lf";
    CDWordArray m_Colors;
    CObArray m_OwnedCurves;
    int m_bShowCaption = 1;
    int m_bShowLegend = 1;
    int m_bMonochrome = 0;

protected:
    /// Chooses the scales that are not custom from the data.
    void FindBoundingBox();
    COLORREF CurveColor(int nIndex);
    /// The first index of that colour, or -1.
    int CurveFromColor(COLORREF color);
    /// Inverts the mark on the window; a second time takes it away.
    void DrawMark();
    /// The same on a surface that the page is mapped to. Leaves the raster operation set.
    void DrawMarkOnDC(CDC* pDC);
    void DrawCaption(CDC* pDC, int x, int y, int bCentered, CMetaFileDC* pMetaDC);
    /// Does nothing: Paint draws the legend.
    void DrawLegend(CDC* pDC, int x, int y, CPen* pPen);

private:
    void ClearForNewData();
    void ForgetView();
    void ChooseArgumentScale();
    void ChooseFunctionScale();
    int CountLegendRows() const;
    std::vector<double> ValuesAt(double x);
    CString MakeValueLine(double dValue) const;
    std::vector<CString> MakeValueLines(double x);
    void ShowValueLines(const std::vector<CString>& lines);
    void RefreshValueLines();

    std::optional<tessara::CZoomWindow> GetCutWindow() const;
    bool PrepareCurves();
    tessara::CPlotMap GetPlotMap() const;
    void RememberPlotDevice(const CDC& dc, const tessara::CPlotArea& area);
    void DrawFrames(const tessara::CCanvas& canvas, const tessara::CPlotArea& area);
    void DrawDiagonal(const tessara::CCanvas& canvas, const tessara::CPlotArea& area);
    void DrawLegendRows(const tessara::CCanvas& canvas, const tessara::CPlotArea& area, CMetaFileDC* pMetaDC);
    void DrawGrids(const tessara::CCanvas& canvas, const tessara::CPlotArea& area);
    void DrawTitles(CDC* pDC, const tessara::CPlotArea& area, CMetaFileDC* pMetaDC);
    void DrawCurves(CDC* pDC, const tessara::CPlotMap& map, CMetaFileDC* pMetaDC);
    void DrawSymbols(const tessara::CCanvas& canvas, const tessara::CPlotMap& map);
    void DrawMarkAgain(CDC* pDC, const CMetaFileDC* pMetaDC);

    int m_bChangesAnnounced = 0;
    int m_bCutToAxes = 0;
    int m_bZoomed = 0;
    tessara::CZoomWindow m_Zoom;
    CHOOSESCALE m_WholeFunctionScale; ///< while zoomed, the scales of the whole plot
    CHOOSESCALE m_WholeArgumentScale;
    std::unique_ptr<tessara::CCurveTraces> m_pTraces; ///< what the last paint found of the curves
};
