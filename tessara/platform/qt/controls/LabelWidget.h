#pragma once

#include <QLabel>
#include <QPointer>

namespace tessara {

/// A label that remembers its text as the program gave it. An '&' is a mnemonic for the buddy; without one it
/// is left out. One for a picture never shows its text.
class CLabelWidget : public QLabel {
public:
    CLabelWidget(QWidget* pParent, bool bPrefix, bool bPicture)
        : QLabel(pParent), m_bPrefix(bPrefix), m_bPicture(bPicture) {
        setTextFormat(Qt::PlainText);
    }

    const QString& GetWindowText() const { return m_strText; }
    void SetWindowText(const QString& strText);
    /// Whether the text has a mnemonic.
    bool HasMnemonic() const;
    /// Makes this the label of another widget, or of none.
    void SetLabelled(QWidget* pWidget);

private:
    void ShowText();

    QString m_strText;
    QPointer<QWidget> m_pLabelled;
    bool m_bPrefix;
    bool m_bPicture; ///< shows a picture or nothing
};

} // namespace tessara
