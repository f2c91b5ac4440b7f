#include "tessara/platform/qt/windows/PaintScope.h"

namespace tessara {

namespace {

/// The windows that are within a paint event, the innermost last.
std::vector<QWidget*>& Painted() {
    static auto* const s_pPainted = new std::vector<QWidget*>;
    return *s_pPainted;
}

} // namespace

CPaintScope::CPaintScope(const QWidget& widget) {
    Painted().push_back(widget.window());
}

CPaintScope::~CPaintScope() {
    Painted().pop_back();
}

bool CPaintScope::IsInside() {
    return !Painted().empty();
}

CPaintHold::CPaintHold() {
    for (QWidget* const pWindow : Painted()) {
        if (pWindow->updatesEnabled()) {
            pWindow->setUpdatesEnabled(false);
            m_held.emplace_back(pWindow);
        }
    }
}

CPaintHold::~CPaintHold() {
    for (const QPointer<QWidget>& pWindow : m_held) {
        if (pWindow) {
            pWindow->setUpdatesEnabled(true);
        }
    }
}

} // namespace tessara
