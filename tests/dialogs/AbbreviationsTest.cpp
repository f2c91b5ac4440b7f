#include "tessara/dialogs/MonomerAbbreviationsDialog.h"

#include <gmock/gmock.h>

#include <QHeaderView>
#include <QTableView>
#include <filesystem>
#include <random>

#include "tessara/dialogs/AddAbbreviationDialog.h"
#include "tessara/dialogs/MonomerFile.h"
#include "tessara/platform/files/settings/ProfileText.h"
#include "tessara/platform/ui/frames/ProgramFolder.h"
#include "tests/cli/Folder.h"
#include "tests/document/Hands.h"
#include "tests/files/SettingsFolder.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;
using namespace std::string_literals;

constexpr UINT ABBREVIATIONS = CMonomerAbbreviationsDialog::TEMPLATE;
constexpr UINT ADD_ABBREVIATION = CAddAbbreviationDialog::TEMPLATE;
constexpr UINT TABLE = 1030;
constexpr UINT ADD = 1031;
constexpr UINT EDIT = 1032;
constexpr UINT DELETE_ENTRY = 3;
constexpr UINT FULL_NAME = 1032;
constexpr UINT SHORT_NAME = 1033;
constexpr const char* SELECT_FIRST =
    "First you have to select the abbreviation from the list.\nPlease try again.";

std::string Text(const CArray<CMonomerAbbreviation>& entries) {
    std::string strText;
    for (int i = 0; i < entries.GetSize(); ++i) {
        strText += std::string(entries[i].m_strShortName) + "=" + std::string(entries[i].m_strFullName) + ";";
    }
    return strText;
}

class MonomerFile : public ::testing::Test {
protected:
    CMonomerFile File() const {
        return CMonomerFile::In(m_folder.Path("beside/"), m_folder.Path("user/data/"));
    }
    std::string Read() const {
        CArray<CMonomerAbbreviation> entries;
        const bool bSortByName = File().Read(entries);
        return (bSortByName ? "by name: " : "") + Text(entries);
    }
    void SetUp() override { std::filesystem::create_directory(m_folder.Path("beside")); }

    const CFolder m_folder;
    const std::string m_strName = "beside/Monomers.ini";
};

TEST_F(MonomerFile, IsRead) {
    EXPECT_EQ(Read(), "");
    const struct {
        std::string strBytes;
        std::string strRead;
    } cases[] = {
        {"[List]\nSortByName=1\nNumberOfMonomers=2\nShortName0=S\nFullName0=Styrene\nShortName1=B\n",
         "by name: S=Styrene;B=;"},
        {"; by hand\r\n[LIST]\r\nnumberofmonomers=1\r\nshortname0=\" S \"\r\nFULLNAME0=Styr\xE8ne\r\n",
         " S =Styr\xE8ne;"},
        {"[List]\nNumberOfMonomers=-1\nShortName0=S\n", ""},
        {"[List]\nNumberOfMonomers=1\nShortName0=S\n[Other]\nFullName0=x\n", "S=;"},
        {"[List]\nNumberOfMonomers=1\nShortName0=" + std::string(300, 'x') + "\n",
         std::string(259, 'x') + "=;"},
    };
    for (const auto& [strBytes, strRead] : cases) {
        m_folder.Write(m_strName, strBytes);
        EXPECT_EQ(Read(), strRead) << strBytes;
    }
    m_folder.Write(m_strName, "[List]\nNumberOfMonomers=2000000000\nShortName0=S\n");
    CArray<CMonomerAbbreviation> entries;
    File().Read(entries);
    EXPECT_LT(entries.GetSize(), 100000);
}

