#pragma once

#include <array>
#include <memory>
#include <vector>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"
#include "tessara/phasediagram/ElementFormat.h"
#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/String.h"
#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/gdi/MetaFileDC.h"
#include "tessara/plot/ChooseScale.h"
#include "tessara/plot/PixelMap.h"
#include "tessara/plot/ZoomDrag.h"
#include "tessara/plot/ZoomWindow.h"

namespace tessara {

class CCanvas;
class CCrossSectionDialog;
class CCurveTrace;
class CElementReadOut;
class CPlotMap;
class CPointReadOut;
class CReadOutDialog;
struct CPlotArea;
struct CPointReadOutSource;

/// The abscissa and the ordinate column of an element in its table.
struct CColumnPair {
    int nX = 0;
    int nY = 0;
};

/// Rows of the legend's labels in their arrays, or -1 for a label that is not there.
struct CLegendRows {
    int nSpinodal = -1;
    int nSpinodalTrivial = -1;
    int nSpinodalNontrivial = -1;
    int nCloudPoint = -1;
    int nCloudPointPhysical = -1;
    int nCloudPointNonPhysical = -1;
    int nShadow = -1;
    int nShadowPhysical = -1;
    int nShadowNonPhysical = -1;
    int nCriticalPoints = -1;
    int nLifshitzPoints = -1;
};

} // namespace tessara

/// State bits of a phase diagram.
enum PhaseDiagramFlag : DWORD {
    MF_MARKSHOWN = 0x1,    ///< the cross-hair mark is on the screen
    MF_OVERELEMENT = 0x2,  ///< the pointer rests on an element that can be picked
    MF_READOUT = 0x4,      ///< a read-out window is shown, so clicks pick elements
    MF_CROSSSECTION = 0x8, ///< the Cross Section window is shown; only the cloud-point curve can be picked
    MF_CUSTOMABSCISSA = 0x1000000, ///< the abscissa uses a custom scale
    MF_CUSTOMORDINATE = 0x2000000  ///< the ordinate uses a custom scale
};

/// Posted to the program's main window by the Cross Section window: wParam is the column of the binodal
/// section that was held, lParam the address of a CTable with the rows of the section there, which may be
/// none. The receiver deletes the table.
constexpr UINT WM_CROSSSECTION = WM_USER + 32;

/// The diagram of the phases of a polymer solution: spinodal, cloud-point curve with its shadow curve,
/// critical, Lifshitz and multiphase points, with frame, grid, titles, caption and legend, on any surface and
/// as a metafile.
///
/// Curves view the point arrays of the tables they are made from, which must stay alive and of the same size
/// as long as they are shown; points are copied. A paint keeps what it found for the next; values that were
/// changed in place are painted by the next paint (but see AnnounceChanges). A curve of two colours has
/// branches: parts of colour 0 are the spinodal's trivial branch or the physical part of the others, all
/// other parts the nontrivial branch or the non-physical part. Values that are infinite or not a number count
/// for no axis and are gaps. The name is plain text, axis symbols and the slide name are indexed text
/// (IndexedText.h). The background mode of text is the caller's: with an opaque one a text wipes out what
/// stands beside it (CDC). Main thread.
///
///     CPhaseDiagramOutput diagram;
///     diagram.SetNames("Polystyrene in cyclohexane", "T, K~N", "f~G2~L");
///     diagram.SetBinodalSection(0, 1, 2, &section, 0); // cloud points, shadow, temperature
///     CImageDC dc(800, 575);
///     diagram.Paint(&dc, dc.GetClientRect(), nullptr);
class TESSARA_API CPhaseDiagramOutput : public CObject {
    DECLARE_DYNAMIC(CPhaseDiagramOutput)

public:
    CPhaseDiagramOutput();
    ~CPhaseDiagramOutput() override;
    /// Forgets elements, zoom, boundaries, display switches and read-out formats; names, formats and scales
    /// stay.
    void Reset();

    // Names and formats

    void SetNames(const char* name, const char* ordinateSymbol, const char* abscissaSymbol);
    /// Also empties the slide name.
    void SetPhaseDiagramName(const char* name);
    void SetOrdinateSymbol(const char* symbol);
    void SetAbscissaSymbol(const char* symbol);
    void SetSlideName(const char* name);
    /// Takes names and formats from a string resource of three to five lines: name, ordinate symbol, abscissa
    /// symbol, ordinate format, abscissa format. Throws CResourceException when there is no such string.
    void LoadResourceString(unsigned int id);

