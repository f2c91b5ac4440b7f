#include "tessara/document/BaseVariant.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "tessara/document/DialogControls.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/Menu.h"
#include "tessara/platform/ui/frames/View.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/MenuResources.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tests/document/Hands.h"
#include "tests/document/VariantFiles.h"
#include "tests/support/Golden.h"

namespace {

using tessara::CHands;
using tessara::CVariantFile;
using ::testing::ElementsAre;

constexpr UINT IDR_FRAME = 128;
constexpr UINT IDS_INPUT = 701;
constexpr UINT IDS_OUTPUT = 702;
constexpr tessara::CMenuEntry FILE_MENU[] = {{"&Delete...", ID_FILE_DELETE_BASE},
                                             {"&Compute", ID_COMPUTE_VARIANT}};
constexpr tessara::CMenuEntry BAR[] = {{"&File", FILE_MENU}};
constexpr tessara::CMenuResource MENUS[] = {{IDR_FRAME, BAR}};
constexpr tessara::CStringResource STRINGS[] = {{IDR_FRAME, "Bases\n\nVariant\nVariants (*.bva)\n.bva\n"},
                                                {IDS_INPUT, "Chain length"},
                                                {IDS_OUTPUT, "Cloud points"}};

/// A text, of which those that begin with "damaged" cannot be read, and "unwritable" not written.
class CNotes : public CBaseVariant {
    DECLARE_DYNCREATE(CNotes)
public:
    using CBaseVariant::RestoreState;
    using CBaseVariant::SaveState;
    CString m_strText;
    int m_nSerialized = 0;
    UINT m_nLeftOut = 0;

    void Serialize(CArchive& ar) override {
        ++m_nSerialized;
        if (ar.IsStoring()) {
            ar.Write(m_strText, static_cast<UINT>(m_strText.GetLength()));
            if (m_strText == "unwritable") {
                AfxThrowArchiveException(CArchiveException::genericException);
            }
            return;
        }
        std::string strText(ar.GetRemaining(), ' ');
        ar.Read(strText.data(), static_cast<UINT>(strText.size()));
        m_strText = strText;
        if (strText.starts_with("damaged")) {
            AfxThrowArchiveException(CArchiveException::badIndex);
        }
    }
    void DeleteContents() override { m_strText.Empty(); }
    void SetBaseName() override {
        m_strBaseName = "PS-CH";
        m_strBaseTag = "ab";
    }
    int IncludeInputItem(UINT nID, UINT nParam) override { return nID != m_nLeftOut && nParam == 5; }
    const AFP_INPUT_INFORMATION* GetInputInformation() const override {
        static const AFP_INTERFACE_ENTRY s_rows[] = {
            {IDS_INPUT, 2, 5, TRUE}, {IDS_OUTPUT, -1, 5, FALSE}, {END_OF_INTERFACE_ENTRIES, -1, 0, FALSE}};
        static const AFP_INPUT_INFORMATION s_table = {s_rows, 0};
        return &s_table;
    }
};
IMPLEMENT_DYNCREATE(CNotes, CBaseVariant)

class CNotesView : public CView {
    DECLARE_DYNCREATE(CNotesView)
protected:
    void OnDraw(CDC*) override {}
};
IMPLEMENT_DYNCREATE(CNotesView, CView)

class CNotesApp : public CWinApp {
public:
    CNotesApp() : CWinApp("Notes") {
        SetRegistryKey("Tests");
        AddDocTemplate(new CSingleDocTemplate(IDR_FRAME, RUNTIME_CLASS(CNotes), RUNTIME_CLASS(CFrameWnd),
                                              RUNTIME_CLASS(CNotesView)));
    }
};

/// A program with a new document. Its archive lies beside this executable and is empty.
class BaseVariant : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        tessara::AddMenuResources(MENUS);
        tessara::AddStringResources(STRINGS);
    }
    void SetUp() override {
        std::filesystem::remove_all(std::filesystem::path(::testing::TempDir()) / "variants");
        setenv("XDG_CONFIG_HOME", (::testing::TempDir() + "variants").c_str(), 1);
        m_pApp = std::make_unique<CNotesApp>();
        m_pApp->OnFileNew();
        Document().GetArchiveStrings(m_strDirectory, m_strExtension);
        std::filesystem::remove_all(std::string(m_strDirectory));
    }
    void TearDown() override {
        m_pApp->m_pMainWnd->DestroyWindow();
        tessara::TakeExitCode();
        tessara::KeepArchive(std::string(m_strDirectory));
        std::filesystem::remove_all(std::string(m_strDirectory));
    }

    CNotes& Document() {
        auto* const pFrame = static_cast<CFrameWnd*>(m_pApp->m_pMainWnd);
        return static_cast<CNotes&>(*pFrame->GetActiveView()->GetDocument());
    }
    std::string PathOf(const char* pszName) const { return std::string(m_strDirectory) + pszName; }
    std::string Put(const char* pszName, const CVariantFile& file) const {
        std::filesystem::create_directories(std::string(m_strDirectory));
        std::ofstream(PathOf(pszName), std::ios::binary) << file.Bytes();
        return PathOf(pszName);
    }
    std::string Bytes(const char* pszName) const { return tessara::ReadWholeFile(PathOf(pszName)); }
    CString LastFile() {
        CString strPath = "something";
        Document().ReadLastBaseVariantFile(strPath);
        return strPath;
    }
    bool CanCompute() {
        return !(m_pApp->m_pMainWnd->GetMenu()->GetMenuState(ID_COMPUTE_VARIANT, MF_BYCOMMAND) & MF_GRAYED);
    }
    /// Saves into the line of the list under a name.
    BOOL SaveAs(int nLine, const char* pszName) {
        CHands hands;
        hands.Select(tessara::IDD_SAVE_VARIANT, tessara::IDC_VARIANTS, nLine)
            .Type(tessara::IDD_SAVE_VARIANT, tessara::IDC_VARIANT_NAME, pszName)
            .Type(tessara::IDD_SAVE_VARIANT, tessara::IDC_COMMENT, "x")
            .Press(tessara::IDD_SAVE_VARIANT, IDOK);
        return Document().DoSave(nullptr);
    }

    std::unique_ptr<CNotesApp> m_pApp;
    CString m_strDirectory;
    CString m_strExtension;
};

