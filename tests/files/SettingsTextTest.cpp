#include "tessara/platform/files/settings/SettingsText.h"

#include <algorithm>
#include <map>
#include <random>
#include <sstream>

#include "tests/files/SettingsFolder.h"

using tessara::CSettingsText;
using tessara::IsSameName;
using tessara::SETTING;
using testing::ElementsAre;
using namespace std::string_literals;

namespace {

TEST(SettingsText, IsWrittenForPeople) {
    std::string strBytes;
    CSettingsText text(strBytes);
    text.Write("Archive", "LastBaseVariant", "/home/\xC3\xA4/PS \"a\".bas"s);
    text.Write("Preferences", "ShowWelcomeDialog", 1U);
    text.Write("Preferences\\Deep", "Left", static_cast<std::uint32_t>(-12));
    text.Write("Preferences", "", "default"s);
    text.Write("Archive", "a=b", "\n\r\t\\\x01\x7F\xFF\0"s);
    text.Write("A]B/C", " x", ""s);
    text.Write("", "[;", "root"s);
    EXPECT_EQ(strBytes, R"([Archive]
LastBaseVariant="/home/)"
                        "\xC3\xA4"
                        R"(/PS \"a\".bas"
"a=b"="\n\r\t\\\x01\x7F\xFF\x00"

[Preferences]
ShowWelcomeDialog=1
""="default"

[Preferences\Deep]
Left=-12

["A]B/C"]
" x"=""

[]
"[;"="root"
)");
}

/// Lines and what they mean, as "name: value" of the section "s".
TEST(SettingsText, ReadsWhatPeopleWriteAndLeavesOutTheRest) {
    const std::pair<std::string, std::string> lines[] = {
        {"a=1", "a: 1"},
        {"  a =\t1 \t", "a: 1"},
        {"a=4294967295", "a: 4294967295"},
        {"a=-2147483648", "a: 2147483648"},
        {"a=007", "a: 7"},
        {"a b = \"x\"", "a b: x"},
        {"\"a=\\\"\" = \"x;#\"", "a=\": x;#"},
        {"a=\"\x80\"", "a: \x80"},
        {"a=\"\\x41\\\\\"", "a: A\\"},
        {"\"\"=\"\"", ": "},
        {"a=4294967296", ""},
        {"a=-2147483649", ""},
        {"a=99999999999999999999", ""},
        {"a=+1", ""},
        {"a=0x1", ""},
        {"a=1 2", ""},
        {"a=x", ""},
        {"a=", ""},
        {"a", ""},
        {"=1", ""},
        {";a=1", ""},
        {"#a=1", ""},
        {"a=\"x", ""},
        {"a=\"x\"y", ""},
        {"a=\"x\\\"", ""},
        {"a=\"\\q\"", ""},
        {"a=\"\\x4\"", ""},
        {"a=\"\\xG1\"", ""},
        {"a=\"\\", ""},
        {"\"a=1", ""},
        {"\"a\"b=1", ""},
    };
    for (const auto& [strLine, strExpected] : lines) {
        for (const std::string strEnd : {"\n", "\r\n", ""}) {
            std::string strBytes = "[s]\n" + strLine + strEnd;
            const std::string strBefore = strBytes;
            CSettingsText text(strBytes);
            std::string strRead;
            for (const std::string& strName : text.ValueNames("S")) {
                const SETTING value = *text.Read("s", strName);
                const auto* pText = std::get_if<std::string>(&value);
                strRead += strName + ": " + (pText ? *pText : std::to_string(std::get<std::uint32_t>(value)));
            }
            EXPECT_EQ(strRead, strExpected) << strLine;
            text.Write("s", "new", 2U);
            text.Remove("s", "new");
            EXPECT_EQ(strBytes, strBefore + (strEnd.empty() && !strExpected.empty() ? "\n" : ""))
                << "nothing but a last line's end is added";
        }
    }
}

TEST(SettingsText, HeadersThatCannotBeReadHideWhatFollows) {
    for (const char* pszHeader : {"[a\\\\b]", "[\\a]", "[a\\]", "[a", "[\"a]", "[\"a\"b]", "[\"\\q\"]"}) {
        std::string strBytes = "[first]\nx=1\n" + std::string(pszHeader) + "\nx=2\ny=3\n";
        const std::string strBefore = strBytes;
        CSettingsText text(strBytes);
        EXPECT_THAT(text.Subkeys(""), ElementsAre("first")) << pszHeader;
        EXPECT_EQ(text.Read("first", "y"), std::nullopt);
        text.RemoveKey("first");
        EXPECT_EQ(strBytes, std::string(pszHeader) + "\nx=2\ny=3\n\n[]\n");
    }
    const std::string strLong(256, 'n');
    std::string strDeep = "d";
    for (int i = 1; i < 512; ++i) {
        strDeep += "\\d";
    }
    EXPECT_TRUE(CSettingsText::IsPath(strDeep));
    EXPECT_FALSE(CSettingsText::IsPath(strDeep + "\\d"));
    EXPECT_TRUE(CSettingsText::IsPath(strLong.substr(1)));
    EXPECT_FALSE(CSettingsText::IsPath(strLong));
}

TEST(SettingsText, ChangesTouchTheirOwnLineAlone) {
    const std::string strHead = "\xEF\xBB\xBF# mine\r\n\r\n [ s ] \r\n\ta = 1  \r\nwhat is this?\r\n";
    const std::string strTail = "; about t\r\n[t]\r\nb=\"x\"\r\n[S]\r\nA=3\r\nc=4";
    std::string strBytes = strHead + "\r\n" + strTail;
    CSettingsText text(strBytes);
    text.Write("s", "a", "new\r\n"s);
    const std::string strNewHead =
        "\xEF\xBB\xBF# mine\r\n\r\n [ s ] \r\n\ta = \"new\\r\\n\"  \r\nwhat is this?\r\n";
    EXPECT_EQ(strBytes, strNewHead + "\r\n" + strTail);
    text.Write("T", "B2", 5U);
    text.Write("s", "c", 6U);
    text.Write("s", "e", 7U);
    const std::string strNewTail = "; about t\r\n[t]\r\nb=\"x\"\r\nB2=5\r\n[S]\r\nA=3\r\nc=6";
    EXPECT_EQ(strBytes, strNewHead + "\r\n" + strNewTail + "\r\ne=7\r\n");
    EXPECT_TRUE(text.Remove("s", "A")) << "the hidden one too, or it would come back";
    EXPECT_EQ(text.Read("s", "a"), std::nullopt);
    EXPECT_FALSE(text.Remove("s", "a"));
    text.RemoveKey("s");
    EXPECT_EQ(strBytes,
              "\xEF\xBB\xBF# mine\r\n\r\nwhat is this?\r\n\r\n; about t\r\n[t]\r\nb=\"x\"\r\nB2=5\r\n");
}

TEST(SettingsText, AKeyIsThereWhileOneBelowItIsAndStaysWhenThatGoes) {
    std::string strBytes;
    CSettingsText text(strBytes);
    EXPECT_FALSE(text.HasKey(""));
    text.AddKey("A\\b\\c");
    text.AddKey("a\\B");
    EXPECT_EQ(strBytes, "[A\\b\\c]\n") << "it was there";
    EXPECT_TRUE(text.HasKey("") && text.HasKey("a") && text.HasKey("a\\B"));
    EXPECT_FALSE(text.HasKey("a\\") || text.HasKey("A\\b\\c\\d") || text.HasKey("A\\b\\"));
    text.Write("A\\B2", "x", 1U);
    text.Write("a/b", "x", 2U);
    text.Write("a_b", "x", 3U);
    EXPECT_THAT(text.Subkeys("A"), ElementsAre("b", "B2"));
    EXPECT_THAT(text.Subkeys(""), ElementsAre("A", "a/b", "a_b"));
    text.RemoveKey("a\\B\\c");
    EXPECT_TRUE(text.HasKey("A\\B"));
    EXPECT_THAT(text.Subkeys("A\\B"), ElementsAre());
    text.RemoveKey("A\\B");
    EXPECT_THAT(text.Subkeys("A"), ElementsAre("B2"));
}

std::string Lower(std::string str) {
    std::transform(str.begin(), str.end(), str.begin(),
                   [](char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch + 32) : ch; });
    return str;
}