    /// printf formats of one double; null restores "%.2lf".
    void SetAbscissaFormat(const char* fmt);
    void SetOrdinateFormat(const char* fmt);
    const CString& GetAbscissaFormat() const;
    const CString& GetOrdinateFormat() const;
    void ResetFormatStrings();
    /// Adds a line to the read-out of an element (see CElementFormat).
    void AddFormatString(int nElement, int nColumn, const char* fmt);

    // Elements; each setter replaces what it sets.

    /// Makes the cloud-point curve from columns cloudPointX and y of a table and, when shadowX is not
    /// negative, the shadow curve from columns shadowX and y; else the shadow curve stays that of the table
    /// it was made from. Found multiphase points are those of the new table. The last argument is not used.
    void SetBinodalSection(int cloudPointX, int shadowX, int y, CMultipartTable* table, int reserved);
    void SetSpinodalSection(int x, int y, CMultipartTable* table);
    /// Makes the spinodal a view of a curve.
    void SetSpinodalSection(CMultipartCurve* curve);
    /// Copies n points; none for n below 1.
    void SetCriticalPoints(int n, double* x, double* y);
    void SetLifshitzPoints(int n, double* x, double* y);
    void SetMultiphasePoints(int n, double* x, double* y);
    /// Copies the points in columns x and y of a table, which must stay alive for the element read-out.
    void SetCriticalPoints(int x, int y, CTable* table);
    void SetLifshitzPoints(int x, int y, CTable* table);
    void SetMultiphasePoints(int x, int y, CTable* table);

    /// Promises that the values in the curves' arrays change only where DataChanged is called, or curves are
    /// set, before the next paint. A paint then does not look at all of them to see whether they are the
    /// same, which takes most of the time of a paint of millions of points. DEFAULT: nothing is promised.
    void AnnounceChanges(bool bAnnounce) { m_bChangesAnnounced = bAnnounce; }
    /// Tells of values that were changed in place.
    void DataChanged();

    // Display

    void SetShowCaption(bool bShow) { m_bShowCaption = bShow; }
    void SetShowLegend(bool bShow) { m_bShowLegend = bShow; }
    void SetMonochrome(bool bMonochrome) { m_bMonochrome = bMonochrome; }
    /// In element read-out mode every element can be picked by its colour.
    void SetElementReadOut(bool bElements) { m_bElementReadOut = bElements; }
    /// Draws a dashed vertical line at an abscissa, until Reset.
    void DrawLeftBoundary(double x);
    void DrawRightBoundary(double x);
    void EnableCriticalPointsClicking(int bEnable);

    /// Shows or hides the crossings of the cloud-point curve with itself, found once for a binodal section.
    void ToggleMultiphasePoints();
    int AreMultiphasePointsVisible();
    /// Shows a data rectangle only, or (ShowWhole) the whole diagram again. Does not paint.
    void ZoomTo(const tessara::CZoomWindow& window);
    void ShowWhole();
    int IsZoomed();
    /// What is shown while zoomed.
    const tessara::CZoomWindow& GetZoomWindow() const { return m_Zoom; }
    /// From pixels of the window to data, as the last Paint on the screen had it.
    tessara::CPixelMap GetPixelMap() const { return {m_rcPlotDevice, m_AbscissaScale, m_OrdinateScale}; }

    // Mouse: for the handlers of the window that shows the diagram, with points in its client area.

    /// In zoom-in mode the user drags the rectangle to be shown, once; otherwise a click picks an element
    /// while a read-out window is shown.
    void OnLButtonDown(POINT pt, CWnd* pWnd);
    void OnMouseMove(POINT pt, CWnd* pWnd);
    void OnLButtonUp(POINT pt, CWnd* pWnd);
    /// Returns 1 when it has given the pointer a shape; the window must not give it another then.
    int OnSetCursor(CWnd* pWnd, unsigned int nHitTest, unsigned int nMessage);
    /// Switching the mode off shows the whole diagram again.
    void EnableZoomInMode(int bEnable);
    int IsZoomInModeEnabled() const { return m_bZoomInMode; }
    /// Reads a point out and marks it, as a click there does, on the element of that colour. Does nothing
    /// while no read-out window is shown.
    void PickPoint(double dX, double dY, DWORD crElement);
    /// Takes the mark away and ends picking.
    void HideMark();

