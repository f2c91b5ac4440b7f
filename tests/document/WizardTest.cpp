#include <gmock/gmock.h>

#include <QAccessible>
#include <cstdio>
#include <filesystem>

#include "tessara/document/BaseFile.h"
#include "tessara/document/DialogControls.h"
#include "tests/cli/Folder.h"
#include "tests/document/Hands.h"
#include "tests/document/VariantFiles.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;

constexpr const char* DELETE_OWN_BASE =
    "You are trying to delete the Base\n to which the BV you are working with corresponds.\n Delete the Base "
    "anyway ?";

/// Two Bases; the document is of PS-CH, which has variants 1 and 3.
class Wizard : public ::testing::Test {
protected:
    void SetUp() override {
        m_folder.Write(
            "bas00001.bva",
            CVariantFile{.nNumber = 0, .strName = "first", .strComment = "of old", .strTag = "ab"}.Bytes());
        m_folder.Write("bas00002.bva", CVariantFile{.nNumber = 2, .strName = "third"}.Bytes());
        m_folder.Write("bas00005.bva", CVariantFile{.strBase = "PE", .strName = "other"}.Bytes());
        m_owner.CreateEx(0, nullptr, "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 400, 300),
                         nullptr, 0);
    }
    void TearDown() override {
        m_owner.DestroyWindow();
        KeepArchive(m_strDirectory);
    }

    std::string Comment(UINT nTemplate) { return TextOf(ControlOf(nTemplate, IDC_COMMENT)); }
    void SaveData() {
        CBaseFile file;
        ASSERT_NE(file.Open(m_file.GetFilePath(), 2, FALSE), 0);
        file.Write("data", 4);
        file.Close();
    }

    /// What another program does, which writes a file of its own in place of the old one.
    void Replace(const char* pszName, const CVariantFile& file) {
        m_folder.Write("theirs", file.Bytes());
        rename(m_folder.Path("theirs").c_str(), m_folder.Path(pszName).c_str());
    }
    void ChooseToSaveOver(int nLine) {
        CHands hands;
        hands.Select(IDD_SAVE_VARIANT, IDC_VARIANTS, nLine)
            .Press(IDD_SAVE_VARIANT, IDOK)
            .Answer("Save Variant", "Warning! Variant already exists! Overwrite?", QMessageBox::Yes);
        ASSERT_NE(m_file.GetBase(&m_owner, 2), 0);
    }

    CFolder m_folder;
    std::string m_strDirectory = m_folder.Path("");
    CWnd m_owner;
    CBaseFile m_file{m_strDirectory.c_str(), "bva", "PS-CH", "cd"};
};

TEST_F(Wizard, LoadsAVariantOfTheChosenBase) {
    {
        CHands hands;
        hands
            .Look(IDD_SELECT_BASE,
                  [] {
                      EXPECT_THAT(CHands::Lines(IDD_SELECT_BASE, IDC_BASES), ElementsAre("PE", "PS-CH"));
                      EXPECT_EQ(CHands::Selected(IDD_SELECT_BASE, IDC_BASES), 1);
                  })
            .Select(IDD_SELECT_BASE, IDC_BASES, 0)
            .Press(IDD_SELECT_BASE, IDC_NEXT)
            .Look(IDD_LOAD_VARIANT,
                  [this] {
                      EXPECT_EQ(TextOf(ControlOf(IDD_LOAD_VARIANT, IDC_BASE_NAME)), "PE");
                      EXPECT_THAT(CHands::Lines(IDD_LOAD_VARIANT, IDC_VARIANTS), ElementsAre("1 other"));
                      EXPECT_EQ(Comment(IDD_LOAD_VARIANT), "No comments for this variant.");
                  })
            .Press(IDD_LOAD_VARIANT, IDC_PREVIOUS)
            .Look(IDD_SELECT_BASE, [] { EXPECT_EQ(CHands::Selected(IDD_SELECT_BASE, IDC_BASES), 0); })
            .Select(IDD_SELECT_BASE, IDC_BASES, 1)
            .Press(IDD_SELECT_BASE, IDC_NEXT)
            .Look(IDD_LOAD_VARIANT,
                  [this] {
                      EXPECT_THAT(CHands::Lines(IDD_LOAD_VARIANT, IDC_VARIANTS),
                                  ElementsAre("1 first (ab)", "3 third"));
                      EXPECT_EQ(Comment(IDD_LOAD_VARIANT), "of old");
                  })
            .Select(IDD_LOAD_VARIANT, IDC_VARIANTS, 1)
            .Look(IDD_LOAD_VARIANT,
                  [this] { EXPECT_EQ(Comment(IDD_LOAD_VARIANT), "No comments for this variant."); })
            .Press(IDD_LOAD_VARIANT, IDOK);
        EXPECT_NE(m_file.GetBase(&m_owner, 1), 0);
    }
    EXPECT_EQ(m_file.GetFilePath(), m_folder.Path("bas00002.bva").c_str());
    EXPECT_EQ(m_file.m_nVariantNumber, 2);
}

