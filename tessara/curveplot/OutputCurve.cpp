#include "tessara/curveplot/OutputCurve.h"

#include <algorithm>
#include <array>

#include "tessara/curveplot/CurveTraces.h"
#include "tessara/numeric/Lookup.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/plot/CustomScale.h"
#include "tessara/plot/DataRange.h"
#include "tessara/plot/ResourceFields.h"

IMPLEMENT_DYNAMIC(COutputCurve, CObject)

namespace {

constexpr int ARGUMENT_AXIS = 1;
constexpr int FUNCTION_AXIS = 2;
constexpr const char* DEFAULT_FORMAT = "%.2lf";
constexpr DWORD CUSTOM_FLAGS = OCF_CUSTOMARGUMENT | OCF_CUSTOMFUNCTION;
constexpr DWORD FIT_FLAGS = OCF_FITARGUMENT | OCF_FITFUNCTION;
constexpr std::array<COLORREF, 6> COLORS{0x0000FF, 0xFF0000, 0x00FF00, 0xFFFF00, 0xFF00FF, 0x00FFFF};

} // namespace

COutputCurve::COutputCurve() : m_pTraces(std::make_unique<tessara::CCurveTraces>()) {
    for (const COLORREF color : COLORS) {
        m_Colors.Add(color);
    }
}

COutputCurve::~COutputCurve() {
    DestroyGetValue();
    ClearOutputList();
}

void COutputCurve::SetOutputData(CCurve* pCurve) {
    *this = pCurve;
}

void COutputCurve::SetOutputData(CMultiCurve* pCurve) {
    *this = pCurve;
}

void COutputCurve::SetOutputData(double* pX, double* pY, int nPoints) {
    m_nFunctions = 1;
    m_nPoints = nPoints;
    m_pX = pX;
    m_pY[0] = pY;
    m_pMultipartCurve = nullptr;
    m_pSymbolsCurve = nullptr;
    m_nFlags &= ~CUSTOM_FLAGS;
    ForgetView();
}

void COutputCurve::ClearForNewData() {
    m_pSymbolsCurve = nullptr;
    m_pMultipartCurve = nullptr;
    m_nParts = 1;
    m_nFunctions = 1;
    m_bDiagonal = 0;
    m_nFlags &= ~(CUSTOM_FLAGS | FIT_FLAGS);
    ForgetView();
}

void COutputCurve::ForgetView() {
    m_bZoomed = 0;
    m_pTraces->Forget();
}

COutputCurve& COutputCurve::operator=(CCurve* pCurve) {
    ClearForNewData();
    m_nPoints = pCurve->m_nPoints;
    m_pX = pCurve->m_pX;
    m_pY[0] = pCurve->m_pY;
    return *this;
}

COutputCurve& COutputCurve::operator=(CMultiCurve* pCurve) {
    ClearForNewData();
    m_nFunctions = std::min(pCurve->m_nDimensions, MAX_FUNCTIONS);
    m_nPoints = pCurve->m_nPoints;
    m_pX = pCurve->m_pX;
    std::copy_n(pCurve->m_ppY, m_nFunctions, m_pY);
    return *this;
}

COutputCurve& COutputCurve::operator=(CMultipartCurve* pCurve) {
    ClearForNewData();
    m_pMultipartCurve = pCurve;
    m_nPoints = pCurve->m_nPoints;
    m_nParts = pCurve->m_nParts;
    return *this;
}

void COutputCurve::SetSymbolsCurve(CMultiCurve* pCurve) {
    m_pSymbolsCurve = pCurve;
}

void COutputCurve::DataChanged() {
    m_pTraces->Forget();
}

void COutputCurve::Add(CCurve* pCurve) {
    m_OutputList.Add(pCurve);
}

void COutputCurve::Add(CMultiCurve* pCurve) {
    m_OutputList.Add(pCurve);
}

void COutputCurve::Add(CMultipartCurve* pCurve) {
    m_OutputList.Add(pCurve);
}

void COutputCurve::Add(double* pX, double* pY, int nPoints) {
    auto* pCurve = new CCurve(nPoints, pX, pY);
    m_OwnedCurves.Add(pCurve);
    m_OutputList.Add(pCurve);
}