/// Keys and values of any bytes against a plain map.
TEST(SettingsText, GivesBackAnyBytesAsAPlainModelDoes) {
    std::mt19937 random(11);
    const auto name = [&](std::size_t nMax, std::size_t nMin) {
        static const std::string s_alphabet = "aAbB=[];#\" '\t\r\n\0\x7F\x80\xC3\xA4\xEF\xBB\xBF/_%"s;
        std::string str;
        for (auto n = nMin + random() % (nMax - nMin + 1); n > 0; --n) {
            str += random() % 3 ? s_alphabet[random() % s_alphabet.size()] : "aAb"[random() % 3];
        }
        return str;
    };
    for (int nRound = 0; nRound < 60; ++nRound) {
        std::string strBytes = random() % 2 ? "" : "# by hand\r\n\r\nbroken";
        CSettingsText text(strBytes);
        std::map<std::pair<std::string, std::string>, SETTING> model;
        for (int nStep = 0; nStep < 60; ++nStep) {
            const std::string strKey = random() % 4 ? name(2, 1) : name(2, 1) + "\\" + name(2, 1);
            const std::string strName = name(3, 0);
            if (random() % 4 == 0) {
                const bool bKnown = model.erase({Lower(strKey), Lower(strName)}) > 0;
                ASSERT_EQ(text.Remove(strKey, strName), bKnown);
            } else {
                const SETTING value =
                    random() % 2 ? SETTING(name(6, 0)) : SETTING(static_cast<std::uint32_t>(random()));
                text.Write(strKey, strName, value);
                model[{Lower(strKey), Lower(strName)}] = value;
            }
        }
        std::string strCopy = strBytes;
        const CSettingsText again(strCopy);
        for (const auto& [key, value] : model) {
            ASSERT_EQ(again.Read(key.first, key.second), value) << testing::PrintToString(key);
        }
    }
}