    // Read-out windows: Get Value lists the coordinates of a picked point, extended Get Value the lines of
    // AddFormatString, Cross Section asks for a section (WM_CROSSSECTION). Destroy them before the window
    // that shows the diagram; what is left goes with the diagram. Without a window its operations do nothing
    // more than keep the diagram's own state. Setting elements, and Reset, empty the windows; the mark stays
    // until the next paint on the screen. A click on a found multiphase point lists its phases.

    /// Each makes a hidden window for the window that shows the diagram.
    void CreateGetValue(CWnd* pParent);
    void CreateExtendedGetValue(CWnd* pParent);
    void CreateCrossSection(CWnd* pParent);
    void ShowGetValue(int bShow);
    void ShowExtendedGetValue(int bShow);
    void ShowCrossSection(int bShow);
    int IsGetValueVisible();
    int IsExtendedGetValueVisible();
    int IsCrossSectionVisible();
    void DestroyGetValue();
    void DestroyExtendedGetValue();
    void DestroyCrossSection();
    /// Lists the values of the row of an element's table that is nearest to a point of the window in the
    /// extended Get Value window. nElement counts the element colours (see CElementFormat).
    void DisplayElementValues(int nElement, CPoint pt);
    /// Posts the cross section through the mark, at its abscissa or its ordinate. Returns 0, and posts
    /// nothing, unless the cloud-point or the shadow curve is picked.
    int RequestCrossSection(int bAtAbscissa);

    // Scales

    /// Sets an axis by hand: axis 1 is the abscissa, 2 the ordinate. Returns 0 and changes no scale unless
    /// axis names one axis, lower < upper, step > 0 and exponent lies from -8 to 8.
    int UseCustomScale(int axis, double lower, double upper, double step, int exponent);
    void UseAutomaticScale(int axis);
    /// Whether a value lies on the abscissa (nonzero) or the ordinate scale, both ends included.
    int IsValidValue(double v, int abscissa);

    int IsCloudPointCurveSelected();
    int IsShadowCurveSelected();

    // Painting

    /// Paints the diagram into a client rectangle (left and top 0) of the surface and, when it is given, into
    /// the picture. The surface's state is left as it was. Returns 1.
    int Paint(CDC* pDC, RECT rc, CMetaFileDC* pMetaDC);
    /// Called by Paint after everything else, with a null rectangle, so that a derived class can add to both
    /// surfaces.
    virtual void PaintEmptyRect(CDC* pDC, RECT* pRect, CMetaFileDC* pMetaDC);
    /// Paints on the surface and writes the diagram as a placeable metafile. Returns 1 when the file was
    /// written, 0 when it could not be opened; throws CFileException when writing fails.
    int Export(CDC* pDC, RECT rc, const char* fileName);

protected:
    void SetCloudPointCurve(int nPoints, double* x, double* y, int nParts, CCurvePartInfo* parts,
                            int nColors);
    void SetShadowCurve(int nPoints, double* x, double* y, int nParts, CCurvePartInfo* parts, int nColors);
    void SetSpinodal(int nPoints, double* x, double* y, int nParts, CCurvePartInfo* parts, int nColors);

    DWORD CurveColor(int i);
    /// The first curve of that colour, or -1.
    int CurveFromColor(DWORD c);
    /// Whether a pixel of that colour is an element that can be picked now.
    int IsValidColor(DWORD c);
    /// Rebuilds the legend's labels from the shown curves and the points.
    void FillLabelsArray();
    /// Chooses both scales from the shown elements, or the zoom window, unless they are custom.
    void FindBoundingBox();