TEST_F(MonomerFile, KeepsAllThatIsNotTheTable) {
    CArray<CMonomerAbbreviation> entries;
    entries.Add({"S", "Styr\xE8ne"});
    entries.Add({"B\nx", " 1,3-Butadiene"});
    m_folder.Write(m_strName,
                   "; by hand\r\n[List]\r\nOwn=1\r\nNumberOfMonomers=3\r\n; first\r\nShortName0=a\r\n"
                   "FullName0=b\r\nFullName2=kept\r\n\r\n[Other]\r\nx=y");
    File().Write(true, entries);
    EXPECT_EQ(m_folder.Read(m_strName),
              "; by hand\r\n[List]\r\nOwn=1\r\nNumberOfMonomers=2\r\n; first\r\nShortName0=S\r\n"
              "FullName0=Styr\xE8ne\r\nFullName2=kept\r\nSortByName=1\r\nShortName1=B x\r\n"
              "FullName1=\" 1,3-Butadiene\"\r\n\r\n[Other]\r\nx=y");
    EXPECT_EQ(Read(), "by name: S=Styr\xE8ne;B x= 1,3-Butadiene;");
    m_folder.Write(m_strName, "");
    File().Write(false, entries);
    EXPECT_EQ(m_folder.Read(m_strName),
              "[List]\nSortByName=0\nNumberOfMonomers=2\nShortName0=S\n"
              "FullName0=Styr\xE8ne\nShortName1=B x\nFullName1=\" 1,3-Butadiene\"\n");
}

TEST_F(MonomerFile, IsTheUsersOwnWhereTheProgramsCannotBeWritten) {
    const auto fnPaths = [this](const char* pszBeside) {
        const auto file = CMonomerFile::In(m_folder.Path(pszBeside), m_folder.Path("user/data/"));
        return file.GetPath();
    };
    m_folder.Write(m_strName, "; of the program\n[List]\nNumberOfMonomers=1\nShortName0=S\n");
    EXPECT_EQ(fnPaths("beside/"), m_folder.Path("beside/Monomers.ini"));
    EXPECT_EQ(fnPaths("beside/Monomers.ini/"), m_folder.Path("user/data/Monomers.ini"));
    CArray<CMonomerAbbreviation> entries;
    const CMonomerFile file(m_folder.Path(m_strName), fnPaths("nowhere/"));
    file.Read(entries);
    entries.Add({"B", "Butadiene"});
    file.Write(false, entries);
    EXPECT_EQ(m_folder.Read("user/data/Monomers.ini"),
              "; of the program\n[List]\nNumberOfMonomers=2\nShortName0=S\nSortByName=0\nFullName0=\n"
              "ShortName1=B\nFullName1=Butadiene\n");
    entries.RemoveAll();
    CMonomerFile::In(m_folder.Path("nowhere/"), m_folder.Path("user/data/")).Read(entries);
    EXPECT_EQ(Text(entries), "S=;B=Butadiene;");
}

/// TESSARA_INI_FILES makes it long.
TEST_F(MonomerFile, TakesATableAmongAnything) {
    static const std::string s_pieces[] = {"[List]\n",
                                           "[list ] x\r\n",
                                           "[List\n",
                                           "[Other]\nFullName0=o\n",
                                           "NumberOfMonomers=",
                                           "SortByName=1\n",
                                           "ShortName0=\"a\"\r\n",
                                           "FULLNAME1 = b\n",
                                           "; c\n",
                                           "=\n",
                                           "99999999999\n",
                                           "\n",
                                           "-3",
                                           "\xEF\xBB\xBF",
                                           "\xE4",
                                           "'",
                                           "\0"s,
                                           "]"};
    const unsigned nFiles = RoundsFrom("TESSARA_INI_FILES", 60);
    std::mt19937 random(7);
    for (unsigned nFile = 0; nFile < nFiles; ++nFile) {
        std::string strBytes;
        for (auto n = random() % 20; n > 0; --n) {
            strBytes += s_pieces[random() % std::size(s_pieces)];
        }
        m_folder.Write(m_strName, strBytes);
        Read();
        CArray<CMonomerAbbreviation> entries;
        for (auto n = random() % 4; n > 0; --n) {
            entries.Add({nFile % 2 ? "'a'" : " a", "\xE4 "});
        }
        const bool bSortByName = random() % 2;
        File().Write(bSortByName, entries);
        ASSERT_EQ(Read(), (bSortByName ? "by name: " : "") + Text(entries)) << strBytes;
        // As if the values had been written one by one.
        CProfileText text(strBytes);
        text.SetAll("List", {{"SortByName", bSortByName ? "1" : "0"}});
        text.SetAll("List", {{"NumberOfMonomers", std::to_string(entries.GetSize())}});
        for (int i = 0; i < entries.GetSize(); ++i) {
            text.SetAll("List", {{"ShortName" + std::to_string(i), std::string(entries[i].m_strShortName)}});
            text.SetAll("List", {{"FullName" + std::to_string(i), std::string(entries[i].m_strFullName)}});
        }
        ASSERT_EQ(m_folder.Read(m_strName), strBytes);
    }
}