/// The names that a screen reader has for what the Tab key leads to, in its order.
std::string WalkWithTab(UINT nTemplate) {
    std::string strNames;
    QWidget& dialog = *DialogOf(nTemplate);
    const QWidget* const pFirst = dialog.focusWidget();
    do {
        QWidget& focus = *dialog.focusWidget();
        strNames +=
            QAccessible::queryAccessibleInterface(&focus)->text(QAccessible::Name).toStdString() + "; ";
        QTest::keyClick(&focus, Qt::Key_Tab);
    } while (dialog.focusWidget() != pFirst);
    return strNames;
}

TEST_F(Wizard, HasNamesAndAnOrderForTheKeyboardAlone) {
    const auto walk = [](UINT nTemplate, std::string strNames) {
        return [=] { EXPECT_EQ(WalkWithTab(nTemplate), strNames); };
    };
    CHands hands;
    hands
        .Look(IDD_SELECT_BASE, walk(IDD_SELECT_BASE, "Bases, available from the archive.; Next >>; Cancel; "))
        .Press(IDD_SELECT_BASE, IDC_NEXT)
        .Look(IDD_LOAD_VARIANT,
              walk(IDD_LOAD_VARIANT, "Available variants; Comments to currently selected variant; "
                                     "<< Previous; Load; Cancel; "))
        .Press(IDD_LOAD_VARIANT, IDCANCEL)
        .Look(IDD_SAVE_VARIANT,
              walk(IDD_SAVE_VARIANT, "Variant Name (up to 16 symbols):; Available variants; "
                                     "Comments to the variant; Save; Cancel; "))
        .Press(IDD_SAVE_VARIANT, IDCANCEL)
        .Look(IDD_DELETE_BASE,
              walk(IDD_DELETE_BASE, "Bases, available from the archive.; Next >>; Delete Base; Cancel; "))
        .Press(IDD_DELETE_BASE, IDC_NEXT)
        .Look(IDD_DELETE_VARIANT,
              walk(IDD_DELETE_VARIANT, "Available variants; Comments to currently selected variant; "
                                       "<< Previous; Delete; Cancel; "))
        .Press(IDD_DELETE_VARIANT, IDCANCEL);
    m_file.GetBase(&m_owner, 1);
    m_file.GetBase(&m_owner, 2);
    m_file.DeleteBase(&m_owner, -1);
}

TEST_F(Wizard, LoadingAsksForABaseAndSeesAVariantThatHasGone) {
    m_file.m_pszBaseName = "none";
    CHands hands;
    hands.Press(IDD_SELECT_BASE, IDC_NEXT)
        .Answer("Select Base", "You must select a Base first!", QMessageBox::Ok)
        .Select(IDD_SELECT_BASE, IDC_BASES, 1)
        .Press(IDD_SELECT_BASE, IDC_NEXT)
        .Look(IDD_LOAD_VARIANT, [this] { unlink(m_folder.Path("bas00001.bva").c_str()); })
        .Press(IDD_LOAD_VARIANT, IDOK)
        .Answer("Load Variant", "Another program has deleted or replaced this variant meanwhile.",
                QMessageBox::Ok)
        .Look(IDD_LOAD_VARIANT,
              [] { EXPECT_THAT(CHands::Lines(IDD_LOAD_VARIANT, IDC_VARIANTS), ElementsAre("3 third")); })
        .Press(IDD_LOAD_VARIANT, IDCANCEL);
    EXPECT_EQ(m_file.GetBase(&m_owner, 1), 0);
    EXPECT_EQ(m_file.m_nVariantNumber, -1);
}

