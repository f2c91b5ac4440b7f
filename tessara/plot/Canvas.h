#pragma once

#include <span>
#include <string_view>

#include "tessara/platform/gdi/DC.h"

namespace tessara {

/// A drawing surface together with the recorded picture that repeats it. Every drawing goes to the surface
/// and then, with the same coordinates, to the picture, when there is one. Measuring asks the surface alone.
/// Neither is owned.
class TESSARA_API CCanvas {
public:
    CCanvas(CDC* pDC, CDC* pPicture) : m_pDC(pDC), m_pPicture(pPicture) {}

    CDC& GetSurface() const { return *m_pDC; }
    CDC* GetPicture() const { return m_pPicture; } ///< null when nothing is recorded

    void Line(int nX1, int nY1, int nX2, int nY2) const;
    void Polygon(std::span<const POINT> points) const;
    void Rectangle(const RECT& rect) const;
    void Ellipse(const RECT& rect) const;
    void Text(int nX, int nY, std::string_view strText) const;
    CSize Measure(std::string_view strText) const;

private:
    CDC* m_pDC;
    CDC* m_pPicture;
};

/// An object selected into both surfaces of a canvas; the previous ones come back when it ends. The object
/// must outlive the selection.
class TESSARA_API CSelection {
public:
    CSelection(const CCanvas& canvas, CGdiObject& object);
    CSelection(const CCanvas& canvas, StockObject eObject);
    ~CSelection();
    CSelection(const CSelection&) = delete;
    CSelection& operator=(const CSelection&) = delete;

private:
    const CCanvas m_canvas;
    CGdiObject* m_pOld;
    CGdiObject* m_pOldInPicture;
};

} // namespace tessara
