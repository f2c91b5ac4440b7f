#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <filesystem>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/controls/Edit.h"
#include "tests/cli/ViewerFixture.h"

using namespace tessara;

namespace {

class ViewerWindow : public CViewerFixture {
protected:
    using CViewerFixture::CViewerFixture;
    /// Answers the next file dialog; then the function is run on the dialog after it, if there is one.
    static void Choose(const std::string& strFile, const std::function<void(QWidget&)>& fnNext = {}) {
        WhenModal([strFile, fnNext](QWidget& modal) {
            auto* const pEdit = modal.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            EXPECT_TRUE(QTest::qWaitForWindowActive(&modal));
            pEdit->setFocus();
            pEdit->setText(QString::fromStdString(strFile));
            if (fnNext) {
                WhenModal(fnNext);
            }
            QTest::keyClick(pEdit, Qt::Key_Return);
        });
    }
    /// Once the window has come there.
    bool IsAt(CPoint place) {
        return QTest::qWaitFor([&] {
            CRect window;
            Frame().GetWindowRect(&window);
            return window.TopLeft() == place;
        });
    }
};

TEST_F(ViewerWindow, EveryItemHasAKeyThatItsMenuNames) {
    const auto items = Window().menuBar()->findChildren<QAction*>();
    int nItems = 0;
    for (const QAction* const pItem : items) {
        const UINT nCommand = pItem->data().toUInt();
        if (nCommand == 0 || nCommand == ID_FILE_MRU_FILE1) {
            continue;
        }
        ++nItems;
        const auto& keys = FindAcceleratorResource(IDR_VIEWER)->accelerators;
        const auto it = std::find_if(keys.begin(), keys.end(), [nCommand](const CAccelerator& key) {
            return key.nCommand == nCommand;
        });
        ASSERT_NE(it, keys.end()) << pItem->text().toStdString();
        EXPECT_EQ(pItem->text().section('\t', 1).toStdString(), KeyText(*it));
    }
    EXPECT_GT(nItems, 30);
}

TEST_F(ViewerWindow, SwitchesAndReadOutsFollowTheirKeysAndAreGreyWhereThePlotHasNone) {
    const struct {
        Qt::Key eKey;
        EPlotSwitch eSwitch;
        UINT nCommand;
    } switches[] = {{Qt::Key_M, EPlotSwitch::multiphasePoints, ID_SWITCH_MULTIPHASE},
                    {Qt::Key_L, EPlotSwitch::legend, ID_SWITCH_LEGEND},
                    {Qt::Key_C, EPlotSwitch::caption, ID_SWITCH_CAPTION},
                    {Qt::Key_B, EPlotSwitch::monochrome, ID_SWITCH_MONOCHROME}};
    for (const auto& tried : switches) {
        Key(tried.eKey);
        EXPECT_TRUE(Plot().IsOn(tried.eSwitch));
        EXPECT_TRUE(IsEnabled(tried.nCommand));
        EXPECT_TRUE(Item(tried.nCommand).isChecked());
        Plot().m_lacking.insert(tried.eSwitch);
        Key(tried.eKey);
        EXPECT_TRUE(Plot().IsOn(tried.eSwitch)) << "a greyed switch was toggled";
        EXPECT_FALSE(IsEnabled(tried.nCommand));
    }
    Key(Qt::Key_V);
    EXPECT_TRUE(Plot().IsReadOutVisible(EReadOut::getValue));
    Key(Qt::Key_F2);
    EXPECT_FALSE(Plot().IsReadOutVisible(EReadOut::getValue));
    Key(Qt::Key_F3);
    EXPECT_FALSE(Plot().IsReadOutVisible(EReadOut::extendedGetValue));
    EXPECT_FALSE(IsEnabled(ID_READ_EXTENDED));
    Key(Qt::Key_F4);
    EXPECT_TRUE(IsEnabled(ID_READ_SECTION) && Item(ID_READ_SECTION).isChecked());
}

TEST_F(ViewerWindow, AReadOutKeepsTheKeysThatItsControlsNeed) {
    CWnd readOut;
    readOut.Create(nullptr, "", WS_POPUP | WS_CAPTION | WS_VISIBLE, CRect(0, 0, 200, 100), &View(), 0);
    CEdit edit;
    edit.Create(WS_CHILD | WS_VISIBLE, CRect(5, 5, 100, 30), &readOut, 1);
    edit.SetFocus();
    QWidget& line = CPeer::Find(edit.m_hWnd)->GetWidget();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&line));
    QTest::keyClick(&line, Qt::Key_B);
    EXPECT_FALSE(Plot().IsOn(EPlotSwitch::monochrome));
    QTest::keyClick(&line, Qt::Key_F2);
    EXPECT_TRUE(Plot().IsReadOutVisible(EReadOut::getValue));
    QTest::keyClick(&line, Qt::Key_Left);
    EXPECT_TRUE(Plot().m_walks.empty());
    QTest::keyClick(&line, Qt::Key_F6);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    EXPECT_EQ(CWnd::GetFocus(), &View());
    QTest::keyClick(&CPeer::Find(readOut.m_hWnd)->GetWidget(), Qt::Key_Left); // nothing there needs it
    EXPECT_EQ(Plot().m_walks.size(), 1U);
}