void COutputCurve::Add(double* pX, double* pY, int nPoints, int nParts, CCurvePartInfo* pParts) {
    auto* pCurve = new CMultipartCurve(nPoints, pX, pY, nParts, pParts, 1);
    m_OwnedCurves.Add(pCurve);
    m_OutputList.Add(pCurve);
}

void COutputCurve::ClearOutputList() {
    m_OutputList.RemoveAll();
    for (int i = 0; i < m_OwnedCurves.GetSize(); ++i) {
        delete m_OwnedCurves.GetAt(i);
    }
    m_OwnedCurves.RemoveAll();
}

void COutputCurve::DisplayDiagonal(int bShow) {
    m_bDiagonal = bShow;
}

void COutputCurve::Reset() {}

void COutputCurve::SetNames(const char* name, const char* symbol, const char* argumentName,
                            const char* argumentSymbol) {
    SetCurveName(name);
    m_strCurveSymbol = symbol;
    m_strArgumentName = argumentName;
    m_strCurveArgument = argumentSymbol;
}

void COutputCurve::SetCurveName(const char* name) {
    m_strCurveName = name;
    m_strSlideName.Empty();
}

void COutputCurve::SetCurveSymbol(const char* symbol) {
    m_strCurveSymbol = symbol;
}

void COutputCurve::SetCurveArgument(const char* symbol) {
    m_strCurveArgument = symbol;
}

void COutputCurve::SetArgumentName(const char* name) {
    m_strArgumentName = name;
}

void COutputCurve::SetSlideName(const char* name) {
    m_strSlideName = name;
}

void COutputCurve::SetArgumentFormat(const char* fmt) {
    m_strArgumentFormat = fmt ? fmt : DEFAULT_FORMAT;
}

void COutputCurve::SetFunctionFormat(const char* fmt) {
    m_strFunctionFormat = fmt ? fmt : DEFAULT_FORMAT;
}

const CString& COutputCurve::GetArgumentFormat() const {
    return m_strArgumentFormat;
}

const CString& COutputCurve::GetFunctionFormat() const {
    return m_strFunctionFormat;
}

void COutputCurve::LoadResourceString(UINT nID) {
    const char* pszText = tessara::FindStringResource(nID);
    if (!pszText) {
        AfxThrowResourceException();
    }
    tessara::CResourceFields fields(pszText);
    m_strCurveName = fields.Take();
    m_strCurveSymbol = fields.Take();
    m_strArgumentName = fields.Take();
    const bool bHasFunctionFormat = fields.HasMore();
    m_strCurveArgument = fields.TakeOrRest();
    if (bHasFunctionFormat) {
        const bool bHasArgumentFormat = fields.HasMore();
        m_strFunctionFormat = fields.TakeOrRest();
        if (bHasArgumentFormat) {
            m_strArgumentFormat = fields.TakeOrRest();
        }
    }
    m_strSlideName.Empty();
}

int COutputCurve::UseCustomScale(int nAxis, double dFrom, double dTo, double dStep, int nExponent) {
    const tessara::CCustomScale custom{dFrom, dTo, dStep, nExponent};
    const bool bArgument = (nAxis & ARGUMENT_AXIS) != 0;
    const bool bFunction = (nAxis & FUNCTION_AXIS) != 0;
    if (bArgument == bFunction || !custom.IsUsable()) {
        return 0;
    }
    m_nFlags |= bArgument ? OCF_CUSTOMARGUMENT : OCF_CUSTOMFUNCTION;
    custom.ApplyTo(bArgument ? m_ArgumentScale : m_FunctionScale);
    custom.ApplyTo(bArgument ? m_WholeArgumentScale : m_WholeFunctionScale);
    return 1;
}

void COutputCurve::UseAutomaticScale(int nAxis) {
    if (nAxis & ARGUMENT_AXIS) {
        m_nFlags &= ~DWORD{OCF_CUSTOMARGUMENT};
    }
    if (nAxis & FUNCTION_AXIS) {
        m_nFlags &= ~DWORD{OCF_CUSTOMFUNCTION};
    }
}