    void DrawCaption(CDC* pDC, int x, int y, int bCentered, CMetaFileDC* pMetaDC);
    void DrawHorizontalGrid(CDC* pDC, CMetaFileDC* pMetaDC);
    void DrawVerticalGrid(CDC* pDC, CMetaFileDC* pMetaDC);
    /// Does nothing: Paint draws the legend.
    void DrawLegend(CDC* pDC, int x, int y, CPen* pPen);
    void DrawPoints(CDC* pDC, CMetaFileDC* pMetaDC);
    void DrawMultiphasePoints(CDC* pDC, CMetaFileDC* pMetaDC);
    void DrawLegendCurveColors(CDC* pDC, CMetaFileDC* pMetaDC);
    /// Inverts the cross-hair at the marked point; drawing it twice restores the screen. Leaves the raster
    /// operation set.
    void DrawMarkOnDC(CDC* pDC);
    /// The same on the window.
    void DrawMark();
    /// Inverts the outline of a rectangle on the window.
    void DrawZoomTrackingRect(POINT a, POINT b);

    CHOOSESCALE m_SavedAbscissaScale; ///< custom scales come from these copies
    CHOOSESCALE m_SavedOrdinateScale;
    int m_bCriticalPointsClicking = 0;
    int m_bLeftBoundary = 0;
    int m_bRightBoundary = 0;
    double m_dLeftBoundary = 0;
    double m_dRightBoundary = 0;
    double m_dMarkX = 0;
    double m_dMarkY = 0;
    std::unique_ptr<CMultipartCurve> m_pCloudPointCurve;
    std::unique_ptr<CMultipartCurve> m_pShadowCurve;
    std::unique_ptr<CMultipartCurve> m_pSpinodal;
    std::unique_ptr<CMultipartTable> m_pFoundMultiphasePoints;
    CMultipartCurve* m_pShownCloudPointCurve =
        nullptr; ///< as displayed: cut to the zoom window while it is painted
    CMultipartCurve* m_pShownShadowCurve = nullptr;
    CMultipartCurve* m_pShownSpinodal = nullptr;
    std::unique_ptr<CCurve> m_pCriticalPoints;
    std::unique_ptr<CCurve> m_pLifshitzPoints;
    std::unique_ptr<CCurve> m_pMultiphasePoints;
    tessara::CColumnPair m_SpinodalColumns;
    tessara::CColumnPair m_ShadowColumns;
    tessara::CColumnPair m_CloudPointColumns;
    tessara::CColumnPair m_CriticalPointColumns;
    tessara::CColumnPair m_LifshitzPointColumns;
    tessara::CColumnPair m_MultiphasePointColumns;
    CMultipartTable* m_pBinodalSection = nullptr; ///< not owned, as the following tables
    CMultipartTable* m_pSpinodalSection = nullptr;
    CTable* m_pCriticalPointTable = nullptr;
    CTable* m_pMultiphasePointTable = nullptr;
    CTable* m_pLifshitzPointTable = nullptr;
    DWORD m_nFlags = 0;
    CHOOSESCALE m_OrdinateScale;
    CHOOSESCALE m_AbscissaScale;
    std::unique_ptr<tessara::CPointReadOut> m_pGetValueDialog;
    std::unique_ptr<tessara::CElementReadOut> m_pExtendedGetValueDialog;
    std::unique_ptr<tessara::CCrossSectionDialog> m_pCrossSectionDialog;
    CWnd* m_pParentWnd = nullptr; ///< shows the diagram; not to be deleted before the last mark is drawn
    CRect m_rcPaint;              ///< given to the last Paint
    CRect m_rcPlotDevice;         ///< plot frame in pixels, one larger on every side: for hit tests
    CString m_strName = "Phase diagram";
    CString m_strOrdinateSymbol = "f(x)~N";
    CString m_strAbscissaSymbol = "x~N";
    CString m_strSlideName;
    CString m_strAbscissaFormat;
    CString m_strOrdinateFormat;
    CDWordArray m_CurveColors;
    DWORD m_crSelected = 0;
    CStringArray m_CurveLabels;
    CStringArray m_PointLabels;
    int m_nCurveLabels = 0;
    int m_nPointLabels = 0;
    tessara::CLegendRows m_LegendRows;
    int m_nPlotLeft = 0; ///< plot frame in logical units
    int m_nPlotTop = 0;
    int m_nPlotWidth = 0;
    int m_nPlotHeight = 0;
    int m_nLineHeight = 0; ///< of a legend row
    int m_nWidestLabel = 0;
    tessara::CZoomDrag m_Drag;
    int m_bZoomed = 0;
    int m_bZoomInMode = 0;
    int m_bCursorInside = 0; ///< of the plot, in zoom-in mode
    tessara::CZoomWindow m_Zoom;
    CRect m_rcExactPlotDevice; ///< plot frame in pixels
    int m_bMultiphasePointsVisible = 0;
    int m_bShowCaption = 1;
    int m_bShowLegend = 1;
    int m_bMonochrome = 0;
    CDWordArray m_ElementColors;
    std::vector<std::unique_ptr<CElementFormat>> m_ElementFormats;
    int m_bElementReadOut = 0;
    CStringArray m_ElementValueLines;

private:
    class CShownCurves;

