#pragma once

class CFrameWnd;
class CWinApp;

namespace tessara {

/// Where the viewer's window is and which of its bars are shown, kept in the settings of the user.
class CViewerPlacement {
public:
    explicit CViewerPlacement(CWinApp& app) : m_app(app) {}

    /// Of a full screen only where the window was before: its bars are hidden.
    void Save(const CFrameWnd& frame);
    /// Shows the frame as a window was last saved, or as the frame is where none was. It is moved so far down
    /// and to the right that nBefore windows beneath it can be seen, and back onto the screen.
    void Restore(CFrameWnd& frame, int nBefore);

private:
    CWinApp& m_app;
};

} // namespace tessara
