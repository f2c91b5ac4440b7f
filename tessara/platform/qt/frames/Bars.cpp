#include <QLabel>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include "tessara/platform/qt/drawing/SvgPicture.h"
#include "tessara/platform/qt/frames/FrameWidget.h"
#include "tessara/platform/qt/frames/MenuItems.h"
#include "tessara/platform/ui/frames/FrameSeam.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/resources/StandardStrings.h"
#include "tessara/platform/ui/threads/Dispatch.h"

// Toolbars and status bars.

namespace tessara {

namespace {

constexpr int PANE_MARGIN = 4; ///< beside a pane's text, in Qt's units

template <class BAR>
BAR* BarOf(HWND hBar) {
    CPeer* const pPeer = CPeer::Find(hBar);
    return pPeer ? qobject_cast<BAR*>(&pPeer->GetWidget()) : nullptr;
}

/// What stands for a named icon where the desktop's theme has none.
struct CStandardIcon {
    const char* pszName;
    QStyle::StandardPixmap eIcon;
};
constexpr CStandardIcon STANDARD_ICONS[] = {
    {"document-new", QStyle::SP_FileIcon},          {"document-open", QStyle::SP_DialogOpenButton},
    {"document-save", QStyle::SP_DialogSaveButton}, {"help-about", QStyle::SP_MessageBoxInformation},
    {"view-refresh", QStyle::SP_BrowserReload},     {"process-stop", QStyle::SP_BrowserStop},
};

QIcon IconOf(const CToolButton& button, const QStyle& style) {
    if (!button.strSvg.empty()) {
        return SvgIcon(button.strSvg);
    }
    QIcon themed = QIcon::fromTheme(QLatin1String(button.pszIcon));
    if (!themed.isNull()) {
        return themed;
    }
    for (const CStandardIcon& standard : STANDARD_ICONS) {
        if (QLatin1String(standard.pszName) == QLatin1String(button.pszIcon)) {
            return style.standardIcon(standard.eIcon);
        }
    }
    return {};
}

QString ToolTipOf(const CToolButton& button) {
    const CString strTip = StandardStringLine(button.nCommand, 1);
    return ToQString(strTip.IsEmpty() ? std::string_view(button.pszText) : strTip.View());
}

QLabel* PaneOf(HWND hStatusBar, int nPane) {
    const auto* const pBar = BarOf<QStatusBar>(hStatusBar);
    return pBar ? pBar->findChild<QLabel*>(QStringLiteral("pane%1").arg(nPane)) : nullptr;
}

} // namespace

CPeer* MakeStatusBarPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pBar = new QStatusBar(pParent);
    auto* const pFrame = dynamic_cast<CFrameWidget*>(pParent ? pParent->window() : nullptr);
    if (pFrame) {
        pFrame->setStatusBar(pBar);
    }
    return new CPeer(description, pBar);
}

CPeer* MakeToolBarPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pBar = new QToolBar(pParent);
    auto* const pFrame = dynamic_cast<CFrameWidget*>(pParent ? pParent->window() : nullptr);
    if (pFrame) {
        pFrame->addToolBar(pBar);
    }
    pBar->setMovable(false);
    QObject::connect(pBar, &QToolBar::actionTriggered, pBar, [pBar](QAction* pAction) {
        const CPeer::CEventScope scope;
        if (const CPeer* const pPeer = CPeer::Of(pBar->window())) {
            Tell(pPeer->GetHandle(), WM_COMMAND, CommandOf(*pAction));
        }
    });
    return new CPeer(description, pBar);
}

void SetToolButtons(HWND hToolBar, std::span<const CToolButton> buttons) {
    auto* const pBar = BarOf<QToolBar>(hToolBar);
    if (!pBar) {
        return;
    }
    qDeleteAll(pBar->actions());
    for (const CToolButton& button : buttons) {
        if (button.nCommand == 0) {
            pBar->addSeparator();
            continue;
        }
        QAction* const pAction = AddItem(*pBar, nullptr, MF_STRING, button.nCommand, button.pszText);
        pAction->setIcon(IconOf(button, *pBar->style()));
        pAction->setToolTip(ToolTipOf(button));
    }
}

void UpdateToolButtons(HWND hToolBar) {
    const auto* const pBar = BarOf<QToolBar>(hToolBar);
    const CPeer* const pPeer = pBar ? CPeer::Of(pBar->window()) : nullptr;
    CWnd* const pFrame = pPeer ? CWnd::FromHandle(pPeer->GetHandle()) : nullptr;
    if (!pFrame) {
        return;
    }
    const auto actions = pBar->actions();
    for (QAction* const pAction : actions) {
        if (!pAction->isSeparator()) {
            CActionUI(*pAction).DoUpdate(*pFrame);
        }
    }
}

void SetPanes(HWND hStatusBar, std::span<const CString> texts) {
    auto* const pBar = BarOf<QStatusBar>(hStatusBar);
    if (!pBar) {
        return;
    }
    qDeleteAll(pBar->findChildren<QLabel*>(Qt::FindDirectChildrenOnly));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QString strText = ToQString(texts[i].View());
        auto* const pPane = new QLabel(strText, pBar);
        pPane->setObjectName(QStringLiteral("pane%1").arg(i));
        pPane->setTextFormat(Qt::PlainText);
        pPane->setContentsMargins(PANE_MARGIN, 0, PANE_MARGIN, 0);
        if (i == 0) {
            pPane->setMinimumWidth(1); // a long message does not widen the frame
            pBar->addWidget(pPane, 1);
        } else {
            pPane->setMinimumWidth(pPane->sizeHint().width());
            pBar->addPermanentWidget(pPane);
        }
    }
}

bool SetPaneText(HWND hStatusBar, int nPane, const CString& strText) {
    QLabel* const pPane = PaneOf(hStatusBar, nPane);
    if (pPane) {
        pPane->setText(ToQString(strText.View()));
    }
    return pPane != nullptr;
}

CString GetPaneText(HWND hStatusBar, int nPane) {
    const QLabel* const pPane = PaneOf(hStatusBar, nPane);
    return pPane ? ToCString(pPane->text()) : CString();
}

void EnablePane(HWND hStatusBar, int nPane, bool bEnable) {
    if (QLabel* const pPane = PaneOf(hStatusBar, nPane)) {
        pPane->setEnabled(bEnable);
    }
}

} // namespace tessara