void COutputCurve::FitScale(int nAxis) {
    if (nAxis & ARGUMENT_AXIS) {
        m_nFlags |= OCF_FITARGUMENT;
    }
    if (nAxis & FUNCTION_AXIS) {
        m_nFlags |= OCF_FITFUNCTION;
    }
}

void COutputCurve::ZoomTo(const tessara::CZoomWindow& window) {
    if (!m_bZoomed) {
        m_WholeArgumentScale = m_ArgumentScale;
        m_WholeFunctionScale = m_FunctionScale;
    }
    m_Zoom = window;
    m_bZoomed = 1;
}

void COutputCurve::ShowWhole() {
    if (m_bZoomed) {
        m_ArgumentScale = m_WholeArgumentScale;
        m_FunctionScale = m_WholeFunctionScale;
    }
    m_bZoomed = 0;
}

void COutputCurve::ChooseArgumentScale() {
    tessara::CDataRange range = m_pTraces->GetRangeX();
    if (!m_pMultipartCurve && m_nFunctions == 0) { // abscissae alone
        range.Add(m_pX, m_nPoints);
    }
    if (m_pSymbolsCurve) {
        range.Add(m_pSymbolsCurve->m_pX, m_pSymbolsCurve->m_nPoints);
    }
    range.Choose(m_ArgumentScale);
}

void COutputCurve::ChooseFunctionScale() {
    tessara::CDataRange range = m_pTraces->GetRangeY();
    if (m_pSymbolsCurve) {
        for (int i = 0; i < m_pSymbolsCurve->m_nDimensions; ++i) {
            range.Add(m_pSymbolsCurve->m_ppY[i], m_pSymbolsCurve->m_nPoints);
        }
    }
    range.Choose(m_FunctionScale);
}

void COutputCurve::FindBoundingBox() {
    m_pTraces->Follow(*this, m_bChangesAnnounced != 0);
    if (m_bZoomed) {
        tessara::ChooseZoomedScale(m_ArgumentScale, m_Zoom.dXMin, m_Zoom.dXMax);
        tessara::ChooseZoomedScale(m_FunctionScale, m_Zoom.dYMin, m_Zoom.dYMax);
        return;
    }
    if (!(m_nFlags & OCF_CUSTOMARGUMENT)) {
        ChooseArgumentScale();
    }
    if (!(m_nFlags & OCF_CUSTOMFUNCTION)) {
        ChooseFunctionScale();
    }
    if (m_nFlags & OCF_FITARGUMENT) {
        tessara::FitToData(m_ArgumentScale);
    }
    if (m_nFlags & OCF_FITFUNCTION) {
        tessara::FitToData(m_FunctionScale);
    }
}

COLORREF COutputCurve::CurveColor(int nIndex) {
    return m_Colors.GetAt(nIndex);
}

int COutputCurve::CurveFromColor(COLORREF color) {
    for (int i = 0; i < m_Colors.GetSize(); ++i) {
        if (m_Colors.GetAt(i) == color) {
            return i;
        }
    }
    return -1;
}

int COutputCurve::IsValidValue(double x) {
    return m_ArgumentScale.dLower <= x && x <= m_ArgumentScale.dUpper;
}

double COutputCurve::Value(int nFunction, double x) {
    if (m_pMultipartCurve) {
        return m_pMultipartCurve->m_nPoints > 0 ? m_pMultipartCurve->Value(x) : 0;
    }
    if (m_nPoints < 1) {
        return 0;
    }
    const double* pX = m_pX;
    const double* pY = m_pY[nFunction];
    const int nLast = m_nPoints - 1;
    if (nLast < 1 || x <= pX[0]) {
        return pY[0];
    }
    if (x >= pX[nLast]) {
        return pY[nLast];
    }
    const int i = x <= pX[1] ? 0 : tessara::FindInterval(pX, 0, m_nPoints, x);
    if (pX[i + 1] == pX[i]) {
        return pY[i];
    }
    return pY[i] + (pY[i + 1] - pY[i]) * (x - pX[i]) / (pX[i + 1] - pX[i]);
}
