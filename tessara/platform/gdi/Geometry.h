#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

// Points, sizes, rectangles and colours of drawing surfaces. Coordinates are logical or device units, as the
// operation that takes them says; y grows downward unless a mapping mode turns it.

struct tagPOINT {
    LONG x;
    LONG y;
    friend bool operator==(const tagPOINT&, const tagPOINT&) = default;
};
using POINT = tagPOINT;

struct tagSIZE {
    LONG cx;
    LONG cy;
    friend bool operator==(const tagSIZE&, const tagSIZE&) = default;
};
using SIZE = tagSIZE;

/// left and top belong to the rectangle, right and bottom lie just outside it.
struct tagRECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
    friend bool operator==(const tagRECT&, const tagRECT&) = default;
};
using RECT = tagRECT;

class CSize : public tagSIZE {
public:
    CSize() : tagSIZE{0, 0} {}
    CSize(int nWidth, int nHeight) : tagSIZE{nWidth, nHeight} {}
    CSize(const SIZE& size) : tagSIZE(size) {}
};

class CPoint : public tagPOINT {
public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int nX, int nY) : tagPOINT{nX, nY} {}
    CPoint(const POINT& point) : tagPOINT(point) {}
    void Offset(int nX, int nY) {
        x += nX;
        y += nY;
    }
};

class TESSARA_API CRect : public tagRECT {
public:
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(int nLeft, int nTop, int nRight, int nBottom) : tagRECT{nLeft, nTop, nRight, nBottom} {}
    CRect(const RECT& rect) : tagRECT(rect) {}
    CRect(POINT topLeft, POINT bottomRight)
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    BOOL IsRectEmpty() const { return left >= right || top >= bottom; }
    BOOL PtInRect(POINT point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    void SetRect(int nLeft, int nTop, int nRight, int nBottom) {
        *this = CRect(nLeft, nTop, nRight, nBottom);
    }
    void SetRectEmpty() { *this = CRect(); }
    void OffsetRect(int nX, int nY);
    void InflateRect(int nX, int nY);
    /// Swaps the sides where needed so that neither width nor height is negative.
    void NormalizeRect();
};

/// A colour as 0x00BBGGRR.
using COLORREF = DWORD;

constexpr COLORREF RGB(int nRed, int nGreen, int nBlue) {
    return static_cast<COLORREF>(nRed & 0xFF) | static_cast<COLORREF>(nGreen & 0xFF) << 8 |
           static_cast<COLORREF>(nBlue & 0xFF) << 16;
}
constexpr BYTE GetRValue(COLORREF color) {
    return static_cast<BYTE>(color);
}
constexpr BYTE GetGValue(COLORREF color) {
    return static_cast<BYTE>(color >> 8);
}
constexpr BYTE GetBValue(COLORREF color) {
    return static_cast<BYTE>(color >> 16);
}
constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

/// nNumber * nNumerator / nDenominator, rounded to the nearest integer, halves away from zero; -1 when the
/// denominator is 0 or the result does not fit.
TESSARA_API int MulDiv(int nNumber, int nNumerator, int nDenominator);

namespace tessara {

/// The largest magnitude of a coordinate. Everything beyond lies far outside any page or device.
constexpr LONG MAX_COORDINATE = 1 << 27;

/// A real position as a coordinate: truncated toward zero, held within MAX_COORDINATE; not-a-number becomes
/// 0.
TESSARA_API LONG ToCoordinate(double dValue);

} // namespace tessara