class Abbreviations : public ::testing::Test {
protected:
    void SetUp() override { Remove(); }
    void TearDown() override { Remove(); }
    std::string Path() const { return FolderOfExecutable() + "Monomers.ini"; }
    void Remove() const { std::filesystem::remove_all(Path()); }

    static std::vector<std::string> Rows() {
        std::vector<std::string> rows;
        const QAbstractItemModel& model = *CHands::ListOf(ABBREVIATIONS, TABLE).model();
        for (int i = 0; i < model.rowCount(); ++i) {
            rows.push_back((model.index(i, 0).data().toString() + "=" + model.index(i, 1).data().toString())
                               .toStdString());
        }
        return rows;
    }
    static void ClickHeader(int nColumn) {
        const QHeaderView& header =
            *dynamic_cast<QTableView&>(ControlOf(ABBREVIATIONS, TABLE)).horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(nColumn) + 8, header.height() / 2));
    }

    CMonomerAbbreviationsDialog m_dialog;
};

TEST_F(Abbreviations, AreAddedEditedSortedDeletedAndSaved) {
    {
        CHands hands;
        hands
            .Look(ABBREVIATIONS,
                  [] {
                      const auto& view = dynamic_cast<QTableView&>(ControlOf(ABBREVIATIONS, TABLE));
                      EXPECT_EQ(view.columnWidth(0), view.viewport()->width() / 3);
                      EXPECT_EQ(view.accessibleName().toStdString(), "Monomer abbreviations");
                  })
            .Press(ABBREVIATIONS, EDIT)
            .Answer(nullptr, SELECT_FIRST, QMessageBox::Ok)
            .Press(ABBREVIATIONS, DELETE_ENTRY)
            .Answer(nullptr, SELECT_FIRST, QMessageBox::Ok)
            .Press(ABBREVIATIONS, ADD)
            .Press(ADD_ABBREVIATION, IDOK)
            .Answer(nullptr, "You have to specify the monomer name.\nPlease try again.", QMessageBox::Ok)
            .Type(ADD_ABBREVIATION, FULL_NAME, "Styrene")
            .Press(ADD_ABBREVIATION, IDOK)
            .Answer(nullptr, "You have to specify the monomer abbreviation.\nPlease try again.",
                    QMessageBox::Ok)
            .Type(ADD_ABBREVIATION, SHORT_NAME, "St")
            .Press(ADD_ABBREVIATION, IDOK)
            .Press(ABBREVIATIONS, ADD)
            .Type(ADD_ABBREVIATION, FULL_NAME, "Acrylonitrile")
            .Type(ADD_ABBREVIATION, SHORT_NAME, "AN")
            .Press(ADD_ABBREVIATION, IDOK)
            .Press(ABBREVIATIONS, ADD)
            .Type(ADD_ABBREVIATION, FULL_NAME, "Butadiene")
            .Type(ADD_ABBREVIATION, SHORT_NAME, "SX")
            .Press(ADD_ABBREVIATION, IDOK)
            .Look(ABBREVIATIONS,
                  [] { EXPECT_THAT(Rows(), ElementsAre("AN=Acrylonitrile", "SX=Butadiene", "St=Styrene")); })
            .Select(ABBREVIATIONS, TABLE, 0)
            .Press(ABBREVIATIONS, EDIT)
            .Look(ADD_ABBREVIATION,
                  [] {
                      EXPECT_EQ(TextOf(ControlOf(ADD_ABBREVIATION, FULL_NAME)), "Acrylonitrile");
                      EXPECT_EQ(TextOf(ControlOf(ADD_ABBREVIATION, SHORT_NAME)), "AN");
                  })
            .Type(ADD_ABBREVIATION, SHORT_NAME, "an")
            .Press(ADD_ABBREVIATION, IDOK)
            .Look(ABBREVIATIONS,
                  [] {
                      auto& view = CHands::ListOf(ABBREVIATIONS, TABLE);
                      const QPoint at = view.visualRect(view.model()->index(0, 0)).center();
                      QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at);
                      QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at);
                  })
            .Press(ADD_ABBREVIATION, IDOK)
            .Look(ABBREVIATIONS,
                  [] {
                      EXPECT_THAT(Rows(), ElementsAre("SX=Butadiene", "St=Styrene", "an=Acrylonitrile"));
                      EXPECT_EQ(CHands::Selected(ABBREVIATIONS, TABLE), -1);
                      ClickHeader(1);
                      EXPECT_THAT(Rows(), ElementsAre("an=Acrylonitrile", "SX=Butadiene", "St=Styrene"));
                  })
            .Press(ABBREVIATIONS, IDOK);
        EXPECT_EQ(m_dialog.DoModal(), IDOK);
    }
    const std::string strSaved =
        "[List]\nSortByName=1\nNumberOfMonomers=3\nShortName0=an\nFullName0=Acrylonitrile\n"
        "ShortName1=SX\nFullName1=Butadiene\nShortName2=St\nFullName2=Styrene\n";
    const CFolder folder;
    std::filesystem::copy(Path(), folder.Path("saved"));
    EXPECT_EQ(folder.Read("saved"), strSaved);
}