TEST_F(ViewerWindow, BarsAndFullScreenFollowTheirKeys) {
    CWnd& toolBar = *Frame().GetDlgItem(AFX_IDW_TOOLBAR);
    CWnd& statusBar = *Frame().GetDlgItem(AFX_IDW_STATUS_BAR);
    Key(Qt::Key_T);
    Key(Qt::Key_S);
    EXPECT_FALSE(toolBar.IsWindowVisible() || statusBar.IsWindowVisible());
    Key(Qt::Key_T);
    Key(Qt::Key_S);
    EXPECT_TRUE(toolBar.IsWindowVisible() && statusBar.IsWindowVisible());
    Key(Qt::Key_F11);
    EXPECT_TRUE(Frame().IsFullScreen());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Frame().IsFullScreen());
    Key(Qt::Key_F11);
    Key(Qt::Key_F11);
    EXPECT_FALSE(Frame().IsFullScreen());
}

TEST_F(ViewerWindow, TheStatusBarDescribesThePointUnderThePointerInsideThePlotOnly) {
    const CRect frame = Plot().GetPixelMap().rect;
    QTest::mouseMove(&Paper(), QPoint(frame.left, frame.bottom));
    EXPECT_EQ(StatusText(), Plot().DescribePoint(0, 0));
    QTest::mouseMove(&Paper(), QPoint(frame.left - 3, frame.bottom));
    EXPECT_EQ(StatusText(), "Ready");
}

TEST_F(ViewerWindow, TheMouseGoesToThePlotAndQuickClicksAreSingleOnes) {
    QTest::mouseClick(&Paper(), Qt::LeftButton, {}, QPoint(70, 80));
    QTest::mouseDClick(&Paper(), Qt::LeftButton, {}, QPoint(70, 80));
    EXPECT_GE(Plot().m_clicks.size(), 2U);
    EXPECT_EQ(Plot().m_clicks.back(), CPoint(70, 80));
}

TEST_F(ViewerWindow, CopyOffersFourFormsAndCopyValuesTextAlone) {
    Key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* pData = QApplication::clipboard()->mimeData();
    EXPECT_TRUE(pData->data("image/png").startsWith("\x89PNG"));
    EXPECT_TRUE(pData->data("image/svg+xml").contains("<svg"));
    EXPECT_EQ(pData->data("image/x-wmf"), "metafile");
    EXPECT_EQ(pData->text(), "x\ty\n1\t2\n");
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    pData = QApplication::clipboard()->mimeData();
    EXPECT_EQ(pData->text(), "x\ty\n1\t2\n");
    EXPECT_FALSE(pData->hasFormat("image/png") || pData->hasFormat("image/svg+xml"));
}

TEST_F(ViewerWindow, ExportWritesTheFormatOfTheName) {
    const std::pair<const char*, const char*> formats[] = {
        {"a.png", "\x89PNG"}, {"a.svg", "<?xml"}, {"a.pdf", "%PDF"}, {"a.wmf", "metafile"}};
    for (const auto& [pszName, pszStart] : formats) {
        Choose(pszName);
        Key(Qt::Key_E, Qt::ControlModifier);
        EXPECT_EQ(m_folder.Read(pszName).rfind(pszStart, 0), 0U) << pszName;
    }
}

