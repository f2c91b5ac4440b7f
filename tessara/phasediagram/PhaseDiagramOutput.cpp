#include "tessara/phasediagram/PhaseDiagramOutput.h"

#include <algorithm>
#include <array>

#include "tessara/numeric/Intersections.h"
#include "tessara/numeric/Zoom.h"
#include "tessara/phasediagram/CrossSectionDialog.h"
#include "tessara/phasediagram/ElementColors.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/plot/CurveTrace.h"
#include "tessara/plot/ResourceFields.h"

IMPLEMENT_DYNAMIC(CElementFormat, CObject)
IMPLEMENT_DYNAMIC(CPhaseDiagramOutput, CObject)

namespace {

constexpr const char* DEFAULT_FORMAT = "%.2lf";
constexpr std::array<COLORREF, 6> CURVE_COLORS{0x0000FF, 0xFF0000, 0x00FF00, 0xFF00FF, 0xFFFF00, 0x00FFFF};
constexpr std::array<COLORREF, 4> FURTHER_ELEMENT_COLORS{tessara::CRITICAL_POINT_COLOR,
                                                         tessara::MULTIPHASE_POINT_COLOR,
                                                         tessara::FOUND_MULTIPHASE_POINT_COLOR, 0x800080};

std::unique_ptr<CCurve> CopyPoints(int nPoints, const double* pX, const double* pY) {
    if (nPoints < 1) {
        return nullptr;
    }
    auto pCurve = std::make_unique<CCurve>(nPoints);
    std::copy_n(pX, nPoints, pCurve->m_pX);
    std::copy_n(pY, nPoints, pCurve->m_pY);
    return pCurve;
}

/// The first entry of that colour, or -1.
int IndexOf(const CDWordArray& colors, DWORD c) {
    for (int i = 0; i < colors.GetSize(); ++i) {
        if (colors.GetAt(i) == c) {
            return i;
        }
    }
    return -1;
}

} // namespace

CPhaseDiagramOutput::CPhaseDiagramOutput()
    : m_pCloudPointTrace(std::make_unique<tessara::CCurveTrace>(&ZoomMultipartCurve)),
      m_pShadowTrace(std::make_unique<tessara::CCurveTrace>(&ZoomMultipartCurve)),
      m_pSpinodalTrace(std::make_unique<tessara::CCurveTrace>(&ZoomMultipartCurve)) {
    for (const COLORREF color : CURVE_COLORS) {
        m_CurveColors.Add(color);
        m_ElementColors.Add(color);
    }
    for (const COLORREF color : FURTHER_ELEMENT_COLORS) {
        m_ElementColors.Add(color);
    }
    SetAbscissaFormat(nullptr);
    SetOrdinateFormat(nullptr);
}

CPhaseDiagramOutput::~CPhaseDiagramOutput() {
    Reset();
}

void CPhaseDiagramOutput::Reset() {
    m_pCloudPointCurve.reset();
    m_pShadowCurve.reset();
    m_pSpinodal.reset();
    m_pFoundMultiphasePoints.reset();
    m_pShownCloudPointCurve = nullptr;
    m_pShownShadowCurve = nullptr;
    m_pShownSpinodal = nullptr;
    m_pCriticalPoints.reset();
    m_pLifshitzPoints.reset();
    m_pMultiphasePoints.reset();
    m_bCloudPointCurveOfSection = false;
    m_bShadowCurveOfSection = false;
    m_bMultiphasePointsVisible = 0;
    m_Drag.Cancel();
    m_bZoomed = 0;
    m_bZoomInMode = 0;
    m_bCursorInside = 0;
    m_bCriticalPointsClicking = 0;
    m_bLeftBoundary = 0;
    m_bRightBoundary = 0;
    m_bShowCaption = 1;
    m_bShowLegend = 1;
    m_bMonochrome = 0;
    ResetFormatStrings();
    ForgetReadOut();
}

void CPhaseDiagramOutput::SetNames(const char* name, const char* ordinateSymbol, const char* abscissaSymbol) {
    SetPhaseDiagramName(name);
    m_strOrdinateSymbol = ordinateSymbol;
    m_strAbscissaSymbol = abscissaSymbol;
}

void CPhaseDiagramOutput::SetPhaseDiagramName(const char* name) {
    m_strName = name;
    m_strSlideName.Empty();
}

void CPhaseDiagramOutput::SetOrdinateSymbol(const char* symbol) {
    m_strOrdinateSymbol = symbol;
}

void CPhaseDiagramOutput::SetAbscissaSymbol(const char* symbol) {
    m_strAbscissaSymbol = symbol;
}

void CPhaseDiagramOutput::SetSlideName(const char* name) {
    m_strSlideName = name;
}

