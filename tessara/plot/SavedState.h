#pragma once

#include "tessara/platform/gdi/DC.h"

namespace tessara {

/// Keeps a surface's drawing state and restores it at the end. The surface must outlive it.
class CSavedState {
public:
    explicit CSavedState(CDC& dc) : m_dc(dc), m_nSaved(dc.SaveDC()) {}
    ~CSavedState() { m_dc.RestoreDC(m_nSaved); }
    CSavedState(const CSavedState&) = delete;
    CSavedState& operator=(const CSavedState&) = delete;

private:
    CDC& m_dc;
    const int m_nSaved;
};

} // namespace tessara
