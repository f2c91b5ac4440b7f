#include "tessara/document/BaseFile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/PendingVariant.h"
#include "tests/cli/Folder.h"
#include "tests/document/VariantFiles.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> LinesOf(const std::vector<ARCHIVEENTRY>& entries) {
    std::vector<std::string> lines;
    for (const ARCHIVEENTRY& entry : entries) {
        lines.push_back(std::string(entry.szFileTitle) + " " + entry.szBaseName + " " +
                        std::to_string(entry.nVariantNumber) + " " + entry.szVariantName + " " +
                        entry.szBaseTag);
    }
    return lines;
}

class Archive : public ::testing::Test {
protected:
    void TearDown() override { KeepArchive(Directory()); }
    std::vector<ARCHIVEENTRY> List() const { return CArchiveFolder(Directory().c_str(), "bva").List(); }
    std::string Directory() const { return m_folder.Path(""); }

    CFolder m_folder;
};

TEST_F(Archive, ListsWhatIsAVariantByBaseAndNumber) {
    EXPECT_TRUE(CBaseFile::IsArchiveEmpty(Directory().c_str(), "bva"));
    EXPECT_TRUE(CBaseFile::IsArchiveEmpty(m_folder.Path("none/").c_str(), "bva"));
    m_folder.Write("bas00001.bva", CVariantFile{.strBase = "b", .nNumber = 1, .strName = "x"}.Bytes());
    m_folder.Write("own.bva",
                   CVariantFile{.strBase = "b", .nNumber = 0, .strName = "y", .strTag = "ab"}.Bytes());
    m_folder.Write("bas00007.bva", CVariantFile{.strBase = "B", .nNumber = 9}.Bytes());
    EXPECT_THAT(LinesOf(List()), ElementsAre("bas00007 B 9 first ", "own b 0 y ab", "bas00001 b 1 x "));
    EXPECT_FALSE(CBaseFile::IsArchiveEmpty(Directory().c_str(), "bva"));
    EXPECT_EQ(NextTitle(List()), "bas00008");
    m_folder.Write("bas99999.bva", CVariantFile{}.Bytes());
    EXPECT_EQ(NextTitle(List()), "bas00001"); // titles have no more digits; what is taken is passed over
}

TEST_F(Archive, LeavesOutWhatIsNoPlainFileOrNoVariantAndWaitsForNothing) {
    const std::string strBytes = CVariantFile{}.Bytes();
    const std::string strReal = m_folder.Write("elsewhere", strBytes);
    const auto put = [&](const char* pszName, std::size_t nOffset, const std::string& strChange) {
        std::string strDamaged = strBytes;
        m_folder.Write(pszName, strDamaged.replace(nOffset, strChange.size(), strChange));
    };
    ASSERT_EQ(symlink(strReal.c_str(), m_folder.Path("link.bva").c_str()), 0);
    ASSERT_EQ(mkfifo(m_folder.Path("pipe.bva").c_str(), 0600), 0);
    ASSERT_EQ(mkdir(m_folder.Path("folder.bva").c_str(), 0700), 0);
    m_folder.Write("ninechars.bva", strBytes);
    m_folder.Write(".bva", strBytes);
    m_folder.Write("upper.BVA", strBytes);
    m_folder.Write("short.bva", strBytes.substr(0, 289));
    m_folder.Write("empty.bva", "");
    m_folder.Write("noname.bva", CVariantFile{.strBase = ""}.Bytes());
    put("sign.bva", 0, "x");
    put("version.bva", 4, std::string(1, '\0'));
    put("base.bva", 6, std::string(129, 'x'));
    put("tag.bva", 135, "xxx");
    put("name.bva", 142, std::string(18, 'x'));
    put("comment.bva", 160, "\xFF\xFF");
    EXPECT_THAT(LinesOf(List()), IsEmpty());
    EXPECT_FALSE(CBaseFile::IsArchiveEmpty(Directory().c_str(), "bva"));
    for (const CArchiveFinding& finding : CArchiveFolder(Directory().c_str(), "bva").Check()) {
        EXPECT_NE(finding.strFault, "") << finding.strName;
    }
    m_folder.Write("first.bva", strBytes);
    m_folder.Write("second.bva", strBytes);
    m_folder.Write("third.bva",
                   CVariantFile{.nNumber = 1, .strComment = "cut off", .strData = ""}.Bytes().substr(0, 292));
    std::map<std::string, std::string> faults;
    for (const CArchiveFinding& finding : CArchiveFolder(Directory().c_str(), "bva").Check()) {
        faults[finding.strName] = finding.strFault;
    }
    EXPECT_EQ(faults.at("first.bva"), "");
    EXPECT_EQ(faults.at("second.bva"), "has the Base and number of first.bva");
    EXPECT_EQ(faults.at("third.bva"), "ends before its comment does");
    EXPECT_EQ(faults.at("version.bva"), "is of version 1.0");
    EXPECT_EQ(faults.at("link.bva"), "is not a plain file");
}

