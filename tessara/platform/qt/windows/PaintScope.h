#pragma once

#include <QPointer>
#include <vector>

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

/// A widget is within its paint event to the end of the scope, and a program's handler may run there.
///
/// The toolkit is not to be entered anew meanwhile: no event loop runs, and nothing paints that window. Main
/// thread.
class CPaintScope {
public:
    explicit CPaintScope(const QWidget& widget);
    ~CPaintScope();
    CPaintScope(const CPaintScope&) = delete;
    CPaintScope& operator=(const CPaintScope&) = delete;

    static bool IsInside();

private:
    const CPeer::CEventScope m_scope; ///< the widget is not deleted before it has been painted
};

/// Keeps the windows that are within a paint event from being painted a second time, as a control would be
/// whose position another thread sets. They are painted anew afterwards.
class CPaintHold {
public:
    CPaintHold();
    ~CPaintHold();
    CPaintHold(const CPaintHold&) = delete;
    CPaintHold& operator=(const CPaintHold&) = delete;

private:
    std::vector<QPointer<QWidget>> m_held;
};

} // namespace tessara
