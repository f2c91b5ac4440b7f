#include "tessara/platform/files/settings/ProfileFile.h"

#include "tests/files/SettingsFolder.h"

using testing::ElementsAre;
using namespace std::string_literals;

namespace {

class ProfileFile : public testing::Test {
protected:
    std::string Get(const char* pszSection, const char* pszKey, DWORD nSize = 260,
                    const char* pszDefault = "none") const {
        std::string strBuffer(nSize + 1, '#');
        const DWORD nLength =
            GetPrivateProfileString(pszSection, pszKey, pszDefault, strBuffer.data(), nSize, Path().c_str());
        EXPECT_LT(nLength, nSize);
        EXPECT_EQ(strBuffer[nLength], '\0');
        EXPECT_EQ(strBuffer[nSize], '#') << "beyond the buffer";
        return strBuffer.substr(0, nLength);
    }
    int GetInt(const char* pszKey) const {
        return static_cast<int>(GetPrivateProfileInt("List", pszKey, -7, Path().c_str()));
    }
    BOOL Write(const char* pszSection, const char* pszKey, const char* pszValue) const {
        return WritePrivateProfileString(pszSection, pszKey, pszValue, Path().c_str());
    }
    std::string Path() const { return m_folder.Path("Monomers.ini"); }

    const CFolder m_folder;
};

TEST_F(ProfileFile, ATableIsWrittenReadAndShortened) {
    EXPECT_EQ(Get("List", "FullName0"), "none");
    EXPECT_EQ(GetInt("NumberOfMonomers"), -7);
    EXPECT_THAT(m_folder.List(), ElementsAre());
    EXPECT_TRUE(Write("List", "SortByName", "0"));
    EXPECT_TRUE(Write("List", "NumberOfMonomers", "1"));
    EXPECT_TRUE(Write("List", "ShortName0", "S"));
    EXPECT_TRUE(Write("List", "FullName0", "Styrene"));
    EXPECT_TRUE(Write("list", "numberofmonomers", "0"));
    EXPECT_EQ(m_folder.Read("Monomers.ini"),
              "[List]\nSortByName=0\nNumberOfMonomers=0\nShortName0=S\nFullName0=Styrene\n");
    EXPECT_EQ(GetInt("NumberOfMonomers"), 0);
    EXPECT_TRUE(Write("List", "FullName0", nullptr));
    EXPECT_TRUE(Write("List", nullptr, nullptr));
    EXPECT_EQ(m_folder.Read("Monomers.ini"), "");
    EXPECT_THAT(m_folder.List(), ElementsAre("Monomers.ini"));
}

TEST_F(ProfileFile, OtherLinesAndLineEndsStay) {
    m_folder.Write("Monomers.ini", "; mine\r\nloose=1\r\n[ List ] ; here\r\n a = \" x "
                                   "\"\r\nbroken\r\nb='y'\r\n;c=2\r\n\r\n[Other]\r\na=3");
    EXPECT_EQ(Get("List", "a"), " x ");
    EXPECT_EQ(Get("List", "B"), "y");
    EXPECT_EQ(Get("List", ";c"), "none");
    EXPECT_EQ(Get("Other", "a"), "3");
    EXPECT_TRUE(Write("List", "B", "z"));
    EXPECT_TRUE(Write("List", "d", "4"));
    EXPECT_EQ(m_folder.Read("Monomers.ini"), "; mine\r\nloose=1\r\n[ List ] ; here\r\n a = \" x "
                                             "\"\r\nbroken\r\nb=z\r\nd=4\r\n;c=2\r\n\r\n[Other]\r\na=3");
}

TEST_F(ProfileFile, ValuesComeBackAsTheyWere) {
    for (const char* pszValue :
         {"", " ", "\"", "\"x\"", "'x'", "'", "a;b=c", "\xFF\x80", "\t x\r", "\"a\" and \"b\""}) {
        EXPECT_TRUE(Write("List", "k", pszValue));
        EXPECT_EQ(Get("List", "k"), pszValue);
    }
    EXPECT_FALSE(Write("List", "k", "a\nb"));
    for (const char* pszKey : {"", "a=b", " a", ";a", "[a", "a\nb"}) {
        EXPECT_FALSE(Write("List", pszKey, "x")) << pszKey;
    }
    EXPECT_FALSE(Write("a]", "k", "x") || Write("a\n", "k", "x") || Write(nullptr, "k", "x"));
    EXPECT_FALSE(WritePrivateProfileString("List", "k", "x", m_folder.Path("none/a").c_str()));
    EXPECT_FALSE(WritePrivateProfileString("List", "k", "x", nullptr));
    EXPECT_EQ(m_folder.Read("Monomers.ini"), "[List]\nk=\"\"a\" and \"b\"\"\n");
}

TEST_F(ProfileFile, WhatDoesNotFitIsCutBeforeAWholeCharacter) {
    Write("List", "long", std::string(300, 'x').c_str());
    EXPECT_EQ(Get("List", "long"), std::string(259, 'x'));
    Write("List", "e", "a\xE2\x82\xAC");
    EXPECT_EQ(Get("List", "e", 5), "a\xE2\x82\xAC");
    EXPECT_EQ(Get("List", "e", 4), "a");
    EXPECT_EQ(Get("List", "e", 1), "");
    EXPECT_EQ(Get("List", "none", 9, "default  "), "default");
    EXPECT_EQ(Get("List", "none", 9, nullptr), "");
    EXPECT_EQ(Get("List", nullptr), "long\0e"s);
    EXPECT_EQ(Get("List", nullptr, 8), "long\0e"s);
    EXPECT_EQ(Get("List", nullptr, 7), "long");
    EXPECT_EQ(Get("List", nullptr, 1), "");
    EXPECT_EQ(Get(nullptr, nullptr), "List");
    EXPECT_EQ(Get("none", nullptr), "");
}

TEST_F(ProfileFile, OneInUtf16IsNotSpoilt) {
    const std::string strUtf16 = "\xFF\xFE[\0L\0]\0"s;
    m_folder.Write("Monomers.ini", strUtf16);
    EXPECT_FALSE(Write("L", "k", "x"));
    EXPECT_EQ(m_folder.Read("Monomers.ini"), strUtf16);
}

TEST_F(ProfileFile, NumbersAreWhatAValueBeginsWith) {
    m_folder.Write("Monomers.ini", "[List]\na=12abc\nb=-5\nc=x\nd=\nE=\"+3\"\nf=4294967297\n");
    EXPECT_EQ(GetInt("a"), 12);
    EXPECT_EQ(GetInt("b"), -5);
    EXPECT_EQ(GetInt("c"), 0);
    EXPECT_EQ(GetInt("d"), 0);
    EXPECT_EQ(GetInt("e"), 3);
    EXPECT_EQ(GetInt("f"), 1);
    EXPECT_EQ(GetInt("g"), -7);
}

} // namespace
