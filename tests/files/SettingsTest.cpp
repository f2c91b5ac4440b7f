#include "tessara/platform/files/settings/Settings.h"

#include <filesystem>

#include "tessara/platform/files/settings/OldSettings.h"
#include "tests/files/SettingsFolder.h"

using tessara::CSettings;
using tessara::SETTING;
using testing::ElementsAre;
using namespace std::string_literals;

namespace {

/// As Qt 6.4 wrote it: strings, then one value each of other kinds.
constexpr std::string_view OLD_FILE = R"([General]
top=root value

[%General]
Empty=
x=" \"q\\ \t\n\x1\x41)"
                                      "\x7F"
                                      R"( 0 "

[Recent%20File%20List]
File1=/home/)"
                                      "\xC3\xA4"
                                      R"( b/c.txt
File2="/a, b/c;d=e.txt"

[S%25]
Gr%F6%DFe=)"
                                      "\xC2\xB5"
                                      R"(
a%3Db%5Bc%5D%3B=@@at
bytes=@ByteArray(\0\xff\x61\x62\")
list=a b, "c,d", e
none=@Invalid()
number=7
point=@Point(1 2)
zero=@String(\0\x31)
%U03A9%UD834%UDD1E=x

[Viewer]
Left=-12
)";

TEST(OldSettings, AreReadAsQtWroteThem) {
    std::vector<std::string> read;
    for (const auto& old : tessara::ReadOldSettings(OLD_FILE)) {
        read.push_back(old.strSection + "|" + old.strName + "|" + old.strValue);
    }
    EXPECT_THAT(read, ElementsAre("|top|root value", "General|Empty|",
                                  "General|x| \"q\\ \t\n\x01"
                                  "A\x7F 0 ",
                                  "Recent File List|File1|/home/\xC3\xA4 b/c.txt",
                                  "Recent File List|File2|/a, b/c;d=e.txt",
                                  "S%|Gr\xC3\xB6\xC3\x9F"
                                  "e|\xC2\xB5",
                                  "S%|a=b[c];|@at",
                                  "S%|bytes|\0\xFF"
                                  "ab\""s,
                                  "S%|list|a b, c,d, e", "S%|number|7", "S%|point|@Point(1 2)",
                                  "S%|zero|\0"
                                  "1"s,
                                  "S%|\xCE\xA9\xF0\x9D\x84\x9E|x", "Viewer|Left|-12"));
}

TEST(OldSettings, OfDamagedFilesAreReadAsFarAsTheyGo) {
    const std::pair<std::string, std::string> lines[] = {{"a=\"x", "a|x"},
                                                         {"a=x\\", "a|x"},
                                                         {"a=\\x", "a|x"},
                                                         {"a=\\777777", "a|\xC7\xBF"
                                                                        "777"},
                                                         {"%=1", "%|1"},
                                                         {"%U12=1", "\x12|1"},
                                                         {"%XY=1", "%XY|1"},
                                                         {"a=@B(", "a|@B("},
                                                         {"a=,,", "a|, , "},
                                                         {"a=@ByteArray()", "a|"},
                                                         {"=1", "|1"},
                                                         {"a", ""},
                                                         {"[", ""},
                                                         {"a=@", "a|@"},
                                                         {"a=\xFF", "a|\xFF"},
                                                         {"%UD834=1", "\xEF\xBF\xBD|1"},
                                                         {"a=\" x \"  ", "a| x "},
                                                         {"a=\" \"b  ,c", "a| b, c"}};
    for (const auto& [strLine, strExpected] : lines) {
        std::string strRead;
        for (const auto& old : tessara::ReadOldSettings(strLine)) {
            strRead += old.strName + "|" + old.strValue;
        }
        EXPECT_EQ(strRead, strExpected) << strLine;
    }
}

class Settings : public CSettingsFolder {
protected:
    void WriteOld(const std::string& strBytes) const {
        std::filesystem::create_directories(m_folder.Path("config/M_a"));
        m_folder.Write("config/M_a/App.ini", strBytes);
    }
    std::string File() const { return m_folder.Read("config/M/tessara.settings"); }

    const CSettings m_settings{"M\\a", "App"};
};

TEST_F(Settings, OfAnEarlierVersionAreTakenOverWithTheFirstChangeAndOnce) {
    WriteOld("[Viewer]\nLeft=-12\nTop=3\n");
    EXPECT_EQ(m_settings.Read("Viewer", "Left"), SETTING("-12"s));
    EXPECT_EQ(File(), "") << "reading makes nothing";
    EXPECT_TRUE(m_settings.Remove("Viewer", "Top"));
    EXPECT_EQ(File(), "[a\\App\\Viewer]\nLeft=\"-12\"\n");
    WriteOld("[Viewer]\nLeft=1\nTop=2\nNew=3\n");
    EXPECT_EQ(m_settings.Read("Viewer", "Left"), SETTING("-12"s));
    EXPECT_EQ(m_settings.Read("Viewer", "Top"), std::nullopt);
    EXPECT_EQ(m_settings.Read("Viewer", "New"), std::nullopt);
    EXPECT_TRUE(m_settings.Remove("Viewer", "Left"));
    EXPECT_EQ(m_settings.Read("Viewer", "Left"), std::nullopt);
}

TEST_F(Settings, SectionsAreKeysAndDifferWhereTheirNamesDo) {
    const char* const sections[] = {"A\\B", "A_B", "A/B", "A", "", "%", "[A]", "A=B"};
    for (const char* pszSection : sections) {
        EXPECT_TRUE(m_settings.Write(pszSection, "n", "\xFF"s + pszSection));
    }
    for (const char* pszSection : sections) {
        EXPECT_EQ(m_settings.Read(pszSection, "n"), SETTING("\xFF"s + pszSection)) << pszSection;
    }
    EXPECT_EQ(m_settings.Read("a\\\\b\\", "N"), SETTING("\xFF"
                                                        "A\\B"s))
        << "no name counts as none";
    EXPECT_FALSE(m_settings.Write(std::string(300, 's'), "n", 1U));
    EXPECT_EQ(m_settings.Read(std::string(300, 's'), "n"), std::nullopt);
    EXPECT_EQ(CSettings("", "").Read("", "n"), std::nullopt);
    EXPECT_FALSE(CSettings("", "").Write("", "n", 1U));
}

TEST_F(Settings, AChangeOfSeveralValuesIsOne) {
    EXPECT_TRUE(m_settings.Update("S", [](CSettings::CSection& section) {
        section.Write("a", 1U);
        section.Write("b", "x"s);
        section.Remove("a");
        EXPECT_EQ(section.Read("b"), SETTING("x"s));
    }));
    EXPECT_EQ(File(), "[a\\App\\S]\nb=\"x\"\n");
    EXPECT_EQ(tessara::SettingText(static_cast<std::uint32_t>(-1)), "-1");
}

} // namespace
