#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include <gmock/gmock.h>

#include "tessara/document/RegistrySettings.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/settings/RegKey.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tests/ui/Frames.h"

namespace {

using testing::AllOf;
using testing::Each;
using testing::Ge;
using testing::SizeIs;

using DocumentTest = FrameFixture;

std::string ReadText(const CString& strPath) {
    std::ifstream file(strPath);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteText(const CString& strPath, const char* pszText) {
    std::ofstream(strPath) << pszText;
}

TEST_F(DocumentTest, TitlesFollowTheDocumentAndItsChanges) {
    EXPECT_EQ(Document().GetTitle(), "Untitled");
    Document().SetModifiedFlag();
    EXPECT_EQ(Title(), "Untitled* - Marks");
    Document().SetTitle("PS-CH (3)");
    EXPECT_EQ(Title(), "PS-CH (3)* - Marks");
    Document().SetModifiedFlag(FALSE);
    EXPECT_EQ(Title(), "PS-CH (3) - Marks");
}

TEST_F(DocumentTest, IsSavedUnderANameAndOpenedAgain) {
    Document().m_strText = "first";
    Document().SetModifiedFlag();
    AnswerPath(PathOf("one")); // the extension is the template's
    Choose(0, ID_FILE_SAVE_AS);
    EXPECT_EQ(ReadText(PathOf("one.txt")), "first");
    EXPECT_EQ(Document().GetPathName(), PathOf("one.txt"));
    EXPECT_EQ(Title(), "one.txt - Marks");
    Document().m_strText = "second";
    Document().SetModifiedFlag();
    QTest::keyClick(&WidgetOf(View()), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ReadText(PathOf("one.txt")), "second");
    Choose(0, ID_FILE_NEW);
    EXPECT_EQ(Document().m_strText, "");
    EXPECT_EQ(Title(), "Untitled - Marks");
    AnswerPath(PathOf("one.txt"));
    Choose(0, ID_FILE_OPEN);
    EXPECT_EQ(Document().m_strText, "second");
    EXPECT_EQ(Title(), "one.txt - Marks");
    EXPECT_FALSE(Document().IsModified());
}

TEST_F(DocumentTest, ViewsHearOfContentAndChanges) {
    EXPECT_EQ(View().m_nUpdates, 1); // the first
    EXPECT_EQ(View().m_activations.front(), TRUE);
    Document().UpdateAllViews(nullptr);
    EXPECT_EQ(View().m_nUpdates, 2);
    Document().UpdateAllViews(&View());
    EXPECT_EQ(View().m_nUpdates, 2);
    POSITION position = Document().GetFirstViewPosition();
    EXPECT_EQ(Document().GetNextView(position), &View());
    EXPECT_EQ(position, nullptr);
}

TEST_F(DocumentTest, RecentFilesAreInTheMenuAndOutliveTheProgram) {
    EXPECT_FALSE(ItemOf(OpenMenu(0), ID_FILE_MRU_FILE1)->isEnabled());
    for (const char* const pszName : {"a.txt", "b & c.txt", "d.txt", "e.txt", "f.txt", "d.txt"}) {
        WriteText(PathOf(pszName), pszName);
        ASSERT_NE(m_app.OpenDocumentFile(PathOf(pszName)), nullptr);
    }
    const std::vector<CString> expected = {PathOf("d.txt"), PathOf("f.txt"), PathOf("e.txt"),
                                           PathOf("b & c.txt")};
    EXPECT_EQ(m_app.GetRecentFiles(), expected);
    QMenu& menu = OpenMenu(0);
    EXPECT_TRUE(ItemOf(menu, ID_FILE_MRU_FILE1)->isEnabled());
    ASSERT_NE(ItemOf(menu, ID_FILE_MRU_FILE4), nullptr);
    EXPECT_TRUE(ItemOf(menu, ID_FILE_MRU_FILE4)->text().endsWith("b && c.txt"));
    EXPECT_EQ(ItemOf(menu, ID_FILE_MRU_FILE4 + 1), nullptr);
    menu.close();
    Choose(0, ID_FILE_MRU_FILE4);
    EXPECT_EQ(Document().m_strText, "b & c.txt");
    CTestApp next;
    EXPECT_EQ(next.GetRecentFiles().front(), PathOf("b & c.txt"));
    EXPECT_EQ(next.GetRecentFiles().size(), 4U);
}

TEST_F(DocumentTest, WhatCannotBeReadIsReportedAndLeavesAnEmptyDocument) {
    QString strText;
    Answer(QMessageBox::Ok, &strText);
    EXPECT_EQ(m_app.OpenDocumentFile(PathOf("none.txt")), nullptr);
    EXPECT_TRUE(strText.startsWith("The document could not be opened.")) << strText.toStdString();
    EXPECT_TRUE(strText.contains("none.txt"));
    WriteText(PathOf("bad.txt"), "damaged");
    Answer(QMessageBox::Ok, &strText);
    EXPECT_EQ(m_app.OpenDocumentFile(PathOf("bad.txt")), nullptr);
    EXPECT_EQ(Document().m_strText, "");
    EXPECT_EQ(Title(), "Untitled - Marks");
}

TEST_F(DocumentTest, WhatCannotBeWrittenIsReportedAndLeavesTheFileAsItWas) {
    QString strText;
    Document().SetModifiedFlag();
    Answer(QMessageBox::Ok, &strText);
    EXPECT_FALSE(Document().DoSave(PathOf("no folder/one.txt")));
    EXPECT_TRUE(strText.startsWith("The document could not be saved.")) << strText.toStdString();
    EXPECT_TRUE(Document().IsModified());
    EXPECT_EQ(Document().GetPathName(), "");
}

TEST_F(DocumentTest, SavingReplacesTheFileAsAWhole) {
    const CString strPath = PathOf("one.txt");
    WriteText(strPath, "a longer text than what comes");
    ASSERT_EQ(chmod(strPath, 0640), 0);
    std::filesystem::create_symlink("one.txt", PathOf("link.txt").View());
    std::ifstream reader(strPath); // somebody who reads the old file goes on doing so
    Document().m_strText = "short";
    EXPECT_TRUE(Document().DoSave(PathOf("link.txt")));
    EXPECT_EQ(ReadText(strPath), "short");
    EXPECT_TRUE(std::filesystem::is_symlink(PathOf("link.txt").View()));
    struct stat status;
    ASSERT_EQ(stat(strPath, &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(reader), {}}), "a longer text than what comes");
    for (const auto& entry : std::filesystem::directory_iterator(m_strFolder.View())) {
        EXPECT_EQ(entry.path().filename().string().find(".tessara"), std::string::npos) << entry.path();
    }
}

struct CAnswerCase {
    QMessageBox::StandardButton eButton;
    bool bClosed;
    const char* pszSaved; ///< what is in the file then
};

class UnsavedTest : public FrameFixture, public ::testing::WithParamInterface<CAnswerCase> {};

TEST_P(UnsavedTest, ClosingAsksAboutUnsavedChanges) {
    const CString strPath = PathOf("one.txt");
    WriteText(strPath, "old");
    m_app.OpenDocumentFile(strPath);
    Document().m_strText = "new";
    Document().SetModifiedFlag();
    const HWND hWnd = Frame().m_hWnd;
    QString strText;
    Answer(GetParam().eButton, &strText);
    Window().close();
    EXPECT_EQ(strText, "Save the changes to one.txt?");
    EXPECT_EQ(!IsWindow(hWnd), GetParam().bClosed);
    EXPECT_EQ(ReadText(strPath), GetParam().pszSaved);
}

INSTANTIATE_TEST_SUITE_P(Answers, UnsavedTest,
                         ::testing::Values(CAnswerCase{QMessageBox::Yes, true, "new"},
                                           CAnswerCase{QMessageBox::No, true, "old"},
                                           CAnswerCase{QMessageBox::Cancel, false, "old"}));

TEST_F(DocumentTest, PrintsItsPagesIntoAPdf) {
    View().m_strPrintFile = PathOf("pages.pdf");
    Choose(0, ID_FILE_PRINT);
    EXPECT_TRUE(View().m_bPrinted);
    const std::string strPdf = ReadText(View().m_strPrintFile);
    EXPECT_EQ(strPdf.substr(0, 5), "%PDF-");
    EXPECT_NE(strPdf.find("/Count 2"), std::string::npos);
    EXPECT_THAT(View().m_backModes, AllOf(SizeIs(Ge(2U)), Each(TRANSPARENT))) << "on screen and on each page";
    View().m_strPrintFile = PathOf("no folder/pages.pdf");
    QString strText;
    Answer(QMessageBox::Ok, &strText);
    View().OnFilePrint();
    EXPECT_FALSE(strText.isEmpty());
}

TEST_F(DocumentTest, PrintsNothingWhenTheDialogIsCancelled) {
    bool bAsked = false;
    WhenModal([&](QWidget& modal) {
        bAsked = true;
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    Choose(0, ID_FILE_PRINT);
    EXPECT_TRUE(bAsked);
    EXPECT_FALSE(View().m_bPrinted);
}

TEST_F(DocumentTest, ThePreviewShowsTheSamePages) {
    WhenModal([this](QWidget& modal) {
        EXPECT_TRUE(View().m_bPrinted);
        modal.close();
    });
    View().OnFilePrintPreview();
    EXPECT_THAT(View().m_backModes, AllOf(SizeIs(Ge(2U)), Each(TRANSPARENT)));
    EXPECT_EQ(CClientDC(&View()).SetBkMode(OPAQUE), OPAQUE)
        << "what a program makes itself is the framework's";
}

TEST_F(DocumentTest, SettingsAreKeptByKeyAndName) {
    EXPECT_EQ(m_app.GetProfileInt("Preferences", "Count", 7), 7U);
    EXPECT_TRUE(m_app.WriteProfileInt("Preferences", "Count", -12));
    EXPECT_TRUE(m_app.WriteProfileString("Archive", "Last", "/a, b/\xC3\xA4\\c.txt"));
    CTestApp next;
    EXPECT_EQ(static_cast<int>(next.GetProfileInt("Preferences", "Count", 7)), -12);
    EXPECT_EQ(next.GetProfileString("Archive", "Last"), "/a, b/\xC3\xA4\\c.txt");
    next.WriteProfileString("Archive", "Last", nullptr);
    EXPECT_EQ(next.GetProfileString("Archive", "Last", "none"), "none");
    for (const char* pszSection : {"A\\B", "A_B", "A/B"}) {
        EXPECT_TRUE(m_app.WriteProfileString(pszSection, "Bytes", CString("\xFF\r\n\" ") + pszSection));
    }
    for (const char* pszSection : {"A\\B", "A_B", "A/B"}) {
        EXPECT_EQ(next.GetProfileString(pszSection, "Bytes"), CString("\xFF\r\n\" ") + pszSection);
    }
}

TEST_F(DocumentTest, NumbersOfTheRegistryAreThoseOfTheProgramsKey) {
    EXPECT_EQ(ReadRegistryDword("Preferences", "ShowWelcomeDialog", 1), 1U);
    EXPECT_FALSE(std::filesystem::exists(PathOf("Tests/tessara.settings").View())) << "reading makes nothing";
    WriteRegistryDword("Preferences", "ShowWelcomeDialog", 0xFFFFFFFF);
    EXPECT_EQ(ReadRegistryDword("Preferences", "ShowWelcomeDialog", 7), 0xFFFFFFFF);
    CRegKey key;
    ASSERT_EQ(key.Open(HKEY_CURRENT_USER, "Tests\\Preferences"), ERROR_SUCCESS);
    key.SetValue("text", "ShowWelcomeDialog");
    EXPECT_EQ(ReadRegistryDword("Preferences", "ShowWelcomeDialog", 7), 7U);
    m_app.WriteProfileInt("Deep\\Er", "Count", -3);
    ASSERT_EQ(key.Open(HKEY_CURRENT_USER, "Tests\\Marks\\Deep\\Er"), ERROR_SUCCESS);
    unsigned long nCount = 0;
    EXPECT_EQ(key.QueryValue(nCount, "Count"), ERROR_SUCCESS);
    EXPECT_EQ(nCount, 0xFFFFFFFD);
    m_app.SetRegistryKey(nullptr);
    WriteRegistryDword("Preferences", "ShowWelcomeDialog", 3);
    EXPECT_EQ(ReadRegistryDword("Preferences", "ShowWelcomeDialog", 9), 9U) << "a program without a key";
}

TEST_F(DocumentTest, SettingsAndRecentFilesOfAnEarlierVersionAreKept) {
    std::filesystem::create_directories(PathOf("Tests").View());
    WriteText(PathOf("Tests/Marks.ini"),
              "[Recent%20File%20List]\nFile1=/a.txt\nFile2=\"/b, c.txt\"\n\n[Viewer]\nLeft=-12\n");
    CTestApp upgraded;
    EXPECT_EQ(upgraded.GetRecentFiles(), (std::vector<CString>{"/a.txt", "/b, c.txt"}));
    EXPECT_EQ(static_cast<int>(upgraded.GetProfileInt("Viewer", "Left", 0)), -12);
    upgraded.AddToRecentFileList("/d.txt");
    CTestApp other;
    other.AddToRecentFileList("/e.txt");
    upgraded.AddToRecentFileList("/f.txt");
    EXPECT_EQ(upgraded.GetRecentFiles(), (std::vector<CString>{"/f.txt", "/e.txt", "/d.txt", "/a.txt"}))
        << "another program's too";
    EXPECT_EQ(static_cast<int>(other.GetProfileInt("Viewer", "Left", 0)), -12);
}

} // namespace
