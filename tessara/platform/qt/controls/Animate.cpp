#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <map>
#include <memory>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/drawing/Pictures.h"
#include "tessara/platform/ui/controls/AnimateCtrl.h"

namespace tessara {

namespace {

/// Shows the pictures of an animation one after the other, as large as the widget allows.
class CAnimationWidget : public QWidget {
public:
    CAnimationWidget(DWORD dwStyle, QWidget* pParent) : QWidget(pParent), m_dwStyle(dwStyle) {
        constexpr int MILLISECONDS_A_PICTURE = 80;
        m_timer.setInterval(MILLISECONDS_A_PICTURE);
        connect(&m_timer, &QTimer::timeout, this, [this] { Advance(); });
    }

    void Open(UINT nID) {
        m_pFilm = nID != 0 ? std::make_unique<CFilm>(nID) : nullptr;
        m_pictures.clear();
        m_nPicture = 0;
        m_bPlaying = false;
        if (m_dwStyle & ACS_AUTOPLAY) {
            Play(0, -1, -1);
        }
        update();
    }
    bool IsOpen() const { return m_pFilm != nullptr; }
    void Play(int nFrom, int nTo, int nRepeat) {
        m_nFrom = nFrom;
        m_nTo = nTo;
        m_nRepeat = nRepeat;
        m_nPicture = nFrom;
        SetPlaying(true);
        update();
    }
    void SetPlaying(bool bPlaying) {
        m_bPlaying = bPlaying;
        if (m_bPlaying && isVisible()) {
            m_timer.start();
        } else {
            m_timer.stop();
        }
    }

protected:
    void showEvent(QShowEvent*) override { SetPlaying(m_bPlaying); }
    void hideEvent(QHideEvent*) override { m_timer.stop(); }
    void resizeEvent(QResizeEvent*) override { m_pictures.clear(); }
    void paintEvent(QPaintEvent*) override;

private:
    void Advance();
    int GetLast() const {
        const int nLast = m_pFilm ? m_pFilm->GetCount() - 1 : -1;
        return m_nTo < 0 ? nLast : std::min(m_nTo, nLast);
    }

    DWORD m_dwStyle;
    QTimer m_timer;
    std::unique_ptr<CFilm> m_pFilm;    ///< null when nothing is open
    std::map<int, QPixmap> m_pictures; ///< those painted so far, at the size of the widget
    int m_nPicture = 0;
    int m_nFrom = 0;
    int m_nTo = -1;
    int m_nRepeat = -1;
    bool m_bPlaying = false;
};

void CAnimationWidget::Advance() {
    if (++m_nPicture > GetLast()) {
        m_nPicture = m_nFrom;
        m_nRepeat -= m_nRepeat > 0 ? 1 : 0;
        if (m_nRepeat == 0) {
            m_nPicture = std::max(0, GetLast());
            SetPlaying(false);
        }
    }
    update();
}

void CAnimationWidget::paintEvent(QPaintEvent*) {
    if (!(m_dwStyle & ACS_TRANSPARENT)) {
        QPainter(this).fillRect(rect(), QApplication::palette(this).window());
    }
    const int nSide = static_cast<int>(std::lround(std::min(width(), height()) * devicePixelRatioF()));
    if (!m_pFilm || m_pFilm->GetCount() == 0 || nSide < 1) {
        return;
    }
    const int nPicture = std::clamp(m_nPicture, 0, std::max(0, GetLast()));
    QPixmap& picture = m_pictures[nPicture];
    if (picture.isNull()) {
        picture = m_pFilm->Draw(nPicture, nSide);
    }
    const double dSide = nSide / devicePixelRatioF();
    QPainter painter(this);
    const QSizeF room = m_dwStyle & ACS_CENTER ? QSizeF(width() - dSide, height() - dSide) : QSizeF(0, 0);
    painter.drawPixmap(QRectF(room.width() / 2, room.height() / 2, dSide, dSide), picture,
                       QRectF(picture.rect()));
}

} // namespace

CPeer* MakeAnimationPeer(const CWindowDescription& description, QWidget* pParent) {
    return new CControlPeer(description, new CAnimationWidget(description.dwStyle, pParent),
                            {CControlTraits::NO_COLOR});
}

} // namespace tessara

using tessara::CAnimationWidget;
using tessara::OnWidget;

BOOL CAnimateCtrl::Open(UINT nID) {
    if (!tessara::FindFileResource(tessara::EFileResource::animation, nID)) {
        AfxThrowResourceException();
    }
    return OnWidget<CAnimationWidget>(*this, [&](CAnimationWidget& animation) -> BOOL {
        animation.Open(nID);
        return TRUE;
    });
}

BOOL CAnimateCtrl::Play(UINT nFrom, UINT nTo, UINT nRepeat) {
    return OnWidget<CAnimationWidget>(*this, [&](CAnimationWidget& animation) -> BOOL {
        if (animation.IsOpen()) {
            animation.Play(static_cast<int>(nFrom), static_cast<int>(nTo), static_cast<int>(nRepeat));
        }
        return animation.IsOpen();
    });
}

BOOL CAnimateCtrl::Stop() {
    return OnWidget<CAnimationWidget>(*this, [](CAnimationWidget& animation) -> BOOL {
        animation.SetPlaying(false);
        return TRUE;
    });
}

BOOL CAnimateCtrl::Close() {
    return OnWidget<CAnimationWidget>(*this, [](CAnimationWidget& animation) -> BOOL {
        animation.Open(0);
        return TRUE;
    });
}