TEST_F(Wizard, SavesIntoAnEmptySlotUnderTheNextNumber) {
    {
        CHands hands;
        hands
            .Look(IDD_SAVE_VARIANT,
                  [] {
                      EXPECT_THAT(
                          CHands::Lines(IDD_SAVE_VARIANT, IDC_VARIANTS),
                          ElementsAre("1 first (ab)", "2 --- empty ---", "3 third", "4 --- empty ---"));
                      EXPECT_EQ(CHands::Selected(IDD_SAVE_VARIANT, IDC_VARIANTS), 3);
                      EXPECT_EQ(TextOf(ControlOf(IDD_SAVE_VARIANT, IDC_VARIANT_NUMBER)), "Variant Number: 4");
                  })
            .Press(IDD_SAVE_VARIANT, IDOK)
            .Answer("Save Variant", "You have to specify variant name first!", QMessageBox::Ok)
            .Select(IDD_SAVE_VARIANT, IDC_VARIANTS, 1)
            .Type(IDD_SAVE_VARIANT, IDC_VARIANT_NAME, "second, and too long")
            .Press(IDD_SAVE_VARIANT, IDOK)
            .Answer("Save Variant", "Are you sure you do not want to specify the comments for this variant ?",
                    QMessageBox::No)
            .Type(IDD_SAVE_VARIANT, IDC_COMMENT, "twelve bytes")
            .Press(IDD_SAVE_VARIANT, IDOK);
        EXPECT_NE(m_file.GetBase(&m_owner, 2), 0);
    }
    EXPECT_EQ(m_file.m_nVariantNumber, 1);
    EXPECT_THAT(m_folder.List(), ElementsAre("bas00001.bva", "bas00002.bva", "bas00005.bva"));
    SaveData();
    EXPECT_EQ(m_file.GetFilePath(), m_folder.Path("bas00006.bva").c_str());
    EXPECT_EQ(m_folder.Read("bas00006.bva"),
              (CVariantFile{
                  .nNumber = 1, .strName = "second, and too ", .strComment = "twelve bytes", .strTag = "cd"}
                   .Bytes()));
}

TEST_F(Wizard, SavesOverAVariantIntoItsOwnFileWithoutAnInventedComment) {
    {
        CHands hands;
        hands.Select(IDD_SAVE_VARIANT, IDC_VARIANTS, 2)
            .Press(IDD_SAVE_VARIANT, IDOK)
            .Answer("Save Variant", "Warning! Variant already exists! Overwrite?", QMessageBox::No)
            .Press(IDD_SAVE_VARIANT, IDOK)
            .Answer("Save Variant", "Warning! Variant already exists! Overwrite?", QMessageBox::Yes);
        EXPECT_NE(m_file.GetBase(&m_owner, 2), 0);
    }
    EXPECT_EQ(m_file.GetFilePath(), m_folder.Path("bas00002.bva").c_str());
    SaveData();
    EXPECT_EQ(m_folder.Read("bas00002.bva"),
              (CVariantFile{.nNumber = 2, .strName = "third", .strTag = "cd"}.Bytes()));
}

TEST_F(Wizard, SavingSeesWhatAnotherProgramDidMeanwhile) {
    CHands hands;
    hands.Type(IDD_SAVE_VARIANT, IDC_VARIANT_NAME, "mine")
        .Type(IDD_SAVE_VARIANT, IDC_COMMENT, "x")
        .Look(IDD_SAVE_VARIANT,
              [this] {
                  m_folder.Write("bas00006.bva", CVariantFile{.nNumber = 3, .strName = "theirs"}.Bytes());
              })
        .Press(IDD_SAVE_VARIANT, IDOK)
        .Answer("Save Variant",
                "Another program has changed this Base meanwhile.\nPlease look at the list again.",
                QMessageBox::Ok)
        .Look(IDD_SAVE_VARIANT,
              [] {
                  EXPECT_THAT(CHands::Lines(IDD_SAVE_VARIANT, IDC_VARIANTS),
                              ElementsAre("1 first (ab)", "2 --- empty ---", "3 third", "4 theirs",
                                          "5 --- empty ---"));
              })
        .Press(IDD_SAVE_VARIANT, IDCANCEL);
    EXPECT_EQ(m_file.GetBase(&m_owner, 2), 0);
}