TEST_F(Abbreviations, AreDeletedAfterAQuestion) {
    CArray<CMonomerAbbreviation> entries;
    entries.Add({"a", "A"});
    entries.Add({"b", "B"});
    entries.Add({"c", "C"});
    CMonomerFile::OfProgram().Write(false, entries);
    {
        CHands hands;
        hands.Select(ABBREVIATIONS, TABLE, 1)
            .Press(ABBREVIATIONS, DELETE_ENTRY)
            .Answer(nullptr, "Are you sure you want to delete the abbreviation ?", QMessageBox::No)
            .Press(ABBREVIATIONS, DELETE_ENTRY)
            .Answer(nullptr, "Are you sure you want to delete the abbreviation ?", QMessageBox::Yes)
            .Look(ABBREVIATIONS, [] { EXPECT_THAT(Rows(), ElementsAre("a=A", "c=C")); })
            .Press(ABBREVIATIONS, IDOK);
        EXPECT_EQ(m_dialog.DoModal(), IDOK);
    }
    const CFolder folder;
    std::filesystem::copy(Path(), folder.Path("saved"));
    EXPECT_EQ(folder.Read("saved"),
              "[List]\nSortByName=0\nNumberOfMonomers=2\nShortName0=a\nFullName0=A\nShortName1=c\n"
              "FullName1=C\nShortName2=c\nFullName2=C\n");
}

TEST_F(Abbreviations, StayOpenWhenTheyCannotBeSaved) {
    std::filesystem::create_directory(Path()); // no file can replace it
    const std::string strReason = Path() + ": permission denied";
    CHands hands;
    hands.Answer(nullptr, "The abbreviations cannot be read.\n" + strReason, QMessageBox::Ok)
        .Press(ABBREVIATIONS, IDOK)
        .Answer(nullptr, "The abbreviations cannot be saved.\n" + strReason, QMessageBox::Ok)
        .Press(ABBREVIATIONS, IDCANCEL);
    EXPECT_EQ(m_dialog.DoModal(), IDCANCEL);
}

} // namespace

} // namespace tessara
