#pragma once

#include "tessara/platform/gdi/Geometry.h"

enum MappingMode : int {
    MM_TEXT = 1,       ///< one unit is one device pixel
    MM_LOENGLISH = 4,  ///< one unit is 0.01 inch, y grows upward
    MM_ISOTROPIC = 7,  ///< window and viewport as set, with the same unit on both axes
    MM_ANISOTROPIC = 8 ///< window and viewport as set
};

namespace tessara {

/// Dots per inch between 1 and a million; not-a-number becomes 1.
TESSARA_API double HoldResolution(double dDotsPerInch);

/// The map between the logical units of a program and the pixels of a device.
///
/// A logical point maps to (point - window origin) * viewport extent / window extent + viewport origin,
/// rounded to the nearest integer, halves upward; the other direction likewise. Extents are never zero. Total
/// on all coordinates: what lies beyond MAX_COORDINATE is held there.
class TESSARA_API CMapping {
public:
    /// Text mode on a device of the given dots per inch, as HoldResolution holds them.
    explicit CMapping(double dDotsPerInchX = 96, double dDotsPerInchY = 96);

    int GetMode() const { return m_nMode; }
    /// False, and nothing changed, for a mode other than those of MappingMode.
    bool SetMode(int nMode);

    SIZE GetWindowExtent() const { return m_windowExtent; }
    /// The extent in force: in isotropic mode the one asked for, shrunk on one axis to equal units.
    SIZE GetViewportExtent() const { return m_viewportExtent; }
    POINT GetWindowOrigin() const { return m_windowOrigin; }
    POINT GetViewportOrigin() const { return m_viewportOrigin; }

    /// Extents can be set in the isotropic and anisotropic modes only, origins in all; zero extents are
    /// refused for the window and taken as 1 for the viewport. False when nothing was changed.
    bool SetWindowExtent(SIZE extent);
    bool SetViewportExtent(SIZE extent);
    void SetWindowOrigin(POINT origin) { m_windowOrigin = origin; }
    void SetViewportOrigin(POINT origin) { m_viewportOrigin = origin; }

    POINT ToDevice(POINT point) const;
    POINT ToLogical(POINT point) const;
    /// Lengths, never negative: the origins do not enter.
    SIZE ToDevice(SIZE size) const;
    SIZE ToLogical(SIZE size) const;

    /// Device pixels of one logical unit on each axis, positive.
    double GetScaleX() const;
    double GetScaleY() const;

private:
    SIZE FitViewport() const;

    int m_nMode = MM_TEXT;
    double m_dDotsPerInchX;
    double m_dDotsPerInchY;
    SIZE m_windowExtent{1, 1};
    SIZE m_askedViewportExtent{1, 1};
    SIZE m_viewportExtent{1, 1}; ///< in force
    POINT m_windowOrigin{0, 0};
    POINT m_viewportOrigin{0, 0};
};

} // namespace tessara