TEST_F(Wizard, DeletesABaseOrAVariantAndTellsOfTheDocumentsOwn) {
    {
        CHands hands;
        hands.Select(IDD_DELETE_BASE, IDC_BASES, 0)
            .Press(IDD_DELETE_BASE, IDC_DELETE)
            .Answer("Delete Base", "Are you sure you want to delete the selected Base?", QMessageBox::Yes);
        EXPECT_EQ(m_file.DeleteBase(&m_owner, 0), 0);
    }
    EXPECT_THAT(m_folder.List(), ElementsAre("bas00001.bva", "bas00002.bva"));
    {
        CHands hands;
        hands.Press(IDD_DELETE_BASE, IDC_NEXT)
            .Select(IDD_DELETE_VARIANT, IDC_VARIANTS, 1)
            .Press(IDD_DELETE_VARIANT, IDC_DELETE)
            .Answer("Delete Variant", "Are you sure you want to delete selected Base Variant?",
                    QMessageBox::Yes);
        EXPECT_EQ(m_file.DeleteBase(&m_owner, 0), 0);
    }
    EXPECT_THAT(m_folder.List(), ElementsAre("bas00001.bva"));
    {
        CHands hands;
        hands.Press(IDD_DELETE_BASE, IDC_DELETE)
            .Answer("Delete Base", DELETE_OWN_BASE, QMessageBox::No)
            .Press(IDD_DELETE_BASE, IDC_NEXT)
            .Press(IDD_DELETE_VARIANT, IDC_DELETE)
            .Answer("Delete Variant",
                    "You are trying to delete the Base Variant\nyou are working with. Delete anyway?",
                    QMessageBox::Yes);
        EXPECT_NE(m_file.DeleteBase(&m_owner, 0), 0);
    }
    EXPECT_TRUE(m_folder.List().empty());
}

TEST_F(Wizard, ABaseNameThatIsTooLongForFilesIsTheOneTheyHave) {
    const std::string strStored(127, 'x');
    const std::string strName = strStored + "\xC3\xA9"; // of which half would be cut off
    m_file.m_pszBaseName = strName.c_str();
    m_folder.Write("bas00007.bva", CVariantFile{.strBase = strStored, .strName = "here"}.Bytes());
    CHands hands;
    hands
        .Look(IDD_SAVE_VARIANT,
              [] {
                  EXPECT_THAT(CHands::Lines(IDD_SAVE_VARIANT, IDC_VARIANTS),
                              ElementsAre("1 here", "2 --- empty ---"));
              })
        .Press(IDD_SAVE_VARIANT, IDCANCEL)
        .Look(IDD_SELECT_BASE, [] { EXPECT_EQ(CHands::Selected(IDD_SELECT_BASE, IDC_BASES), 2); })
        .Press(IDD_SELECT_BASE, IDCANCEL)
        .Look(IDD_DELETE_BASE, [] { EXPECT_EQ(CHands::Selected(IDD_DELETE_BASE, IDC_BASES), 2); })
        .Select(IDD_DELETE_BASE, IDC_BASES, 2)
        .Press(IDD_DELETE_BASE, IDC_DELETE)
        .Answer("Delete Base", DELETE_OWN_BASE, QMessageBox::Yes);
    EXPECT_EQ(m_file.GetBase(&m_owner, 2), 0);
    EXPECT_EQ(m_file.GetBase(&m_owner, 1), 0);
    EXPECT_NE(m_file.DeleteBase(&m_owner, 0), 0);
}

TEST_F(Wizard, DeletingSeesWhatAnotherProgramDidWhileItAsked) {
    const CVariantFile theirs{.strBase = "theirs", .strName = "of theirs"};
    {
        CHands hands;
        hands.Press(IDD_DELETE_BASE, IDC_NEXT)
            .Select(IDD_DELETE_VARIANT, IDC_VARIANTS, 1)
            .Press(IDD_DELETE_VARIANT, IDC_DELETE)
            .Meanwhile([&] { Replace("bas00002.bva", theirs); })
            .Answer("Delete Variant", "Are you sure you want to delete selected Base Variant?",
                    QMessageBox::Yes)
            .Answer("Delete Variant", "Another program has deleted or replaced this variant meanwhile.",
                    QMessageBox::Ok)
            .Press(IDD_DELETE_VARIANT, IDCANCEL);
        EXPECT_EQ(m_file.DeleteBase(&m_owner, 0), 0);
    }
    EXPECT_EQ(m_folder.Read("bas00002.bva"), theirs.Bytes());
    CHands hands;
    hands.Select(IDD_DELETE_BASE, IDC_BASES, 0)
        .Press(IDD_DELETE_BASE, IDC_DELETE)
        .Meanwhile([&] { Replace("bas00006.bva", {.strBase = "PE", .nNumber = 1}); })
        .Answer("Delete Base", "Are you sure you want to delete the selected Base?", QMessageBox::Yes)
        .Answer("Delete Base",
                "Another program has changed this Base meanwhile.\nPlease look at the list again.",
                QMessageBox::Ok)
        .Press(IDD_DELETE_BASE, IDCANCEL);
    EXPECT_EQ(m_file.DeleteBase(&m_owner, 2), 0);
    EXPECT_EQ(m_folder.List().size(), 4U);
}

