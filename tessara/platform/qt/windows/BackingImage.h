#pragma once

#include <QColor>
#include <memory>
#include <optional>

#include "tessara/platform/qt/windows/WindowSurface.h"

namespace tessara {

class CPeer;

/// What a program has drawn on a window, and whether that is out of date. Main thread.
///
/// A window of the main thread paints when its image is to be shown. One of another thread is asked to; it
/// paints a fresh image, on its own thread, and hands it over when it is done. Until then the last one is
/// shown, at its own size where the window's has changed.
class CBackingImage {
public:
    explicit CBackingImage(CPeer& peer) : m_peer(peer) {}

    /// The image to draw on, made when it is first asked for.
    CWindowSurface& GetSurface();
    /// Shows what was drawn at the next turn of the event loop.
    void ShowDrawing();
    /// The colour of the ground that a fresh image has. DEFAULT: that of the widget's palette.
    void SetGround(QColor color) { m_ground = color; }
    QSize GetPixelSize() const;

    /// Marks it as out of date.
    void Outdate(bool bErase);
    /// Has the window painted when it is out of date: at once, or asks it to.
    void Update();
    /// The widget's paint event; false when the program paints nothing there.
    bool Paint();
    bool IsOutOfDate() const { return m_bInvalid; }
    /// Whether the image is what the window shows.
    bool IsShown() const { return m_bProgramPaints; }

private:
    /// An image that another thread paints.
    struct CFreshImage {
        std::shared_ptr<CWindowSurface> pSurface;
        unsigned nNumber = 0;
    };

    static std::function<void()> PaintOnItsThread(HWND hWnd);
    void PaintHere();
    CFreshImage Begin();
    void End(const CFreshImage& painted, bool bHandled);
    QColor GetGround() const;

    CPeer& m_peer;
    std::shared_ptr<CWindowSurface> m_pSurface;
    std::optional<QColor> m_ground;
    bool m_bInvalid = true;
    bool m_bErase = true;
    bool m_bPainting = false;      ///< here
    unsigned m_nBegun = 0;         ///< number of the image that another thread has begun last
    unsigned m_nShown = 0;         ///< and of the last one that was shown
    bool m_bProgramPaints = false; ///< the last WM_PAINT was handled, or something was drawn since
};

} // namespace tessara