TEST_F(BaseVariant, IsSavedAsTheFirstThenIntoItsOwnFile) {
    EXPECT_EQ(m_strExtension, "bva");
    Document().m_strText = "first";
    EXPECT_EQ(LastFile(), "");
    ASSERT_TRUE(SaveAs(0, "one"));
    EXPECT_EQ(Document().GetTitle(), "PS-CH (1)");
    EXPECT_EQ(Document().GetPathName(), PathOf("bas00001.bva").c_str());
    EXPECT_EQ(LastFile(), PathOf("bas00001.bva").c_str());
    CVariantFile expected{.strName = "one", .strComment = "x", .strTag = "ab", .strData = "first"};
    EXPECT_EQ(Bytes("bas00001.bva"), expected.Bytes());

    Document().m_strText = "2nd";
    Document().SetModifiedFlag();
    EXPECT_TRUE(Document().DoFileSave()); // without a dialog
    EXPECT_FALSE(Document().IsModified());
    expected.strData = "2ndst"; // shorter data leave the file's length
    EXPECT_EQ(Bytes("bas00001.bva"), expected.Bytes());
}

TEST_F(BaseVariant, IsOpenedWithItsNumberAndReadyToCompute) {
    Document().SetReadyToComputeFlag(FALSE);
    EXPECT_FALSE(CanCompute());
    const std::string strPath = Put("own.bva", {.nNumber = 2, .strComment = "notes", .strData = "hello"});
    ASSERT_TRUE(m_pApp->OpenDocumentFile(strPath.c_str()));
    EXPECT_EQ(Document().m_strText, "hello");
    EXPECT_EQ(Document().GetTitle(), "PS-CH (3)");
    EXPECT_TRUE(CanCompute() && Document().IsReadyToCompute());
    EXPECT_EQ(LastFile(), strPath.c_str());
    EXPECT_FALSE(Document().IsModified());
    m_pApp->OnFileNew();
    EXPECT_EQ(Document().m_nVariantNumber, -1);
}