std::vector<std::string> LinesOf(const std::string& strBytes) {
    std::vector<std::string> lines;
    std::istringstream stream(strBytes.substr(strBytes.starts_with("\xEF\xBB\xBF") ? 3 : 0));
    for (std::string strLine; std::getline(stream, strLine);) {
        lines.push_back(strLine);
    }
    return lines;
}

std::string DamagedFile(std::mt19937& random) {
    static const std::string s_pieces[] = {"[",
                                           "]",
                                           "\"",
                                           "\\",
                                           "=",
                                           "\n",
                                           "\r\n",
                                           ";",
                                           "#",
                                           " ",
                                           "a",
                                           "A",
                                           "1",
                                           "-2147483649",
                                           "\\x4",
                                           "\\x41",
                                           "[a]\n",
                                           "[a\\b]\n",
                                           "a=1\n",
                                           "\"a\"=\"b\"\n",
                                           "\xEF\xBB\xBF",
                                           "\x80",
                                           "\0"s,
                                           "[\"a\\\\b\"]\n",
                                           "a = \"x\\n\"  \r\n",
                                           "[]\n",
                                           "99999999999"};
    std::string strBytes;
    for (auto n = random() % 30; n > 0; --n) {
        strBytes += s_pieces[random() % std::size(s_pieces)];
    }
    if (!strBytes.empty() && random() % 2) {
        strBytes[random() % strBytes.size()] = static_cast<char>(random());
    }
    return strBytes;
}

TEST(SettingsText, DamagedFilesAreReadAndAWriteChangesOneLine) {
    const unsigned nRounds = RoundsFrom("TESSARA_SETTINGS_FUZZ", 5000);
    std::mt19937 random(3);
    for (unsigned nRound = 0; nRound < nRounds; ++nRound) {
        std::string strBytes = DamagedFile(random);
        CSettingsText text(strBytes);
        std::vector<std::string> keys = text.Subkeys("");
        for (std::size_t i = 0; i < keys.size(); ++i) {
            for (const std::string& strName : text.ValueNames(keys[i])) {
                ASSERT_TRUE(text.Read(keys[i], strName));
            }
            for (const std::string& strName : text.Subkeys(keys[i])) {
                keys.push_back(keys[i] + "\\" + strName);
            }
        }
        const std::string strKey = keys.empty() || random() % 4 == 0 ? "new" : keys[random() % keys.size()];
        const auto names = text.ValueNames(strKey);
        const std::string strName = names.empty() || random() % 2 ? "Name" : names[random() % names.size()];
        const auto old = LinesOf(strBytes);
        const bool bKnown = text.Read(strKey, strName).has_value();
        text.Write(strKey, strName, "\xFFnew"s);
        ASSERT_EQ(text.Read(strKey, strName), SETTING("\xFFnew"s)) << testing::PrintToString(old);
        const auto changed = LinesOf(strBytes);
        // One line is another or new, or lines of a new key follow the last.
        const auto [itOld, itNew] =
            std::mismatch(old.begin(), old.end(), changed.begin(), changed.end(),
                          [](const auto& a, const auto& b) { return a == b || a + "\r" == b; });
        if (bKnown) {
            ASSERT_EQ(old.size(), changed.size());
            ASSERT_TRUE(std::equal(itOld + 1, old.end(), itNew + 1, changed.end()));
        } else if (itOld != old.end()) {
            ASSERT_TRUE(changed.size() == old.size() + 1 &&
                        std::equal(itOld, old.end(), itNew + 1, changed.end()))
                << testing::PrintToString(old) << testing::PrintToString(changed);
        }
        std::string strAgain = strBytes;
        CSettingsText(strAgain).Write(strKey, strName, "\xFFnew"s);
        ASSERT_EQ(strAgain, strBytes);
    }
}

} // namespace
