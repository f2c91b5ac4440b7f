#include "tessara/platform/ui/controls/Edit.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QValidator>
#include <algorithm>

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/Edges.h"
#include "tessara/platform/qt/controls/PeerFactory.h"

namespace tessara {

namespace {

/// What both kinds of edit offer, and the limit of their text in bytes.
class CEditWidget {
public:
    virtual ~CEditWidget() = default;
    virtual QString GetText() const = 0;
    virtual int GetCursor() const = 0;
    /// The selection's ends, in characters of Qt.
    virtual std::pair<int, int> GetSelection() const = 0;
    virtual void Select(int nStart, int nEnd) = 0;
    virtual void SetReadOnly(bool bReadOnly) = 0;

    void SetLimit(int nBytes) { m_nLimit = nBytes; }

protected:
    virtual void EraseBefore(int nCursor, int nCount) = 0;

    /// Takes back what was typed last, as far as the text has grown beyond the limit by it.
    void HoldLimit() {
        const QString strText = GetText();
        const auto nBytes = strText.toUtf8().size();
        const auto nAllowed = std::max<qsizetype>(m_nLimit, m_nBytes);
        m_nBytes = nBytes;
        if (m_nLimit <= 0 || nBytes <= nAllowed) {
            return;
        }
        const int nCursor = GetCursor();
        int nErase = 0;
        QString strRest = strText;
        while (nErase < nCursor && strRest.toUtf8().size() > nAllowed) {
            nErase += nCursor - nErase > 1 && strText[nCursor - nErase - 1].isLowSurrogate() ? 2 : 1;
            strRest = strText.left(nCursor - nErase) + strText.mid(nCursor);
        }
        m_nBytes = strRest.toUtf8().size();
        EraseBefore(nCursor, nErase);
    }
    void Forget() { m_nBytes = GetText().toUtf8().size(); }

private:
    qsizetype m_nLimit = 0;
    qsizetype m_nBytes = 0; ///< of the text before the change
};

/// Lets the user add digits only. What else the program has put into the text may stay.
class CDigitsOnly : public QValidator {
public:
    explicit CDigitsOnly(QLineEdit& line) : QValidator(&line), m_nOthers(CountOthers(line.text())) {
        connect(&line, &QLineEdit::textChanged, this,
                [this](const QString& strText) { m_nOthers = CountOthers(strText); });
    }

    State validate(QString& strInput, int&) const override {
        return CountOthers(strInput) <= m_nOthers ? Acceptable : Invalid;
    }