TEST_F(Archive, EachChangedByteOfAHeaderIsReadAsItStandsOrLeftOut) {
    const std::string strBytes = CVariantFile{.nNumber = 3, .strComment = "notes", .strTag = "ab"}.Bytes();
    CVariantHeader::CBytes header;
    for (std::size_t nByte = 0; nByte < CVariantHeader::SIZE; ++nByte) {
        for (int nChange = 1; nChange < 256; ++nChange) {
            std::copy_n(strBytes.begin(), header.size(), header.begin());
            header[nByte] = static_cast<BYTE>(header[nByte] ^ nChange);
            const auto parsed = CVariantHeader::Parse(header);
            const bool bIdentity = nByte < 6;
            const bool bNegativeLength = nByte == 161 && (nChange & 0x80);
            const bool bUnended = nByte == 137;
            const bool bNameless = nByte == 6 && nChange == 'P';
            ASSERT_EQ(parsed.has_value(), !bIdentity && !bNegativeLength && !bUnended && !bNameless)
                << nByte << " ^ " << nChange;
        }
    }
}

TEST_F(Archive, AHeaderIsWrittenByteForByteAndCutAtCharacters) {
    CVariantHeader header;
    header.strBaseName = "PS-CH";
    header.strBaseTag = "ab";
    header.strVariantName = "first";
    header.nVariantNumber = 258;
    header.nCommentLength = 12;
    const auto bytes = header.Format();
    const std::string strExpected =
        CVariantFile{.nNumber = 258, .strComment = "twelve bytes", .strTag = "ab", .strData = ""}.Bytes();
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), strExpected.substr(0, 290));
    header.strVariantName = "fifteen letters\xC3\xA9";
    header.strBaseName = std::string(200, 'x');
    const auto cut = CVariantHeader::Parse(header.Format());
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->strVariantName, "fifteen letters");
    EXPECT_EQ(cut->strBaseName, std::string(128, 'x'));
}

TEST_F(Archive, AFileHidesItsHeaderAndComment) {
    const std::string strBytes = CVariantFile{.nNumber = 4, .strComment = "twelve bytes"}.Bytes();
    const std::string strPath = m_folder.Write("bas00001.bva", strBytes);
    CBaseFile file;
    EXPECT_EQ(file.Open(m_folder.Path("none.bva").c_str(), 1, FALSE), 0);
    EXPECT_EQ(file.Open(strPath.c_str(), 3, FALSE), 0);
    ASSERT_NE(file.Open(strPath.c_str(), 1, FALSE), 0);
    EXPECT_EQ(file.m_dwDataOffset, 302U);
    char data[5] = {};
    EXPECT_EQ(file.Read(data, 5), 4U);
    EXPECT_STREQ(data, "data");
    EXPECT_EQ(file.GetNumber(), 4);
    EXPECT_EQ(file.GetPosition(), 306U);
    EXPECT_EQ(file.Seek(0, CFile::begin), 302);
    EXPECT_EQ(file.Seek(-5, CFile::current), 302);
    file.SeekToEnd();
    file.SeekToBegin();
    EXPECT_EQ(file.GetPosition(), 302U);
    file.Close();

    ASSERT_NE(file.Open(strPath.c_str(), 2, FALSE), 0);
    file.SetLength(0);
    EXPECT_EQ(m_folder.Read("bas00001.bva"), strBytes); // until it is closed
    file.Close();
    EXPECT_EQ(m_folder.Read("bas00001.bva"), strBytes.substr(0, 302));
}