void CPhaseDiagramOutput::LoadResourceString(unsigned int id) {
    const char* pszText = tessara::FindStringResource(id);
    if (!pszText) {
        AfxThrowResourceException();
    }
    tessara::CResourceFields fields(pszText);
    m_strName = fields.Take();
    m_strOrdinateSymbol = fields.Take();
    const bool bHasOrdinateFormat = fields.HasMore();
    m_strAbscissaSymbol = fields.TakeOrRest();
    if (bHasOrdinateFormat) {
        const bool bHasAbscissaFormat = fields.HasMore();
        m_strOrdinateFormat = fields.TakeOrRest();
        if (bHasAbscissaFormat) {
            m_strAbscissaFormat = fields.GetRest();
        }
    }
    m_strSlideName.Empty();
}

void CPhaseDiagramOutput::SetAbscissaFormat(const char* fmt) {
    m_strAbscissaFormat = fmt ? fmt : DEFAULT_FORMAT;
}

void CPhaseDiagramOutput::SetOrdinateFormat(const char* fmt) {
    m_strOrdinateFormat = fmt ? fmt : DEFAULT_FORMAT;
}

const CString& CPhaseDiagramOutput::GetAbscissaFormat() const {
    return m_strAbscissaFormat;
}

const CString& CPhaseDiagramOutput::GetOrdinateFormat() const {
    return m_strOrdinateFormat;
}

void CPhaseDiagramOutput::ResetFormatStrings() {
    m_ElementFormats.clear();
}

void CPhaseDiagramOutput::AddFormatString(int nElement, int nColumn, const char* fmt) {
    m_ElementFormats.push_back(std::make_unique<CElementFormat>(nElement, nColumn, fmt));
}

void CPhaseDiagramOutput::SetBinodalSection(int cloudPointX, int shadowX, int y, CMultipartTable* table,
                                            int) {
    double** ppData = table->m_ppData;
    const bool bShadowStays = m_bShadowCurveOfSection && table == m_pBinodalSection;
    m_CloudPointColumns = {cloudPointX, y};
    SetCloudPointCurve(table->m_nPoints, ppData[cloudPointX], ppData[y], table->m_nParts, table->m_pParts,
                       table->GetNumColors());
    if (shadowX > -1) {
        m_ShadowColumns = {shadowX, y};
        SetShadowCurve(table->m_nPoints, ppData[shadowX], ppData[y], table->m_nParts, table->m_pParts,
                       table->GetNumColors());
    }
    m_pBinodalSection = table;
    m_bCloudPointCurveOfSection = true;
    m_bShadowCurveOfSection = shadowX > -1 || bShadowStays;
    m_pFoundMultiphasePoints.reset();
    if (m_bMultiphasePointsVisible) {
        FindMultiphasePoints();
    }
}

void CPhaseDiagramOutput::SetSpinodalSection(int x, int y, CMultipartTable* table) {
    m_SpinodalColumns = {x, y};
    SetSpinodal(table->m_nPoints, table->m_ppData[x], table->m_ppData[y], table->m_nParts, table->m_pParts,
                table->GetNumColors());
    m_pSpinodalSection = table;
}

void CPhaseDiagramOutput::SetSpinodalSection(CMultipartCurve* curve) {
    SetSpinodal(curve->m_nPoints, curve->m_pX, curve->m_pY, curve->m_nParts, curve->m_pParts,
                curve->GetNumColors());
}

void CPhaseDiagramOutput::SetCloudPointCurve(int nPoints, double* x, double* y, int nParts,
                                             CCurvePartInfo* parts, int nColors) {
    m_pCloudPointCurve = std::make_unique<CMultipartCurve>(nPoints, x, y, nParts, parts, nColors);
    m_pShownCloudPointCurve = m_pCloudPointCurve.get();
    m_bCloudPointCurveOfSection = false;
    m_pCloudPointTrace->Forget();
    ForgetReadOut();
}

void CPhaseDiagramOutput::SetShadowCurve(int nPoints, double* x, double* y, int nParts, CCurvePartInfo* parts,
                                         int nColors) {
    m_pShadowCurve = std::make_unique<CMultipartCurve>(nPoints, x, y, nParts, parts, nColors);
    m_pShownShadowCurve = m_pShadowCurve.get();
    m_bShadowCurveOfSection = false;
    m_pShadowTrace->Forget();
    ForgetReadOut();
}

void CPhaseDiagramOutput::SetSpinodal(int nPoints, double* x, double* y, int nParts, CCurvePartInfo* parts,
                                      int nColors) {
    m_pSpinodal = std::make_unique<CMultipartCurve>(nPoints, x, y, nParts, parts, nColors);
    m_pShownSpinodal = m_pSpinodal.get();
    m_pSpinodalSection = nullptr; // no longer that of the curve
    m_pSpinodalTrace->Forget();
    ForgetReadOut();
}

void CPhaseDiagramOutput::SetCriticalPoints(int n, double* x, double* y) {
    m_pCriticalPoints = CopyPoints(n, x, y);
    m_pCriticalPointTable = nullptr; // no longer that of the points
    ForgetReadOut();
}