TEST_F(ViewerWindow, AnExportThatFailsIsOneMessage) {
    QString strText;
    Choose("a.txt", [&](QWidget& modal) {
        strText = dynamic_cast<QMessageBox&>(modal).text();
        modal.close();
    });
    Key(Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(strText.endsWith("a.txt: the name must end with .png, .svg, .pdf or .wmf"))
        << strText.toStdString();
}

TEST_F(ViewerWindow, OpensAnotherFileInTheSameWindowAndRemembersBoth) {
    m_folder.Write("other.txt", "3 4");
    Wheel({200, 200}, 120);
    std::filesystem::remove(Path()); // the dialog selects it when it has read the folder, which may be later
    Choose("other.txt");
    Key(Qt::Key_O, Qt::ControlModifier);
    m_folder.Write("plot.txt", "10 100");
    EXPECT_EQ(Title(), "other.txt - Tessara");
    View().UpdateWindow();
    EXPECT_EQ(Plot().GetPixelMap().dXUpper, 3);
    EXPECT_FALSE(IsEnabled(ID_ZOOM_BACK));
    ASSERT_EQ(m_pApp->GetRecentFiles().size(), 2U);
    EXPECT_EQ(m_pApp->GetRecentFiles()[1], Path().c_str());
    Frame().SendMessage(WM_COMMAND, ID_FILE_MRU_FILE1 + 1);
    EXPECT_EQ(Title(), "plot.txt - Tessara");
}

TEST_F(ViewerWindow, ABadFileShowsTheBannerAndLeavesThePlot) {
    const CViewerPlot* const pPlot = &Plot();
    CRect before;
    View().GetWindowRect(&before);
    m_pApp->OpenDocumentFile(m_folder.Write("bad", "no numbers").c_str());
    EXPECT_TRUE(IsBannerVisible());
    EXPECT_EQ(BannerText(), m_folder.Path("bad") + ": cannot be read");
    EXPECT_EQ(&Plot(), pPlot);
    EXPECT_EQ(Title(), "plot.txt - Tessara");
    CRect beneath;
    CRect banner;
    View().GetWindowRect(&beneath);
    Frame().GetDlgItem(ID_BANNER_CLOSE)->GetWindowRect(&banner);
    EXPECT_EQ(beneath.top, banner.bottom);
    EXPECT_EQ(beneath.bottom, before.bottom);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(IsBannerVisible());
    View().GetWindowRect(&beneath);
    EXPECT_EQ(beneath, before);
}

TEST_F(ViewerWindow, TheBannersButtonClosesIt) {
    m_pApp->OpenDocumentFile(m_folder.Path("none").c_str());
    ASSERT_TRUE(IsBannerVisible());
    QTest::mouseClick(Window().centralWidget()->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_FALSE(IsBannerVisible());
}

TEST_F(ViewerWindow, AChangedFileIsReadAgainAndWhatTheUserMadeOfItStays) {
    Plot().SetScales({AXISSCALE{1, 9, 2, 0}, std::nullopt});
    Wheel({300, 200}, 120);
    Key(Qt::Key_B);
    Key(Qt::Key_F2);
    const CZoomState zoom = Plot().GetZoom();
    m_folder.Write("plot.txt", "20 200");
    ASSERT_TRUE(QTest::qWaitFor([&] { return CViewerPlot::s_nPlots == 2; }));
    EXPECT_EQ(Plot().GetZoom(), zoom);
    EXPECT_TRUE(Plot().IsOn(EPlotSwitch::monochrome));
    EXPECT_TRUE(Plot().IsReadOutVisible(EReadOut::getValue));
    ASSERT_TRUE(Plot().GetScales().x);
    EXPECT_EQ(Plot().GetScales().x->dTo, 9);
    Key(Qt::Key_0, Qt::ControlModifier);
    View().UpdateWindow();
    EXPECT_EQ(Plot().GetPixelMap().dXUpper, 20);
    QTest::mouseMove(&Paper(), QPoint(10, 10));
    EXPECT_EQ(CViewerPlot::s_nPlots, 1) << "the earlier plot is kept";
    EXPECT_EQ(CViewerPlot::s_nAttached, 1);
}

TEST_F(ViewerWindow, AZoomThatLiesBesideTheChangedDataEnds) {
    Plot().SetZoom(CZoomWindow{9, 8, 90, 80});
    m_folder.Write("plot.txt", "5 50");
    Key(Qt::Key_F5);
    EXPECT_EQ(Plot().GetZoom(), std::nullopt);
}

TEST_F(ViewerWindow, AFileThatBecomesBadAndGoodAgainShowsAndHidesTheBanner) {
    m_folder.Write("plot.txt", "half");
    ASSERT_TRUE(QTest::qWaitFor([&] { return IsBannerVisible(); }));
    EXPECT_EQ(Plot().GetPixelMap().dXUpper, 10);
    m_folder.Write("plot.txt", "30 300");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !IsBannerVisible(); }));
    View().UpdateWindow();
    EXPECT_EQ(Plot().GetPixelMap().dXUpper, 30);
}