TEST_F(Archive, WhatIsNoWholeVariantIsNotOpenedAndNotWaitedFor) {
    using namespace std::string_literals;
    const std::string strBytes = CVariantFile{.strComment = "c", .strData = ""}.Bytes();
    const auto changed = [&](std::size_t nOffset, const std::string& strChange) {
        return std::string(strBytes).replace(nOffset, strChange.size(), strChange);
    };
    const std::map<std::string, std::string> files = {
        {"short", strBytes.substr(0, 289)},           {"byte", "x"},
        {"base", changed(6, std::string(129, 'x'))},  {"tag", changed(135, "xyz")},
        {"name", changed(142, std::string(18, 'x'))}, {"long", changed(160, "\2")},
        {"minus", changed(160, "\xFF\xFF")}};
    for (const auto& [strName, strContent] : files) {
        m_folder.Write(strName, strContent);
    }
    ASSERT_EQ(mkfifo(m_folder.Path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(symlink("pipe", m_folder.Path("link").c_str()), 0);
    ASSERT_EQ(symlink("/dev/zero", m_folder.Path("device").c_str()), 0);
    const std::vector<std::string> before = m_folder.List();
    CBaseFile file;
    for (const std::string& strName : before) {
        for (const int nMode : {1, 2}) {
            CFileException error;
            EXPECT_EQ(file.Open(m_folder.Path(strName).c_str(), nMode, FALSE, &error), 0) << strName;
            const int nCause =
                files.contains(strName) ? CFileException::genericException : CFileException::accessDenied;
            EXPECT_EQ(error.m_cause, nCause) << strName;
        }
    }
    EXPECT_EQ(m_folder.List(), before); // and nothing unfinished
    // Of an empty file nothing is missing, a name is what only a listing needs, and a link leads somewhere.
    ASSERT_NE(file.Open(m_folder.Write("empty", "").c_str(), 1, FALSE), 0);
    EXPECT_EQ(file.GetNumber(), -1);
    m_folder.Write("whole", changed(0, "foreign"s + '\0'));
    ASSERT_EQ(symlink("whole", m_folder.Path("way").c_str()), 0);
    EXPECT_NE(file.Open(m_folder.Path("way").c_str(), 1, FALSE), 0);
    EXPECT_EQ(file.m_dwDataOffset, 291U);
}

TEST_F(Archive, ANewVariantTakesTheNextNumberThatIsFree) {
    const CArchiveFolder folder(Directory().c_str(), "bva");
    CVariantHeader header;
    header.strBaseName = "PS-CH";
    header.strVariantName = "new";
    const CPendingVariant pending(CPendingVariant::EKind::creating, folder, "bas00001", header,
                                  "twelve bytes");
    CBaseFile file;
    ASSERT_NE(file.Open(pending.GetPath().c_str(), 2, FALSE), 0);
    EXPECT_EQ(file.m_dwDataOffset, 302U);
    file.Write("data", 4);
    m_folder.Write("bas00001.bva", "somebody else's");
    m_folder.Write("bas00002.bva", "");
    file.Close();
    EXPECT_EQ(pending.GetPath(), m_folder.Path("bas00003.bva"));
    EXPECT_EQ(m_folder.Read("bas00003.bva"),
              (CVariantFile{.strName = "new", .strComment = "twelve bytes"}.Bytes()));
    EXPECT_EQ(m_folder.Read("bas00001.bva"), "somebody else's");
}

TEST_F(Archive, WhatIsNotClosedLeavesTheOldVariant) {
    const std::string strOld = CVariantFile{}.Bytes();
    m_folder.Write("bas00001.bva", strOld);
    const CArchiveFolder folder(Directory().c_str(), "bva");
    const CPendingVariant pending(CPendingVariant::EKind::replacing, folder, "bas00001", {}, "");
    {
        CBaseFile file;
        ASSERT_NE(file.Open(pending.GetPath().c_str(), 2, FALSE), 0);
        file.Write("new", 3);
    }
    EXPECT_EQ(m_folder.Read("bas00001.bva"), strOld);
    EXPECT_THAT(m_folder.List(), ElementsAre("bas00001.bva"));
}

} // namespace

} // namespace tessara
