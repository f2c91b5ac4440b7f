#pragma once

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QMenu>
#include <QTest>
#include <functional>

#include "cli/view/ViewerApp.h"
#include "cli/view/ViewerFrame.h"
#include "cli/view/ViewerResources.h"
#include "tests/cli/Folder.h"
#include "tests/cli/ViewerPlot.h"

using OPENPLOT = std::function<std::unique_ptr<tessara::CShownPlot>(const tessara::CViewSource&)>;

/// A viewer with a window on the file "plot.txt" of a folder that also has the settings: 10 wide, 100 high.
class CViewerFixture : public ::testing::Test {
protected:
    /// An empty text makes no file.
    explicit CViewerFixture(const std::string& strFile = "10 100", OPENPLOT fnOpen = &CViewerPlot::Open);
    ~CViewerFixture() override;

    tessara::CViewerFrame& Frame() { return *m_pApp->GetFrames().front(); }
    tessara::CViewerView& View() { return Frame().GetPlotView(); }
    CViewerPlot& Plot() { return dynamic_cast<CViewerPlot&>(*View().GetPlot()); }
    QMainWindow& Window() { return WindowOf(Frame()); }
    QWidget& Paper();
    static QMainWindow& WindowOf(const tessara::CViewerFrame& frame);

    /// Ends the program and begins a new one.
    void Restart();
    void Key(int nKey, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Wheel(CPoint at, int nDelta);
    void Idle() { m_pApp->OnIdle(0); }
    QAction& Item(UINT nCommand);
    /// Whether the item is enabled when its menu opens.
    bool IsEnabled(UINT nCommand);
    std::string Title() const;
    std::string StatusText();
    std::string BannerText();
    bool IsBannerVisible();
    std::string Path() const { return m_folder.Path("plot.txt"); }

    CFolder m_folder;
    std::unique_ptr<tessara::CViewerApp> m_pApp;

private:
    void Start();
    void End();

    const OPENPLOT m_fnOpen;
};

/// Runs a function on the next modal dialog, as soon as that is there.
void WhenModal(const std::function<void(QWidget&)>& fnAct);
/// The child of that object name and class.
template <class WIDGET>
WIDGET& ChildOf(QWidget& parent, unsigned nID) {
    auto* const pChild = parent.findChild<WIDGET*>(QString::number(nID));
    if (!pChild) {
        throw std::runtime_error("no child " + std::to_string(nID));
    }
    return *pChild;
}
