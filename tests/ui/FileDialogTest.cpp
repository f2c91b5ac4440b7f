#include "tessara/platform/ui/dialogs/FileDialog.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <fstream>

#include "tests/ui/Frames.h"

namespace {

using FileDialogTest = FrameFixture;

constexpr const char* FILTER = "PNG picture (*.png)|*.png|SVG drawing|*.svg;*.svgz|All files (*.*)|*.*||";
constexpr DWORD FLAGS = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;

void Type(QWidget& dialog, const CString& strName) {
    auto* const pName = dialog.findChild<QLineEdit*>("fileNameEdit");
    dialog.activateWindow(); // what a desktop does itself after a question
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    pName->setFocus();
    pName->setText(QString(static_cast<const char*>(strName)));
    QTest::keyClick(pName, Qt::Key_Return);
}

/// A filter that the user chooses, none below 0, the default extension, the name that is typed, the file that
/// comes of it.
struct CExtensionCase {
    int nFilter;
    const char* pszExtension;
    const char* pszTyped;
    const char* pszExpected;
};

TEST_F(FileDialogTest, ANameGetsTheExtensionThatIsMissing) {
    const CExtensionCase cases[] = {{-1, nullptr, "a", "a.png"}, {-1, "svg", "a", "a.svg"},
                                    {1, "png", "a", "a.svg"},    {2, "txt", "a", "a.txt"},
                                    {2, nullptr, "a", "a"},      {1, "png", "a.dat", "a.dat"},
                                    {-1, ".svgz", "a", "a.svgz"}};
    for (const CExtensionCase& name : cases) {
        CFileDialog dialog(FALSE, name.pszExtension, PathOf("proposed"), FLAGS, FILTER, &Frame());
        WhenModal([&](QWidget& modal) {
            auto* const pFilters = modal.findChild<QComboBox*>("fileTypeCombo");
            EXPECT_EQ(pFilters->itemText(1), "SVG drawing (*.svg *.svgz)");
            if (name.nFilter >= 0) {
                pFilters->setCurrentIndex(0);
            }
            for (int i = 0; i < name.nFilter; ++i) {
                QTest::keyClick(pFilters, Qt::Key_Down);
            }
            Type(modal, name.pszTyped);
        });
        EXPECT_EQ(dialog.DoModal(), IDOK);
        EXPECT_EQ(dialog.GetPathName(), PathOf(name.pszExpected)) << name.pszTyped;
        EXPECT_EQ(dialog.GetFileName(), name.pszExpected);
    }
}

TEST_F(FileDialogTest, AsksBeforeTheCompletedNameIsReplacedAndGoesOnAfterNo) {
    std::ofstream(PathOf("a.png")) << "old";
    CFileDialog dialog(FALSE, "png", PathOf("proposed"), FLAGS, FILTER, &Frame());
    QString strQuestion;
    WhenModal([&](QWidget& modal) {
        Answer(QMessageBox::No, &strQuestion);
        Type(modal, "a");
        EXPECT_EQ(strQuestion, "a.png already exists. Replace it?");
        EXPECT_TRUE(modal.isVisible());
        Type(modal, "b");
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), PathOf("b.png"));
    WhenModal([&](QWidget& modal) {
        Answer(QMessageBox::Yes);
        Type(modal, "a");
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), PathOf("a.png"));
    CFileDialog silent(FALSE, "png", PathOf("proposed"), OFN_HIDEREADONLY, FILTER);
    AnswerPath("a");
    EXPECT_EQ(silent.DoModal(), IDOK);
    EXPECT_EQ(silent.GetFileExt(), "png");
}

TEST_F(FileDialogTest, CancellingAfterNoLeavesTheProposal) {
    std::ofstream(PathOf("a.png")) << "old";
    CFileDialog dialog(FALSE, "png", "proposed", FLAGS, FILTER, &Frame());
    WhenModal([&](QWidget& modal) {
        Answer(QMessageBox::No);
        Type(modal, PathOf("a.png"));
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetPathName(), "proposed");
    EXPECT_EQ(dialog.GetFileExt(), "");
}

TEST_F(FileDialogTest, OpensAFileThatExists) {
    std::ofstream(PathOf("ϑ 1.svg")) << "<svg/>";
    CFileDialog dialog(TRUE, nullptr, nullptr, FLAGS, FILTER, &Frame());
    AnswerPath(PathOf("ϑ 1.svg"));
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), PathOf("ϑ 1.svg"));
    EXPECT_EQ(dialog.GetFileName(), "ϑ 1.svg");
    EXPECT_EQ(dialog.GetFileExt(), "svg");
}

} // namespace