TEST_F(BaseVariant, AFailedOpeningTellsAndLeavesNothingToBeSavedByMistake) {
    Document().m_strText = "mine";
    Document().m_nVariantNumber = 7;
    EXPECT_FALSE(Document().OnOpenDocument(PathOf("none.bva").c_str())); // in silence
    const std::string strPath = Put("cut.bva", {.strComment = "notes", .strData = ""});
    std::filesystem::resize_file(strPath, 293);
    const std::string strOpening = "The document could not be opened.\n" + strPath + "\n";
    {
        CHands hands;
        hands.Answer(nullptr, (strOpening + strPath + ": its comment is not whole"), QMessageBox::Ok);
        EXPECT_FALSE(Document().OnOpenDocument(strPath.c_str()));
    }
    EXPECT_EQ(Document().m_strText, "mine");
    EXPECT_EQ(Document().m_nVariantNumber, 7);
    Put("cut.bva", {.nNumber = 4, .strData = "damaged"});
    {
        CHands hands;
        hands.Answer(nullptr, (strOpening + CArchiveException(CArchiveException::badIndex).what()),
                     QMessageBox::Ok);
        EXPECT_FALSE(Document().OnOpenDocument(strPath.c_str()));
    }
    EXPECT_EQ(Document().m_strText, "");
    EXPECT_EQ(Document().m_nVariantNumber, -1);
    std::ofstream(strPath, std::ios::trunc).close();
    Document().m_nSerialized = 0;
    EXPECT_TRUE(Document().OnOpenDocument(strPath.c_str())); // an empty file holds no data
    EXPECT_EQ(Document().m_nSerialized, 0);
}

TEST_F(BaseVariant, AFailedSaveOverAVariantLeavesIt) {
    const std::string strOld = CVariantFile{.nNumber = 0, .strData = "old data"}.Bytes();
    Put("bas00004.bva", {.nNumber = 0, .strData = "old data"});
    Document().m_strText = "unwritable";
    CHands hands;
    hands.Select(tessara::IDD_SAVE_VARIANT, tessara::IDC_VARIANTS, 0)
        .Press(tessara::IDD_SAVE_VARIANT, IDOK)
        .Answer("Save Variant", "Warning! Variant already exists! Overwrite?", QMessageBox::Yes)
        .Answer(nullptr,
                ("The document could not be saved.\n" + PathOf("bas00004.bva") + "\n" +
                 CArchiveException(CArchiveException::genericException).what()),
                QMessageBox::Ok);
    EXPECT_FALSE(Document().DoSave(nullptr));
    EXPECT_EQ(Bytes("bas00004.bva"), strOld);
    EXPECT_EQ(Document().m_nVariantNumber, -1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(std::string(m_strDirectory)), {}), 1);
}

TEST_F(BaseVariant, IsNotSavedOverWhatAnotherProgramHasSavedSinceItWasOpenedOrSaved) {
    const std::string strPath = Put("own.bva", {.strData = "as opened"});
    const CVariantFile theirs{.strData = "saved by them"};
    ASSERT_TRUE(m_pApp->OpenDocumentFile(strPath.c_str()));
    for (const char* const pszText : {"mine", "mine once more"}) {
        Document().m_strText = pszText;
        EXPECT_TRUE(Document().DoFileSave()) << "nobody else has touched it";
    }
    Document().SetModifiedFlag();
    std::filesystem::rename(Put("theirs", theirs), strPath);
    {
        CHands hands;
        hands.Answer(nullptr,
                     "The document could not be saved.\n" + strPath + "\n" + strPath +
                         ": another program has changed this variant meanwhile; save it as another one",
                     QMessageBox::Ok);
        EXPECT_FALSE(Document().DoFileSave());
    }
    EXPECT_EQ(Bytes("own.bva"), theirs.Bytes());
    EXPECT_TRUE(Document().IsModified());
    EXPECT_EQ(Document().GetTitle(), "PS-CH (1)");
    {
        CHands hands; // over theirs, if the user wants that
        hands.Select(tessara::IDD_SAVE_VARIANT, tessara::IDC_VARIANTS, 0)
            .Press(tessara::IDD_SAVE_VARIANT, IDOK)
            .Answer("Save Variant", "Warning! Variant already exists! Overwrite?", QMessageBox::Yes);
        EXPECT_TRUE(Document().DoSave(nullptr));
    }
    EXPECT_TRUE(Document().DoFileSave());
    std::filesystem::remove(strPath);
    CHands hands; // where it has gone there is nothing to save into
    hands.Press(tessara::IDD_SAVE_VARIANT, IDCANCEL);
    EXPECT_FALSE(Document().DoFileSave());
}

