#include "tessara/platform/qt/controls/PeerFactory.h"

#include <QApplication>
#include <QPointer>
#include <QResizeEvent>
#include <cmath>

#include "tessara/platform/gdi/GraphicsException.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/controls/Edges.h"
#include "tessara/platform/qt/frames/FrameWidget.h"
#include "tessara/platform/qt/windows/WindowBlock.h"
#include "tessara/platform/qt/windows/WindowText.h"
#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/dialogs/DialogSeam.h"
#include "tessara/platform/ui/frames/FrameSeam.h"

namespace tessara {

namespace {

struct CPeerClass {
    const char* pszName;
    CPeerMaker pfnMake;
};

/// The framework's classes of controls; any other name is a plain window.
constexpr CPeerClass CLASSES[] = {
    {"", &MakePlainPeer},
    {FRAME_CLASS, &MakeFramePeer},
    {VIEW_CLASS, &MakeViewPeer},
    {STATUS_BAR_CLASS, &MakeStatusBarPeer},
    {TOOL_BAR_CLASS, &MakeToolBarPeer},
    {CLASS_DIALOG, &MakeDialogPeer},
    {CLASS_STATIC, &MakeStaticPeer},
    {CLASS_EDIT, &MakeEditPeer},
    {CLASS_BUTTON, &MakeButtonPeer},
    {CLASS_LISTBOX, &MakeListBoxPeer},
    {CLASS_LISTVIEW, &MakeListViewPeer},
    {CLASS_SLIDER, &MakeSliderPeer},
    {CLASS_PROGRESS, &MakeProgressPeer},
    {CLASS_SPIN, &MakeSpinPeer},
    {CLASS_ANIMATION, &MakeAnimationPeer},
};

/// An edge and the client area inside it.
class CEdgeWidget : public QFrame {
public:
    CEdgeWidget(const CWindowDescription& description, QWidget* pParent) : QFrame(pParent), m_inside(this) {
        SetEdge(*this, description);
        m_inside.setMouseTracking(true);
    }
    QWidget& GetInside() { return m_inside; }

protected:
    void resizeEvent(QResizeEvent*) override { m_inside.setGeometry(contentsRect()); }

private:
    QWidget m_inside;
};

CPeerMaker FindMaker(const CString& strClass) {
    for (const CPeerClass& entry : CLASSES) {
        if (strClass.CompareNoCase(entry.pszName) == 0) {
            return entry.pfnMake;
        }
    }
    return &MakePlainPeer;
}

} // namespace

QRect ToQRect(const RECT& rect, double dRatio) {
    const auto fnScale = [dRatio](LONG nPixels) { return static_cast<int>(std::lround(nPixels / dRatio)); };
    return {QPoint(fnScale(rect.left), fnScale(rect.top)),
            QSize(fnScale(rect.right) - fnScale(rect.left), fnScale(rect.bottom) - fnScale(rect.top))};
}

void PlaceNow(QWidget& child, const QRect& place) {
    const QSize before = child.size();
    child.setGeometry(place);
    if (child.testAttribute(Qt::WA_PendingResizeEvent)) {
        QResizeEvent resize(place.size(), before);
        QApplication::sendEvent(&child, &resize);
        child.setAttribute(Qt::WA_PendingResizeEvent, false);
    }
}

Qt::WindowFlags ToWindowFlags(DWORD dwStyle) {
    Qt::WindowFlags flags = Qt::Window;
    if (!(dwStyle & (WS_CAPTION | WS_THICKFRAME))) {
        return flags | Qt::FramelessWindowHint;
    }
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    flags |= dwStyle & WS_SYSMENU ? Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint : Qt::WindowFlags();
    flags |= dwStyle & WS_MINIMIZEBOX ? Qt::WindowMinimizeButtonHint : Qt::WindowFlags();
    flags |= dwStyle & WS_MAXIMIZEBOX ? Qt::WindowMaximizeButtonHint : Qt::WindowFlags();
    return flags;
}

CPeer* MakePlainPeer(const CWindowDescription& description, QWidget* pParent) {
    const bool bChild = description.dwStyle & WS_CHILD;
    QWidget* pClient = nullptr;
    QWidget* pWidget = nullptr;
    if (HasEdge(description)) {
        auto* const pFrame = new CEdgeWidget(description, pParent);
        pWidget = pFrame;
        pClient = &pFrame->GetInside();
    } else {
        pWidget = new QWidget(pParent, bChild ? Qt::WindowFlags() : ToWindowFlags(description.dwStyle));
        pWidget->setMouseTracking(true);
    }
    if (!bChild || (description.dwStyle & WS_TABSTOP)) {
        pWidget->setFocusPolicy(Qt::StrongFocus);
    }
    return new CPeer(description, pWidget, pClient);
}

bool CanMakeWindows() {
    return OnMainThread([] {
        try {
            EnsureApplication(ENeed::windows);
            return true;
        } catch (const CGraphicsException&) {
            return false;
        }
    });
}

bool MakePeer(const CWindowDescription& description) {
    EnsureMainPump();
    CPeer* const pParent = CPeer::Find(description.hParent);
    const bool bChild = description.dwStyle & WS_CHILD;
    if (bChild && !pParent) {
        return false;
    }
    QWidget* pParentWidget = nullptr;
    if (pParent) {
        pParentWidget = bChild ? &pParent->GetClient() : pParent->GetWidget().window();
    }
    CPeer* const pPeer = FindMaker(description.strClass)(description, pParentWidget);
    QWidget& widget = pPeer->GetWidget();
    if (!CRect(description.rect).IsRectEmpty()) {
        const QRect place = ToQRect(description.rect, widget.devicePixelRatioF());
        bChild ? PlaceNow(widget, place) : widget.resize(place.size());
        if (!bChild && (description.rect.left || description.rect.top)) {
            widget.move(place.topLeft());
        }
    }
    if (description.dwStyle & WS_DISABLED) {
        bChild ? widget.setEnabled(false) : BlockWindow(widget, true);
    }
    SetText(widget, ToQString(description.strText.View()));
    if (bChild) {
        widget.hide(); // else it would appear together with its parent
    }
    if (!AttachPeer(description.hWnd, pPeer)) {
        delete &widget;
        return false;
    }
    return true;
}

namespace {

/// Lets the windows of a widget and of all in it and over it know that they have none any more, also where it
/// is deleted later.
void DetachPeers(const QWidget& widget) {
    QList<QWidget*> widgets = widget.findChildren<QWidget*>();
    widgets.append(const_cast<QWidget*>(&widget));
    for (const QWidget* pWidget : widgets) {
        const CPeer* const pPeer = CPeer::Of(pWidget);
        if (pPeer && &pPeer->GetWidget() == pWidget) {
            ChangeWindow(pPeer->GetHandle(), [](CWindowRecord& record) { record.pPeer = nullptr; });
        }
    }
}

} // namespace

void DestroyPeer(HWND hWnd) {
    CPeer* const pPeer = CPeer::Find(hWnd);
    if (!pPeer) {
        return;
    }
    const QPointer<QWidget> pWidget = &pPeer->GetWidget();
    DetachPeers(*pWidget);
    pWidget->removeEventFilter(pPeer);
    pWidget->hide(); // what gets the focus instead may take this one's parent away
    if (CPeer::CEventScope::IsInside() && pWidget) {
        pWidget->deleteLater();
    } else {
        delete pWidget;
    }
}

} // namespace tessara
