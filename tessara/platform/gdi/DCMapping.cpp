// CDC from logical units to the device's and back.
#include "tessara/platform/gdi/DC.h"

#include <array>

#include "tessara/platform/gdi/DrawSink.h"

int CDC::SetMapMode(int nMode) {
    const int nPrevious = GetMapMode();
    return m_pState->mapping.SetMode(nMode) ? nPrevious : 0;
}

int CDC::GetMapMode() const {
    return m_pState->mapping.GetMode();
}

BOOL CDC::SetWindowExtEx(int nWidth, int nHeight, SIZE* pPrevious) {
    if (pPrevious) {
        *pPrevious = m_pState->mapping.GetWindowExtent();
    }
    return m_pState->mapping.SetWindowExtent({nWidth, nHeight});
}

BOOL CDC::SetWindowOrgEx(int nX, int nY, POINT* pPrevious) {
    if (pPrevious) {
        *pPrevious = m_pState->mapping.GetWindowOrigin();
    }
    m_pState->mapping.SetWindowOrigin({nX, nY});
    return TRUE;
}

BOOL CDC::SetViewportExtEx(int nWidth, int nHeight, SIZE* pPrevious) {
    if (pPrevious) {
        *pPrevious = m_pState->mapping.GetViewportExtent();
    }
    return m_pState->mapping.SetViewportExtent({nWidth, nHeight});
}

BOOL CDC::SetViewportOrgEx(int nX, int nY, POINT* pPrevious) {
    if (pPrevious) {
        *pPrevious = m_pState->mapping.GetViewportOrigin();
    }
    m_pState->mapping.SetViewportOrigin({nX, nY});
    return TRUE;
}

CSize CDC::SetWindowExt(int nWidth, int nHeight) {
    SIZE previous;
    SetWindowExtEx(nWidth, nHeight, &previous);
    return previous;
}

CPoint CDC::SetWindowOrg(int nX, int nY) {
    POINT previous;
    SetWindowOrgEx(nX, nY, &previous);
    return previous;
}

CSize CDC::SetViewportExt(int nWidth, int nHeight) {
    SIZE previous;
    SetViewportExtEx(nWidth, nHeight, &previous);
    return previous;
}

CPoint CDC::SetViewportOrg(int nX, int nY) {
    POINT previous;
    SetViewportOrgEx(nX, nY, &previous);
    return previous;
}

CSize CDC::GetWindowExt() const {
    return m_pState->mapping.GetWindowExtent();
}

CSize CDC::GetViewportExt() const {
    return m_pState->mapping.GetViewportExtent();
}

void CDC::LPtoDP(POINT* pPoints, int nCount) const {
    for (int i = 0; i < nCount; ++i) {
        pPoints[i] = m_pState->mapping.ToDevice(pPoints[i]);
    }
}

void CDC::DPtoLP(POINT* pPoints, int nCount) const {
    for (int i = 0; i < nCount; ++i) {
        pPoints[i] = m_pState->mapping.ToLogical(pPoints[i]);
    }
}

void CDC::LPtoDP(RECT* pRect) const {
    std::array<POINT, 2> corners{POINT{pRect->left, pRect->top}, POINT{pRect->right, pRect->bottom}};
    LPtoDP(corners.data(), 2);
    *pRect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CDC::DPtoLP(RECT* pRect) const {
    std::array<POINT, 2> corners{POINT{pRect->left, pRect->top}, POINT{pRect->right, pRect->bottom}};
    DPtoLP(corners.data(), 2);
    *pRect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CDC::LPtoDP(SIZE* pSize) const {
    *pSize = m_pState->mapping.ToDevice(*pSize);
}

void CDC::DPtoLP(SIZE* pSize) const {
    *pSize = m_pState->mapping.ToLogical(*pSize);
}
