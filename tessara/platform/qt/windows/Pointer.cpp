#include "tessara/platform/ui/windows/Pointer.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "tessara/platform/gdi/Geometry.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/drawing/Pictures.h"
#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

struct CPointerShape {
    QCursor cursor;
};

namespace {

struct CSystemShape {
    UINT nID;
    Qt::CursorShape eShape;
};
constexpr CSystemShape SYSTEM_SHAPES[] = {
    {IDC_ARROW, Qt::ArrowCursor},        {IDC_IBEAM, Qt::IBeamCursor},
    {IDC_WAIT, Qt::WaitCursor},          {IDC_CROSS, Qt::CrossCursor},
    {IDC_UPARROW, Qt::UpArrowCursor},    {IDC_SIZENWSE, Qt::SizeFDiagCursor},
    {IDC_SIZENESW, Qt::SizeBDiagCursor}, {IDC_SIZEWE, Qt::SizeHorCursor},
    {IDC_SIZENS, Qt::SizeVerCursor},     {IDC_SIZEALL, Qt::SizeAllCursor},
    {IDC_NO, Qt::ForbiddenCursor},       {IDC_HAND, Qt::PointingHandCursor},
    {IDC_APPSTARTING, Qt::BusyCursor},
};

/// The active point that a cursor resource tells of.
QPoint HotSpotOf(UINT nID) {
    const CFileResource* const pFile = FindFileResource(EFileResource::cursor, nID);
    const auto text = QString::fromLatin1(reinterpret_cast<const char*>(pFile->bytes.data()),
                                          static_cast<qsizetype>(pFile->bytes.size()));
    static const QRegularExpression s_attribute(QStringLiteral("data-hotspot=\"(\\d{1,3}) (\\d{1,3})\""));
    const auto match = s_attribute.match(text);
    return {match.captured(1).toInt(), match.captured(2).toInt()};
}

/// The system's shape, the program's own, or nothing.
std::optional<QCursor> MakeCursor(UINT nID) {
    for (const CSystemShape& shape : SYSTEM_SHAPES) {
        if (shape.nID == nID) {
            return QCursor(shape.eShape);
        }
    }
    const QPixmap pixmap = LoadPicture(EFileResource::cursor, nID, qApp->devicePixelRatio());
    if (pixmap.isNull()) {
        return std::nullopt;
    }
    const QPoint hotSpot = HotSpotOf(nID);
    return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

HCURSOR g_hCurrent = nullptr; ///< what was set last

double ScreenRatio() {
    const QScreen* const pScreen = QApplication::primaryScreen();
    return pScreen ? pScreen->devicePixelRatio() : 1;
}

/// Keeps the pointer inside a rectangle: moves it back, and corrects the mouse events that told of the way
/// out.
class CConfinement : public QObject {
public:
    void Confine(const QRectF& area) {
        m_area = area;
        qApp->installEventFilter(this);
        QCursor::setPos(Hold(QCursor::pos()).toPoint());
    }
    void Release() {
        m_area.reset();
        qApp->removeEventFilter(this);
    }
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    QPointF Hold(QPointF point) const {
        return {std::clamp(point.x(), m_area->left(), m_area->right()),
                std::clamp(point.y(), m_area->top(), m_area->bottom())};
    }
    bool HoldMouse(QWidget& widget, const QMouseEvent& mouse);

    std::optional<QRectF> m_area; ///< its right and bottom edges belong to it
};

bool CConfinement::HoldMouse(QWidget& widget, const QMouseEvent& mouse) {
    const QPointF global = mouse.globalPosition();
    const QPointF held = Hold(global);
    if (held == global) {
        return false;
    }
    QCursor::setPos(held.toPoint());
    QMouseEvent corrected(mouse.type(), mouse.position() + (held - global),
                          mouse.scenePosition() + (held - global), held, mouse.button(), mouse.buttons(),
                          mouse.modifiers(), mouse.pointingDevice());
    QApplication::sendEvent(&widget, &corrected);
    return true;
}

bool CConfinement::eventFilter(QObject* pWatched, QEvent* pEvent) {
    if (!m_area) {
        return false;
    }
    switch (pEvent->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return pWatched->isWidgetType() &&
               HoldMouse(static_cast<QWidget&>(*pWatched), static_cast<const QMouseEvent&>(*pEvent));
    case QEvent::Leave:
        QCursor::setPos(Hold(QCursor::pos()).toPoint());
        return false;
    case QEvent::ApplicationDeactivate:
        Release();
        return false;
    default:
        return false;
    }
}

CConfinement& Confinement() {
    static auto* const s_pConfinement = new CConfinement;
    return *s_pConfinement;
}

} // namespace

} // namespace tessara

using tessara::OnMainThread;

HCURSOR LoadCursor(UINT nID) {
    return OnMainThread([&]() -> HCURSOR {
        tessara::EnsureApplication();
        static auto* const s_pShapes = new std::map<UINT, tessara::CPointerShape>;
        auto it = s_pShapes->find(nID);
        if (it == s_pShapes->end()) {
            const auto cursor = tessara::MakeCursor(nID);
            if (!cursor) {
                return nullptr;
            }
            it = s_pShapes->emplace(nID, tessara::CPointerShape{*cursor}).first;
        }
        return &it->second;
    });
}

HCURSOR SetCursor(HCURSOR hCursor) {
    return OnMainThread([&] {
        if (tessara::CPeer* const pPeer = tessara::CPeer::UnderPointer()) {
            pPeer->SetPointer(hCursor ? hCursor->cursor : QCursor(Qt::BlankCursor));
        }
        return std::exchange(tessara::g_hCurrent, hCursor);
    });
}

BOOL ClipCursor(const RECT* pRect) {
    return OnMainThread([&]() -> BOOL {
        tessara::EnsureApplication();
        if (!pRect) {
            tessara::Confinement().Release();
            return TRUE;
        }
        if (CRect(*pRect).IsRectEmpty()) {
            return FALSE;
        }
        // Qt's units; the last pixel still belongs to the rectangle.
        const double dRatio = tessara::ScreenRatio();
        tessara::Confinement().Confine(
            QRectF(QPointF(pRect->left / dRatio, pRect->top / dRatio),
                   QPointF((pRect->right - 1) / dRatio, (pRect->bottom - 1) / dRatio)));
        return TRUE;
    });
}

BOOL GetCursorPos(POINT* pPoint) {
    *pPoint = OnMainThread([] {
        tessara::EnsureApplication();
        const QPointF point = QPointF(QCursor::pos()) * tessara::ScreenRatio();
        return POINT{static_cast<LONG>(std::lround(point.x())), static_cast<LONG>(std::lround(point.y()))};
    });
    return TRUE;
}

BOOL SetCursorPos(int nX, int nY) {
    OnMainThread([&] {
        tessara::EnsureApplication();
        QCursor::setPos((QPointF(nX, nY) / tessara::ScreenRatio()).toPoint());
    });
    return TRUE;
}
