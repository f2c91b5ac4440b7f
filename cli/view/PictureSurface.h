#pragma once

#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/SvgDC.h"

namespace tessara {

/// True for the surfaces of pictures and of paper, false for those of the screen.
inline bool IsPictureSurface(const CDC& dc) {
    return dc.IsPrinting() || dynamic_cast<const CImageDC*>(&dc) || dynamic_cast<const CSvgDC*>(&dc) ||
           dynamic_cast<const CPdfDC*>(&dc);
}

/// Gives a value back what it was.
template <class TYPE>
class CKept {
public:
    explicit CKept(TYPE& value) : m_value(value), m_was(value) {}
    ~CKept() { m_value = m_was; }
    CKept(const CKept&) = delete;
    CKept& operator=(const CKept&) = delete;

private:
    TYPE& m_value;
    const TYPE m_was;
};

} // namespace tessara
