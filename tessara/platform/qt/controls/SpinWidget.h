#pragma once

#include <QPointer>
#include <QWidget>

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

/// Two arrows that change a number, and perhaps the text of the edit beside them.
class CSpinWidget : public QWidget {
public:
    CSpinWidget(DWORD dwStyle, QWidget* pParent);

    void SetPeer(CPeer* pPeer) { m_pPeer = pPeer; }
    void SetRange(int nLower, int nUpper);
    std::pair<int, int> GetRange() const { return {m_nLower, m_nUpper}; }
    /// The position, read from the buddy where that shows it.
    int GetPosition() const;
    int SetPosition(int nPosition);
    void SetBuddy(QWidget* pBuddy);
    QWidget* GetBuddy() const { return m_pBuddy; }
    /// Lies at the buddy's right end, where the style says so.
    void AlignToBuddy();

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    /// Moves by one, unless the parent forbids it.
    void Step(int nSign);
    void Move(int nFrom, int nDelta);
    int Hold(int nPosition) const;

    DWORD m_dwStyle;
    CPeer* m_pPeer = nullptr;
    QPointer<QWidget> m_pBuddy;
    int m_nLower = 0;
    int m_nUpper = 100;
    int m_nPosition = 0;
};

} // namespace tessara