void CPhaseDiagramOutput::SetLifshitzPoints(int n, double* x, double* y) {
    m_pLifshitzPoints = CopyPoints(n, x, y);
    m_pLifshitzPointTable = nullptr; // no longer that of the points
    ForgetReadOut();
}

void CPhaseDiagramOutput::SetMultiphasePoints(int n, double* x, double* y) {
    m_pMultiphasePoints = CopyPoints(n, x, y);
    m_pMultiphasePointTable = nullptr; // no longer that of the points
    ForgetReadOut();
}

void CPhaseDiagramOutput::SetCriticalPoints(int x, int y, CTable* table) {
    m_CriticalPointColumns = {x, y};
    SetCriticalPoints(table->m_nPoints, table->m_ppData[x], table->m_ppData[y]);
    m_pCriticalPointTable = table;
}

void CPhaseDiagramOutput::SetLifshitzPoints(int x, int y, CTable* table) {
    m_LifshitzPointColumns = {x, y};
    SetLifshitzPoints(table->m_nPoints, table->m_ppData[x], table->m_ppData[y]);
    m_pLifshitzPointTable = table;
}

void CPhaseDiagramOutput::SetMultiphasePoints(int x, int y, CTable* table) {
    m_MultiphasePointColumns = {x, y};
    SetMultiphasePoints(table->m_nPoints, table->m_ppData[x], table->m_ppData[y]);
    m_pMultiphasePointTable = table;
}

void CPhaseDiagramOutput::DataChanged() {
    for (const auto* const ppTrace : {&m_pCloudPointTrace, &m_pShadowTrace, &m_pSpinodalTrace}) {
        (*ppTrace)->Forget();
    }
}

void CPhaseDiagramOutput::DrawLeftBoundary(double x) {
    m_bLeftBoundary = 1;
    m_dLeftBoundary = x;
}

void CPhaseDiagramOutput::DrawRightBoundary(double x) {
    m_bRightBoundary = 1;
    m_dRightBoundary = x;
}

void CPhaseDiagramOutput::EnableCriticalPointsClicking(int bEnable) {
    m_bCriticalPointsClicking = bEnable;
}

void CPhaseDiagramOutput::ToggleMultiphasePoints() {
    m_bMultiphasePointsVisible = !m_bMultiphasePointsVisible;
    if (m_bMultiphasePointsVisible && !m_pFoundMultiphasePoints) {
        FindMultiphasePoints();
    }
    if (m_pParentWnd) {
        m_pParentWnd->InvalidateRect(&m_rcPlotDevice);
    }
}

void CPhaseDiagramOutput::FindMultiphasePoints() {
    if (CMultipartTable* const pSection = GetSection()) {
        m_pFoundMultiphasePoints.reset(
            Find2DSelfIntersections(pSection, m_CloudPointColumns.nX, m_CloudPointColumns.nY));
    }
}

int CPhaseDiagramOutput::AreMultiphasePointsVisible() {
    return m_bMultiphasePointsVisible;
}

void CPhaseDiagramOutput::ZoomTo(const tessara::CZoomWindow& window) {
    m_Zoom = window;
    m_bZoomed = 1;
}

void CPhaseDiagramOutput::ShowWhole() {
    m_bZoomed = 0;
}

int CPhaseDiagramOutput::IsZoomed() {
    return m_bZoomed;
}

DWORD CPhaseDiagramOutput::CurveColor(int i) {
    return m_CurveColors.GetAt(i);
}

int CPhaseDiagramOutput::CurveFromColor(DWORD c) {
    return IndexOf(m_CurveColors, c);
}

int CPhaseDiagramOutput::ElementFromColor(DWORD c) const {
    return IndexOf(m_ElementColors, c);
}

int CPhaseDiagramOutput::IsCloudPointCurveSelected() {
    return m_crSelected == CurveColor(2);
}

int CPhaseDiagramOutput::IsShadowCurveSelected() {
    return m_crSelected == CurveColor(3);
}

int CPhaseDiagramOutput::IsValidColor(DWORD c) {
    constexpr COLORREF RED = 0x0000FF;
    constexpr COLORREF BLUE = 0xFF0000;
    constexpr COLORREF GREEN = 0x00FF00;
    if (m_bElementReadOut) {
        return ElementFromColor(c) != -1;
    }
    const bool bCurve = m_nFlags & MF_CROSSSECTION ? c == GREEN : c == RED || c == BLUE || c == GREEN;
    const bool bFoundPoint = m_bMultiphasePointsVisible && !(m_nFlags & MF_CROSSSECTION) &&
                             c == tessara::FOUND_MULTIPHASE_POINT_COLOR;
    const bool bCritical = m_bCriticalPointsClicking && c == tessara::CRITICAL_POINT_COLOR;
    return bCurve || bFoundPoint || bCritical;
}

void CPhaseDiagramOutput::PaintEmptyRect(CDC*, RECT*, CMetaFileDC*) {}