    /// Turns the traces to the curves as they are now.
    void FollowCurves();
    void ChooseScales();
    void ChooseAbscissaScale();
    void ChooseOrdinateScale();
    template <class CURVE_RANGE, class POINT_VALUES>
    void ChooseScaleOf(CHOOSESCALE& scale, CURVE_RANGE curveRange, POINT_VALUES pointValues, double dZoomMin,
                       double dZoomMax) const;
    int AddCurveLabel(const char* pszName, const char* pszBranch);
    void AddCurveLabels(const CMultipartCurve* pCurve, const char* pszName, const char* pszFirst,
                        const char* pszOther, int& nSingle, int& nFirst, int& nOther);
    int AddPointLabel(const CCurve* pPoints, const char* pszLabel);

    tessara::CPlotArea GetPlotArea() const;
    tessara::CPlotMap GetPlotMap() const;
    void PaintPage(CDC* pDC, RECT rc, CMetaFileDC* pMetaDC);
    void LayOut(const tessara::CCanvas& canvas);
    void RememberPlotDevice(const CDC& dc);
    int GetLegendHeight() const;
    void DrawFrames(const tessara::CCanvas& canvas);
    void DrawLegendTexts(const tessara::CCanvas& canvas, CMetaFileDC* pMetaDC);
    void DrawGrids(const tessara::CCanvas& canvas, CMetaFileDC* pMetaDC);
    void DrawTitles(const tessara::CCanvas& canvas, CMetaFileDC* pMetaDC);
    void DrawElements(const tessara::CCanvas& canvas, CMetaFileDC* pMetaDC);
    void DrawCurve(const tessara::CCanvas& canvas, tessara::CCurveTrace& trace, int (*pStyleOf)(int nColor),
                   CMetaFileDC* pMetaDC);
    void DrawBoundary(const tessara::CCanvas& canvas, double dAbscissa);
    void DrawNoPhaseSeparation(const tessara::CCanvas& canvas);
    void DrawMarkAgain(CDC* pDC, const CMetaFileDC* pMetaDC);

    bool IsAnyReadOutVisible();
    int ElementFromColor(DWORD c) const;
    template <class DIALOG>
    void DestroyReadOut(std::unique_ptr<DIALOG>& pDialog);
    CMultipartTable* GetSection() const;
    void FindMultiphasePoints();
    void ForgetReadOut();
    void ShowReadOut(tessara::CReadOutDialog* pDialog, bool bShow, DWORD nFlags);
    void ListPoint(double dX, double dY);
    std::array<tessara::CPointReadOut*, 2> GetPointReadOuts() const;
    tessara::CPointReadOutSource GetReadOutSource() const;
    void ListElement(int nElement, double dX, double dY);
    std::unique_ptr<CTable> FindElementRow(int nElement, double dX, double dY) const;
    void RemoveMark();
    void InvalidateParent();
    bool IsPointShown(double dX, double dY) const;

    bool m_bCloudPointCurveOfSection = false; ///< it is made from m_pBinodalSection, which lives as long
    bool m_bShadowCurveOfSection = false;
    bool m_bMarkOutdated = false; ///< the mark is that of former data, and goes with the next paint
    std::unique_ptr<tessara::CCurveTrace> m_pCloudPointTrace; ///< what the last paint found of each curve
    std::unique_ptr<tessara::CCurveTrace> m_pShadowTrace;
    std::unique_ptr<tessara::CCurveTrace> m_pSpinodalTrace;
    bool m_bChangesAnnounced = false;
};