class ViewerWithoutFile : public ViewerWindow {
protected:
    ViewerWithoutFile() : ViewerWindow("") {}
};

TEST_F(ViewerWithoutFile, OpensEmptyWithTheBannerAndTakesTheFileWhenItComes) {
    EXPECT_TRUE(IsBannerVisible());
    EXPECT_EQ(View().GetPlot(), nullptr);
    for (const UINT nCommand : {ID_ZOOM_AREA, ID_ZOOM_IN, ID_VIEW_SCALES, ID_SWITCH_LEGEND, ID_READ_VALUE,
                                ID_EDIT_COPY, ID_EDIT_COPY_VALUES, ID_FILE_EXPORT, ID_ZOOM_WHOLE}) {
        EXPECT_FALSE(IsEnabled(nCommand)) << nCommand;
    }
    EXPECT_FALSE(IsEnabled(ID_FILE_PRINT));
    EXPECT_TRUE(IsEnabled(ID_FILE_RELOAD));
    Wheel({100, 100}, 120);
    QTest::mouseClick(&Paper(), Qt::LeftButton);
    m_folder.Write("plot.txt", "10 100");
    ASSERT_TRUE(QTest::qWaitFor([&] { return View().GetPlot() != nullptr; }));
    EXPECT_FALSE(IsBannerVisible());
}

TEST_F(ViewerWindow, RemembersItsPlaceAndBars) {
    Frame().MoveWindow(60, 50, 500, 400);
    Key(Qt::Key_T);
    ASSERT_TRUE(IsAt({60, 50}));
    Restart();
    CRect place;
    Frame().GetWindowRect(&place);
    EXPECT_EQ(place.TopLeft(), CPoint(60, 50));
    EXPECT_EQ(Window().size(), QSize(500, 400));
    EXPECT_FALSE(Frame().GetDlgItem(AFX_IDW_TOOLBAR)->IsWindowVisible());
    EXPECT_TRUE(Frame().GetDlgItem(AFX_IDW_STATUS_BAR)->IsWindowVisible());
    Window().showMaximized();
    Restart();
    EXPECT_TRUE(Frame().IsZoomed());
    EXPECT_EQ(Window().normalGeometry().size(), QSize(500, 400));
}

TEST_F(ViewerWindow, RemembersWhereItWasBeforeAFullScreenAndItsBarsToo) {
    for (const bool bByDesktop : {true, false}) {
        Frame().MoveWindow(70, 60, 510, 410);
        ASSERT_TRUE(IsAt({70, 60}));
        if (bByDesktop) {
            Window().showFullScreen();
        } else {
            Key(Qt::Key_F11);
        }
        ASSERT_TRUE(QTest::qWaitFor([&] { return Frame().IsFullScreen(); }));
        Restart();
        EXPECT_TRUE(IsAt({70, 60}));
        EXPECT_EQ(Window().size(), QSize(510, 410));
        EXPECT_TRUE(Frame().GetDlgItem(AFX_IDW_TOOLBAR)->IsWindowVisible());
        EXPECT_TRUE(Frame().GetDlgItem(AFX_IDW_STATUS_BAR)->IsWindowVisible());
        Frame().MoveWindow(5, 6, 400, 300);
    }
}

TEST_F(ViewerWindow, IsNeverOffTheScreen) {
    Frame().MoveWindow(-3000, 9000, 500, 400);
    ASSERT_TRUE(IsAt({-3000, 9000}));
    Restart();
    const QRect screen = Window().screen()->geometry();
    EXPECT_TRUE(screen.contains(Window().frameGeometry().topLeft()));
    EXPECT_GE(screen.intersected(Window().geometry()).height(), 390);
}

} // namespace