TEST_F(Wizard, SavingOverAVariantLeavesWhatAnotherProgramHasPutThereMeanwhile) {
    const CVariantFile theirs{.strBase = "theirs", .strName = "of theirs"};
    const std::string strPath = m_folder.Path("bas00002.bva");
    CBaseFile file;
    for (const bool bChosen : {false, true}) { // straight into the file, or over it by the wizard
        m_folder.Write("bas00002.bva", CVariantFile{.nNumber = 2, .strName = "third"}.Bytes());
        if (bChosen) {
            ChooseToSaveOver(2);
        }
        ASSERT_NE(file.Open(strPath.c_str(), 2, FALSE), 0);
        file.Write("mine", 4);
        Replace("bas00002.bva", theirs);
        EXPECT_THROW(file.Close(), CFileException);
        EXPECT_EQ(m_folder.Read("bas00002.bva"), theirs.Bytes());
    }
    CFileException error; // it was so before the opening too
    EXPECT_EQ(file.Open(strPath.c_str(), 2, FALSE, &error), 0);
    EXPECT_EQ(error.what(),
              strPath + ": another program has changed this variant meanwhile; save it as another one");
    EXPECT_EQ(m_folder.Read("bas00002.bva"), theirs.Bytes());
    EXPECT_EQ(m_folder.List().size(), 3U);
}

TEST_F(Wizard, SavingOverAVariantThatHasGoneMakesItsFileAgain) {
    ChooseToSaveOver(2);
    unlink(m_folder.Path("bas00002.bva").c_str());
    SaveData();
    EXPECT_EQ(m_folder.Read("bas00002.bva"),
              (CVariantFile{.nNumber = 2, .strName = "third", .strTag = "cd"}.Bytes()));
}

TEST_F(Wizard, SeesThatTheArchiveHasGone) {
    const CFolder elsewhere;
    const auto move = [&] { rename(m_strDirectory.c_str(), elsewhere.Path("moved").c_str()); };
    {
        CHands hands;
        hands.Press(IDD_SELECT_BASE, IDC_NEXT)
            .Look(IDD_LOAD_VARIANT, move)
            .Press(IDD_LOAD_VARIANT, IDOK)
            .Answer("Load Variant", "Another program has deleted or replaced this variant meanwhile.",
                    QMessageBox::Ok)
            .Press(IDD_LOAD_VARIANT, IDCANCEL);
        EXPECT_EQ(m_file.GetBase(&m_owner, 1), 0);
    }
    rename(elsewhere.Path("moved").c_str(), m_strDirectory.c_str());
    {
        CHands hands;
        hands.Look(IDD_SAVE_VARIANT, move)
            .Type(IDD_SAVE_VARIANT, IDC_VARIANT_NAME, "mine")
            .Type(IDD_SAVE_VARIANT, IDC_COMMENT, "x")
            .Press(IDD_SAVE_VARIANT, IDOK)
            .Answer("Save Variant",
                    "Another program has changed this Base meanwhile.\nPlease look at the list again.",
                    QMessageBox::Ok)
            .Type(IDD_SAVE_VARIANT, IDC_VARIANT_NAME, "mine")
            .Type(IDD_SAVE_VARIANT, IDC_COMMENT, "x")
            .Press(IDD_SAVE_VARIANT, IDOK);
        ASSERT_NE(m_file.GetBase(&m_owner, 2), 0);
    }
    SaveData();
    EXPECT_THAT(m_folder.List(), ElementsAre("bas00001.bva"));
    EXPECT_TRUE(std::filesystem::exists(elsewhere.Path("moved/bas00002.bva")));
}

} // namespace

} // namespace tessara