    static qsizetype CountOthers(const QString& strText) {
        return std::ranges::count_if(strText, [](QChar ch) { return ch < u'0' || ch > u'9'; });
    }

private:
    qsizetype m_nOthers; ///< in the text before the change
};

class CLineWidget : public QLineEdit, public CEditWidget {
public:
    explicit CLineWidget(QWidget* pParent) : QLineEdit(pParent) {
        connect(this, &QLineEdit::textEdited, this, [this] { HoldLimit(); });
        connect(this, &QLineEdit::textChanged, this, [this] { Forget(); });
    }
    QString GetText() const override { return text(); }
    int GetCursor() const override { return cursorPosition(); }
    std::pair<int, int> GetSelection() const override {
        return hasSelectedText() ? std::pair(selectionStart(), selectionEnd())
                                 : std::pair(cursorPosition(), cursorPosition());
    }
    void Select(int nStart, int nEnd) override { setSelection(nStart, nEnd - nStart); }
    void SetReadOnly(bool bReadOnly) override { setReadOnly(bReadOnly); }

protected:
    void EraseBefore(int nCursor, int nCount) override {
        setText(text().remove(nCursor - nCount, nCount));
        setCursorPosition(nCursor - nCount);
    }
};

class CTextWidget : public QPlainTextEdit, public CEditWidget {
public:
    CTextWidget(QWidget* pParent, DWORD dwStyle) : QPlainTextEdit(pParent), m_dwStyle(dwStyle) {
        setTabChangesFocus(true);
        connect(this, &QPlainTextEdit::textChanged, this, [this] { HoldLimit(); });
        connect(document(), &QTextDocument::contentsChanged, this, [this] {
            if (signalsBlocked()) {
                Forget(); // the program's doing, which is not limited
            }
        });
    }
    QString GetText() const override { return toPlainText(); }
    int GetCursor() const override { return textCursor().position(); }
    std::pair<int, int> GetSelection() const override {
        return {textCursor().selectionStart(), textCursor().selectionEnd()};
    }
    void Select(int nStart, int nEnd) override {
        QTextCursor cursor = textCursor();
        cursor.setPosition(nStart);
        cursor.setPosition(nEnd, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    void SetReadOnly(bool bReadOnly) override { setReadOnly(bReadOnly); }

protected:
    void EraseBefore(int, int nCount) override {
        QTextCursor cursor = textCursor();
        cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor, nCount);
        cursor.removeSelectedText();
    }
    void keyPressEvent(QKeyEvent* pEvent) override {
        const bool bReturn = pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter;
        if (bReturn && !(m_dwStyle & ES_WANTRETURN) && !(pEvent->modifiers() & Qt::ControlModifier)) {
            pEvent->ignore(); // the default button's
        } else if (pEvent->text().isEmpty() || !pEvent->text()[0].isPrint() || Takes(pEvent->text())) {
            QPlainTextEdit::keyPressEvent(pEvent);
        }
    }
    void insertFromMimeData(const QMimeData* pData) override {
        if (Takes(pData->text())) {
            QPlainTextEdit::insertFromMimeData(pData);
        }
    }

private:
    bool Takes(const QString& strTyped) const {
        return !(m_dwStyle & ES_NUMBER) || CDigitsOnly::CountOthers(strTyped) == 0;
    }

    DWORD m_dwStyle;
};

constexpr CControlTraits TRAITS{CTLCOLOR_EDIT, EN_SETFOCUS, EN_KILLFOCUS};

Qt::Alignment ToAlignment(DWORD dwStyle) {
    if (dwStyle & ES_CENTER) {
        return Qt::AlignHCenter;
    }
    return dwStyle & ES_RIGHT ? Qt::AlignRight : Qt::AlignLeft;
}

CPeer* MakeLinePeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pLine = new CLineWidget(pParent);
    pLine->setAlignment(ToAlignment(description.dwStyle) | Qt::AlignVCenter);
    pLine->setReadOnly((description.dwStyle & ES_READONLY) != 0);
    pLine->setFrame(HasEdge(description));
    pLine->setText(ToQString(description.strText.View())); // before anybody listens
    if (description.dwStyle & ES_NUMBER) {
        pLine->setValidator(new CDigitsOnly(*pLine));
    }
    auto* const pPeer = new CControlPeer(description, pLine, TRAITS);
    OnSignal(*pPeer, pLine, &QLineEdit::textChanged, [pPeer](const QString&) { pPeer->Notify(EN_CHANGE); });
    return pPeer;
}

CPeer* MakeTextPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pText = new CTextWidget(pParent, description.dwStyle);
    pText->setReadOnly((description.dwStyle & ES_READONLY) != 0);
    QTextOption option = pText->document()->defaultTextOption();
    option.setAlignment(ToAlignment(description.dwStyle));
    pText->document()->setDefaultTextOption(option);
    SetEdge(*pText, description);
    const auto fnBar = [&](WindowStyle eStyle) {
        return description.dwStyle & eStyle ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    };
    pText->setVerticalScrollBarPolicy(fnBar(WS_VSCROLL));
    pText->setHorizontalScrollBarPolicy(fnBar(WS_HSCROLL));
    pText->setLineWrapMode(description.dwStyle & ES_AUTOHSCROLL ? QPlainTextEdit::NoWrap
                                                                : QPlainTextEdit::WidgetWidth);
    auto* const pPeer = new CControlPeer(description, pText, TRAITS, pText->viewport());
    OnSignal(*pPeer, pText, &QPlainTextEdit::textChanged, [pPeer] { pPeer->Notify(EN_CHANGE); });
    return pPeer;
}

/// Between positions in bytes and in characters of Qt.
int ToCharacters(const QString& strText, int nBytes) {
    return static_cast<int>(QString::fromUtf8(strText.toUtf8().left(nBytes)).size());
}
int ToBytes(const QString& strText, int nCharacters) {
    return static_cast<int>(strText.left(nCharacters).toUtf8().size());
}

} // namespace

CPeer* MakeEditPeer(const CWindowDescription& description, QWidget* pParent) {
    return description.dwStyle & ES_MULTILINE ? MakeTextPeer(description, pParent)
                                              : MakeLinePeer(description, pParent);
}

} // namespace tessara

using tessara::CEditWidget;
using tessara::OnWidget;

void CEdit::LimitText(int nBytes) {
    OnWidget<CEditWidget>(*this, [&](CEditWidget& edit) { edit.SetLimit(nBytes); });
}

BOOL CEdit::SetReadOnly(BOOL bReadOnly) {
    return OnWidget<CEditWidget>(*this, [&](CEditWidget& edit) -> BOOL {
        edit.SetReadOnly(bReadOnly != 0);
        return TRUE;
    });
}

void CEdit::SetSel(int nStart, int nEnd, BOOL) {
    OnWidget<CEditWidget>(*this, [&](CEditWidget& edit) {
        const QString strText = edit.GetText();
        const int nCursor = edit.GetCursor();
        const int nFirst = nStart < 0 ? nCursor : tessara::ToCharacters(strText, nStart);
        const int nLast = nStart < 0 ? nCursor
                          : nEnd < 0 ? static_cast<int>(strText.size())
                                     : tessara::ToCharacters(strText, nEnd);
        edit.Select(nFirst, nLast);
    });
}

void CEdit::GetSel(int& nStart, int& nEnd) const {
    const auto selection = OnWidget<CEditWidget>(*this, [](CEditWidget& edit) {
        const auto [nFirst, nLast] = edit.GetSelection();
        return std::pair(tessara::ToBytes(edit.GetText(), nFirst), tessara::ToBytes(edit.GetText(), nLast));
    });
    nStart = selection.first;
    nEnd = selection.second;
}