TEST_F(BaseVariant, DeletingItsVariantTakesItsNumber) {
    Document().m_strText = "first";
    ASSERT_TRUE(SaveAs(0, "one"));
    Put("bas00002.bva", {.strBase = "PE"});
    {
        CHands hands;
        hands.Select(tessara::IDD_DELETE_BASE, tessara::IDC_BASES, 0)
            .Press(tessara::IDD_DELETE_BASE, tessara::IDC_DELETE)
            .Answer("Delete Base", "Are you sure you want to delete the selected Base?", QMessageBox::Yes);
        Document().OnCmdMsg(ID_FILE_DELETE_BASE, 0, nullptr);
    }
    EXPECT_EQ(Document().GetTitle(), "PS-CH (1)");
    EXPECT_FALSE(Document().IsModified());
    {
        CHands hands;
        hands.Press(tessara::IDD_DELETE_BASE, tessara::IDC_NEXT)
            .Press(tessara::IDD_DELETE_VARIANT, tessara::IDC_DELETE)
            .Answer("Delete Variant",
                    "You are trying to delete the Base Variant\nyou are working with. Delete anyway?",
                    QMessageBox::Yes);
        Document().OnCmdMsg(ID_FILE_DELETE_BASE, 0, nullptr);
    }
    EXPECT_EQ(Document().GetTitle(), "PS-CH (-)");
    EXPECT_TRUE(Document().IsModified());
    EXPECT_EQ(LastFile(), "");
    Document().SetModifiedFlag(FALSE);
}

TEST_F(BaseVariant, AsksBeforeUnsavedWorkGoes) {
    const char* const pszQuestion = "You did not save current Base Variant to archive. Save it ?";
    EXPECT_TRUE(Document().SaveModified());
    for (const auto& [eButton, bExpected] :
         {std::pair(QMessageBox::Cancel, FALSE), std::pair(QMessageBox::No, TRUE)}) {
        Document().SetModifiedFlag();
        CHands hands;
        hands.Answer(nullptr, pszQuestion, eButton);
        EXPECT_EQ(Document().SaveModified(), bExpected);
    }
    CHands hands;
    hands.Answer(nullptr, pszQuestion, QMessageBox::Yes).Press(tessara::IDD_SAVE_VARIANT, IDCANCEL);
    EXPECT_FALSE(Document().SaveModified());
    EXPECT_FALSE(std::filesystem::exists(std::string(m_strDirectory)));
    Document().SetModifiedFlag(FALSE);
}

TEST_F(BaseVariant, OffersTheItemsThatItIncludesAndGivesItsStateBack) {
    Document().FillInterfaceArrays();
    ASSERT_EQ(Document().m_inputItems.GetSize(), 2);
    EXPECT_EQ(Document().m_outputItems.GetSize(), 0);
    const CInterfaceItem& item = Document().m_inputItems[0];
    EXPECT_EQ(item.m_strName, "Chain length");
    EXPECT_TRUE(item.m_nInformation == 2 && item.m_bSelected);
    Document().m_nLeftOut = IDS_INPUT;
    Document().FillInterfaceArrays();
    EXPECT_EQ(Document().m_inputItems.GetSize(), 1);

    Document().m_strText = "before";
    EXPECT_TRUE(Document().SaveState() && Document().m_bStateSaved);
    Document().m_strText = "after";
    EXPECT_TRUE(Document().RestoreState() && !Document().m_bStateSaved);
    EXPECT_EQ(Document().m_strText, "before");
}

} // namespace
