#include "tessara/platform/gdi/Mapping.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tessara {

namespace {

constexpr std::int64_t MAX_EXTENT = MAX_COORDINATE;

std::int64_t FloorDivide(std::int64_t nNumerator, std::int64_t nDenominator) {
    const std::int64_t nQuotient = nNumerator / nDenominator;
    const bool bInexact = nNumerator % nDenominator != 0;
    return nQuotient - (bInexact && (nNumerator < 0) != (nDenominator < 0) ? 1 : 0);
}

/// nValue * nMultiplier / nDivisor to the nearest integer, halves upward.
std::int64_t Scale(std::int64_t nValue, std::int64_t nMultiplier, std::int64_t nDivisor) {
    if (nDivisor < 0) {
        nDivisor = -nDivisor;
        nMultiplier = -nMultiplier;
    }
    return FloorDivide(2 * nValue * nMultiplier + nDivisor, 2 * nDivisor);
}

LONG Hold(std::int64_t nValue) {
    return static_cast<LONG>(std::clamp<std::int64_t>(nValue, -MAX_COORDINATE, MAX_COORDINATE));
}

LONG MapCoordinate(LONG nValue, LONG nFromOrigin, LONG nFromExtent, LONG nToOrigin, LONG nToExtent) {
    const std::int64_t nOffset = Hold(std::int64_t{nValue} - nFromOrigin);
    return Hold(Scale(nOffset, nToExtent, nFromExtent) + nToOrigin);
}

LONG MapLength(LONG nLength, LONG nFromExtent, LONG nToExtent) {
    return MapCoordinate(std::abs(Hold(nLength)), 0, std::abs(nFromExtent), 0, std::abs(nToExtent));
}

LONG HoldExtent(LONG nExtent) {
    return static_cast<LONG>(std::clamp<std::int64_t>(nExtent, -MAX_EXTENT, MAX_EXTENT));
}

LONG WithSign(double dMagnitude, LONG nSign) {
    const LONG nMagnitude = std::max<LONG>(1, ToCoordinate(dMagnitude));
    return nSign < 0 ? -nMagnitude : nMagnitude;
}

} // namespace

double HoldResolution(double dDotsPerInch) {
    constexpr double MAX_RESOLUTION = 1e6;
    return dDotsPerInch >= 1.0 ? std::min(dDotsPerInch, MAX_RESOLUTION) : 1.0;
}

CMapping::CMapping(double dDotsPerInchX, double dDotsPerInchY)
    : m_dDotsPerInchX(HoldResolution(dDotsPerInchX)), m_dDotsPerInchY(HoldResolution(dDotsPerInchY)) {}

bool CMapping::SetMode(int nMode) {
    switch (nMode) {
    case MM_TEXT:
        m_windowExtent = {1, 1};
        m_askedViewportExtent = {1, 1};
        break;
    case MM_LOENGLISH:
        m_windowExtent = {1000, 1000};
        m_askedViewportExtent = {static_cast<LONG>(std::lround(m_dDotsPerInchX * 10)),
                                 static_cast<LONG>(std::lround(m_dDotsPerInchY * -10))};
        break;
    case MM_ISOTROPIC:
    case MM_ANISOTROPIC:
        break;
    default:
        return false;
    }
    m_nMode = nMode;
    m_viewportExtent = FitViewport();
    return true;
}

SIZE CMapping::FitViewport() const {
    const SIZE asked = m_askedViewportExtent;
    if (m_nMode != MM_ISOTROPIC) {
        return asked;
    }
    // Inches of one logical unit on each axis; the larger gives way.
    const double dUnitX = std::abs(asked.cx / (m_dDotsPerInchX * m_windowExtent.cx));
    const double dUnitY = std::abs(asked.cy / (m_dDotsPerInchY * m_windowExtent.cy));
    const double dAspect = m_dDotsPerInchY / m_dDotsPerInchX;
    if (dUnitX > dUnitY) {
        const double dWidth = std::abs(static_cast<double>(asked.cy) * m_windowExtent.cx) / m_windowExtent.cy;
        return {WithSign(std::abs(dWidth) / dAspect, asked.cx), asked.cy};
    }
    const double dHeight = std::abs(static_cast<double>(asked.cx) * m_windowExtent.cy) / m_windowExtent.cx;
    return {asked.cx, WithSign(std::abs(dHeight) * dAspect, asked.cy)};
}

bool CMapping::SetWindowExtent(SIZE extent) {
    if (m_nMode < MM_ISOTROPIC || extent.cx == 0 || extent.cy == 0) {
        return false;
    }
    m_windowExtent = {HoldExtent(extent.cx), HoldExtent(extent.cy)};
    m_viewportExtent = FitViewport();
    return true;
}

bool CMapping::SetViewportExtent(SIZE extent) {
    if (m_nMode < MM_ISOTROPIC) {
        return false;
    }
    m_askedViewportExtent = {extent.cx == 0 ? 1 : HoldExtent(extent.cx),
                             extent.cy == 0 ? 1 : HoldExtent(extent.cy)};
    m_viewportExtent = FitViewport();
    return true;
}

POINT CMapping::ToDevice(POINT point) const {
    return {
        MapCoordinate(point.x, m_windowOrigin.x, m_windowExtent.cx, m_viewportOrigin.x, m_viewportExtent.cx),
        MapCoordinate(point.y, m_windowOrigin.y, m_windowExtent.cy, m_viewportOrigin.y, m_viewportExtent.cy)};
}

POINT CMapping::ToLogical(POINT point) const {
    return {
        MapCoordinate(point.x, m_viewportOrigin.x, m_viewportExtent.cx, m_windowOrigin.x, m_windowExtent.cx),
        MapCoordinate(point.y, m_viewportOrigin.y, m_viewportExtent.cy, m_windowOrigin.y, m_windowExtent.cy)};
}

SIZE CMapping::ToDevice(SIZE size) const {
    return {MapLength(size.cx, m_windowExtent.cx, m_viewportExtent.cx),
            MapLength(size.cy, m_windowExtent.cy, m_viewportExtent.cy)};
}

SIZE CMapping::ToLogical(SIZE size) const {
    return {MapLength(size.cx, m_viewportExtent.cx, m_windowExtent.cx),
            MapLength(size.cy, m_viewportExtent.cy, m_windowExtent.cy)};
}

double CMapping::GetScaleX() const {
    return std::abs(static_cast<double>(GetViewportExtent().cx) / m_windowExtent.cx);
}

double CMapping::GetScaleY() const {
    return std::abs(static_cast<double>(GetViewportExtent().cy) / m_windowExtent.cy);
}

} // namespace tessara
