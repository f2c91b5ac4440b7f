#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"
#include "tests/document/VariantFiles.h"

using tessara::CVariantFile;

namespace {

/// Runs `tessara archive` in a folder with two variants of one Base, one of another, and a damaged file.
class ArchiveCommand : public CCommandFixture {
protected:
    ArchiveCommand() : CCommandFixture("archive") {
        m_folder.Write("bas00001.bva", CVariantFile{.nNumber = 1,
                                                    .strName = "se\xE9"
                                                               "cond",
                                                    .strTag = "ab"}
                                           .Bytes());
        m_folder.Write(
            "bas00002.bva",
            CVariantFile{.strComment = "two\nlines", .strData = std::string("\0data\n", 6)}.Bytes());
        m_folder.Write("own.bva", CVariantFile{.strBase = "PE"}.Bytes());
        m_folder.Write("short.bva", "x");
    }
};

TEST_F(ArchiveCommand, ListsAndShows) {
    EXPECT_EQ(Run("list @").strOutput, "Base   Number  Name     Tag  File\n"
                                       "PE     1       first         own\n"
                                       "PS-CH  1       first         bas00002\n"
                                       "PS-CH  2       se\xC3\xA9"
                                       "cond  ab   bas00001\n");
    EXPECT_EQ(Run("show @ bas00001.bva").strOutput,
              "Base:    PS-CH\nTag:     ab\nNumber:  2\nName:    se\xC3\xA9"
              "cond\nComment: 0 bytes\n");
    EXPECT_EQ(Run("comment @ bas00002").strOutput, "two\nlines\n");
    const std::string strJson = Run("list @ --json").strOutput;
    EXPECT_THAT(strJson, testing::StartsWith("[\n  {\n    \"base\": \"PE\",\n    \"number\": 1,\n"));
    const COMMANDRESULT check = Run("check @");
    EXPECT_EQ(check.nExitCode, 1);
    EXPECT_EQ(
        check.strOutput,
        "bas00001.bva: whole\nbas00002.bva: whole\nown.bva: whole\nshort.bva: is shorter than a header\n");
}

TEST_F(ArchiveCommand, TakesDataOutAndIn) {
    const std::string strData("\0data\n", 6);
    EXPECT_EQ(Run("export @ bas00002 @data").nExitCode, 0);
    EXPECT_EQ(m_folder.Read("data"), strData);
    EXPECT_EQ(Run("export @ bas00002 -").strOutput, strData);
    m_folder.Write("data", "new");
    EXPECT_EQ(Run("import @ bas00002 @data").nExitCode, 0);
    EXPECT_EQ(m_folder.Read("bas00002.bva"),
              (CVariantFile{.strComment = "two\nlines", .strData = "new"}.Bytes()));
    const std::string strBefore = m_folder.Read("bas00002.bva");
    m_folder.Write("data", std::string(5000, 'x'));
    EXPECT_EQ(Run("import @ bas00002 @data", 4096).nExitCode, 2); // no room for the whole file
    EXPECT_EQ(m_folder.Read("bas00002.bva"), strBefore);
}

TEST_F(ArchiveCommand, RefusesWithOneLine) {
    m_folder.Write("bas00001.other", CVariantFile{}.Bytes());
    const std::pair<const char*, std::string> cases[] = {
        {"", "A subcommand is required"},
        {"list", "DIR is required"},
        {"list @none", "none: "},
        {"list @own.bva", "own.bva: is not a folder"},
        {"list @", "has variants of more than one extension; --extension says which"},
        {"show @ none --extension bva", "none.bva: is no variant of the archive"},
        {"show @ short --extension .bva", "short.bva: is no variant of the archive"},
        {"export @ bas00002 @none/x --extension bva", "none/x: cannot be written: its folder does not exist"},
        {"import @ bas00002 @none --extension bva", "none"},
    };
    for (const auto& [pszArguments, strMessage] : cases) {
        ExpectRefused(pszArguments, strMessage);
    }
}

} // namespace
