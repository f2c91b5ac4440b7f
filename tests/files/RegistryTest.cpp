#include "tessara/platform/files/settings/Registry.h"

#include <cstring>
#include <filesystem>
#include <sys/stat.h>

#include "tessara/platform/files/settings/RegKey.h"
#include "tests/files/SettingsFolder.h"
#include "tests/support/PlainUser.h"

using testing::ElementsAre;
using namespace std::string_literals;

namespace {

class Registry : public CSettingsFolder {
protected:
    /// Writes what a person might.
    void Edit(const std::string& strFolder, const std::string& strBytes) const {
        std::filesystem::create_directories(m_folder.Path("config/" + strFolder));
        m_folder.Write("config/" + strFolder + "/tessara.settings", strBytes);
    }
    std::string File(const std::string& strFolder) const {
        return m_folder.Read("config/" + strFolder + "/tessara.settings");
    }
};

std::vector<std::string> SubkeysOf(HKEY hKey) {
    std::vector<std::string> names;
    char name[256];
    for (DWORD nLength = sizeof name; RegEnumKeyEx(hKey, static_cast<DWORD>(names.size()), name, &nLength,
                                                   nullptr, nullptr, nullptr, nullptr) == 0;
         nLength = sizeof name) {
        names.emplace_back(name, nLength);
    }
    return names;
}

/// Values as "name=text" or "name:number".
std::vector<std::string> ValuesOf(HKEY hKey) {
    std::vector<std::string> values;
    char name[100];
    BYTE data[100];
    DWORD dwType = REG_NONE;
    for (DWORD i = 0, nName = sizeof name, nData = sizeof data;
         RegEnumValue(hKey, i, name, &nName, nullptr, &dwType, data, &nData) == 0;
         ++i, nName = sizeof name, nData = sizeof data) {
        DWORD nValue = 0;
        std::memcpy(&nValue, data, sizeof nValue);
        values.push_back(std::string(name, nName) +
                         (dwType == REG_SZ ? "=" + std::string(reinterpret_cast<char*>(data), nData - 1)
                                           : ":" + std::to_string(nValue)));
    }
    return values;
}

TEST_F(Registry, OpeningAndReadingMakeNothing) {
    CRegKey key;
    EXPECT_EQ(key.Open(HKEY_CURRENT_USER, "None\\Preferences", KEY_ALL_ACCESS), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key.DeleteSubKey("None"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegDeleteKey(HKEY_CURRENT_USER, "None\\Preferences"), ERROR_FILE_NOT_FOUND);
    EXPECT_THAT(SubkeysOf(HKEY_CURRENT_USER), ElementsAre());
    EXPECT_THAT(m_folder.List(), ElementsAre());
}

TEST_F(Registry, CreatingTellsWhetherTheKeyIsNewAndAFailedOpeningKeepsTheKey) {
    CRegKey key;
    unsigned long dwDisposition = 0;
    EXPECT_EQ(key.Create(HKEY_CURRENT_USER, "Maker\\App\\Deep", nullptr, 0, KEY_ALL_ACCESS, nullptr,
                         &dwDisposition),
              0);
    EXPECT_EQ(dwDisposition, REG_CREATED_NEW_KEY);
    EXPECT_EQ(key.SetValue("x", "Name"), 0);
    EXPECT_EQ(
        key.Create(HKEY_CURRENT_USER, "MAKER\\app\\", nullptr, 0, KEY_ALL_ACCESS, nullptr, &dwDisposition),
        0);
    EXPECT_EQ(dwDisposition, REG_OPENED_EXISTING_KEY);
    EXPECT_THAT(SubkeysOf(key), ElementsAre("Deep"));
    const HKEY hKey = key;
    EXPECT_EQ(key.Open(HKEY_CURRENT_USER, "Maker\\None", KEY_READ), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(static_cast<HKEY>(key), hKey);
    EXPECT_EQ(key.Open(key, "deep", KEY_READ), 0);
    EXPECT_EQ(RegCloseKey(hKey), ERROR_INVALID_HANDLE) << "closed with the new opening";
    EXPECT_THAT(ValuesOf(key), ElementsAre("Name=x"));
    EXPECT_EQ(File("Maker"), "[App\\Deep]\nName=\"x\"\n");
    EXPECT_THAT(SubkeysOf(HKEY_CURRENT_USER), ElementsAre("Maker"));
}

TEST_F(Registry, ValuesHaveTypesAndSizes) {
    CRegKey key;
    ASSERT_EQ(key.Create(HKEY_CURRENT_USER, "K"), 0);
    EXPECT_EQ(key.SetValue("text", "s"), 0);
    EXPECT_EQ(key.SetValue(0x1'8000'0001UL, "n"), 0);
    EXPECT_EQ(key.SetValue(static_cast<const char*>(nullptr)), 0);
    unsigned long nValue = 5;
    DWORD nWord = 5;
    EXPECT_EQ(key.QueryValue(nValue, "s"), ERROR_UNSUPPORTED_TYPE);
    EXPECT_EQ(key.QueryValue(nValue, "none"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(nValue, 5U);
    EXPECT_EQ(key.QueryValue(nValue, "N"), 0);
    EXPECT_EQ(key.QueryValue(nWord, "n"), 0);
    EXPECT_TRUE(nValue == 0x80000001 && nWord == 0x80000001);
    char buffer[6] = "#####";
    unsigned long nCount = 4;
    EXPECT_EQ(key.QueryValue(buffer, "s", &nCount), ERROR_MORE_DATA);
    EXPECT_EQ(nCount, 5U);
    nCount = 6;
    EXPECT_EQ(key.QueryValue(buffer, "n", &nCount), ERROR_UNSUPPORTED_TYPE);
    EXPECT_STREQ(buffer, "#####");
    EXPECT_EQ(key.QueryValue(buffer, "s", &nCount), 0);
    EXPECT_STREQ(buffer, "text");
    EXPECT_EQ(nCount, 5U);
    EXPECT_EQ(key.QueryValue(nullptr, "", &nCount), 0);
    EXPECT_EQ(nCount, 1U) << "the default value is empty";

    const BYTE bytes[] = {'a', 0, 'b'};
    EXPECT_EQ(RegSetValueEx(key, "zero", 0, REG_SZ, bytes, 3), 0);
    EXPECT_EQ(RegSetValueEx(key, "x", 0, REG_DWORD, bytes, 3), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegSetValueEx(key, "x", 0, REG_SZ, nullptr, 3), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegSetValueEx(key, "x", 0, 3, bytes, 3), ERROR_NOT_SUPPORTED);
    EXPECT_THAT(ValuesOf(key), ElementsAre("s=text", "n:2147483649", "=", "zero=a\0b"s));
    char name[4];
    DWORD nLength = 4;
    EXPECT_EQ(RegEnumValue(key, 3, name, &nLength, nullptr, nullptr, nullptr, nullptr), ERROR_MORE_DATA);
    EXPECT_EQ(RegEnumValue(key, 4, name, &nLength, nullptr, nullptr, nullptr, nullptr), ERROR_NO_MORE_ITEMS);
    EXPECT_EQ(key.DeleteValue("S"), 0);
    EXPECT_EQ(key.DeleteValue("S"), ERROR_FILE_NOT_FOUND);
}

TEST_F(Registry, DeletingTakesKeysWithoutSubkeysOrAllFromTheDeepest) {
    CRegKey key;
    for (const char* pszPath : {"M\\A\\1\\x", "M\\A\\2", "M\\A_1", "M\\A/1", "M\\B"}) {
        EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, pszPath, "v", "n"), 0);
    }
    CRegKey deep;
    ASSERT_EQ(deep.Open(HKEY_CURRENT_USER, "M\\A\\1\\x"), 0);
    ASSERT_EQ(key.Open(HKEY_CURRENT_USER, "M"), 0);
    EXPECT_EQ(key.DeleteSubKey("A"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(key.RecurseDeleteKey(""), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(key.RecurseDeleteKey("none"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key.RecurseDeleteKey("a"), 0);
    EXPECT_THAT(SubkeysOf(key), ElementsAre("A_1", "A/1", "B"));
    EXPECT_EQ(deep.SetValue("v", "n"), ERROR_KEY_DELETED);
    char name[9];
    DWORD nLength = sizeof name;
    EXPECT_EQ(RegEnumKeyEx(deep, 0, name, &nLength, nullptr, nullptr, nullptr, nullptr), ERROR_KEY_DELETED);
    EXPECT_EQ(key.SetKeyValue("A\\1\\x", "back", "n"), 0);
    EXPECT_THAT(ValuesOf(deep), ElementsAre("n=back"));
    CRegKey root;
    ASSERT_EQ(root.Open(HKEY_CURRENT_USER, nullptr), 0);
    EXPECT_EQ(root.RecurseDeleteKey("m"), 0);
    EXPECT_THAT(SubkeysOf(root), ElementsAre());
    EXPECT_EQ(root.SetValue("v", "n"), ERROR_ACCESS_DENIED) << "the root has no values";
}

TEST_F(Registry, HandlesHaveRightsAndAreNotUsedAgain) {
    CRegKey key;
    ASSERT_EQ(key.Create(HKEY_CURRENT_USER, "K\\Sub"), 0);
    CRegKey reader;
    ASSERT_EQ(reader.Open(HKEY_CURRENT_USER, "K", KEY_READ), 0);
    EXPECT_EQ(reader.SetValue(1, "n"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(reader.SetKeyValue("New", "v"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(reader.DeleteValue("n"), ERROR_ACCESS_DENIED);
    EXPECT_THAT(SubkeysOf(reader), ElementsAre("Sub"));
    CRegKey writer;
    ASSERT_EQ(writer.Open(HKEY_CURRENT_USER, "K", KEY_WRITE), 0);
    DWORD nValue = 0;
    EXPECT_EQ(writer.SetValue(1, "n"), 0);
    EXPECT_EQ(writer.QueryValue(nValue, "n"), ERROR_ACCESS_DENIED);
    {
        const CRegKey copy = writer; // both close it
    }
    EXPECT_EQ(writer.SetValue(2, "n"), ERROR_INVALID_HANDLE);
    ASSERT_EQ(key.Open(HKEY_CURRENT_USER, "K", KEY_ALL_ACCESS), 0);
    EXPECT_EQ(writer.Close(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(writer.Close(), ERROR_SUCCESS) << "none was held";
    EXPECT_EQ(key.QueryValue(nValue, "n"), 0) << "still open";
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), 0);
    EXPECT_EQ(RegOpenKeyEx(reinterpret_cast<HKEY>(&key), "", 0, 0, nullptr), ERROR_INVALID_HANDLE);
}

TEST_F(Registry, EachKeyBelowTheRootIsAFileWhateverItsName) {
    for (const char* pszName : {"..", "a/b", "a%2Fb", "\xFF", " ",
                                "Gr\xC3\xB6\xC3\x9F"
                                "e"}) {
        EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, pszName, pszName), 0) << pszName;
    }
    EXPECT_THAT(SubkeysOf(HKEY_CURRENT_USER), ElementsAre(" ", "..", "\xFF",
                                                          "Gr\xC3\xB6\xC3\x9F"
                                                          "e",
                                                          "a%2Fb", "a/b"));
    EXPECT_EQ(File("%2E."), "[]\n\"\"=\"..\"\n");
    Edit("MyProgram", "[S]\na=1\n");
    m_folder.Write("config/MYPROGRAM", "no folder, and before it");
    EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, "myprogram\\s", "2", "A"), 0);
    EXPECT_EQ(File("MyProgram"), "[S]\na=\"2\"\n");
    for (const char* pszBad : {"\\a", "a\\\\b", "\\\\", "a\\b\\\\"}) {
        EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, pszBad, "v"), ERROR_BAD_PATHNAME) << pszBad;
    }
    EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, std::string(256, 'n').c_str(), "v"), ERROR_BAD_PATHNAME);
}

TEST_F(Registry, FilesThatCannotBeReadOrWrittenGiveAStatusAndStay) {
    CRegKey key;
    const std::string strUtf16 = "\xFF\xFE[\0a\0]\0"s;
    Edit("Wide", strUtf16);
    EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, "Wide", "v"), ERROR_BADDB);
    EXPECT_EQ(key.Open(HKEY_CURRENT_USER, "Wide"), ERROR_BADDB);
    EXPECT_EQ(File("Wide"), strUtf16);
    Edit("Closed", "[]\nn=1\n");
    chmod(m_folder.Path("config/Closed").c_str(), 0555);
    EXPECT_EQ(AsPlainUser([&] {
                  DWORD nValue = 0;
                  const long nOpened = key.Open(HKEY_CURRENT_USER, "Closed", KEY_ALL_ACCESS);
                  const long nRead = key.QueryValue(nValue, "n");
                  return std::to_string(nOpened) + " " + std::to_string(nRead) + " " +
                         std::to_string(nValue) + " " + std::to_string(key.SetValue(2, "n"));
              }),
              "0 0 1 5");
    chmod(m_folder.Path("config/Closed").c_str(), 0755);
    setenv("XDG_CONFIG_HOME", "/proc/none", 1);
    EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, "K", "v"), ERROR_FILE_NOT_FOUND);
    setenv("XDG_CONFIG_HOME", "relative", 1);
    setenv("HOME", m_folder.Path("home").c_str(), 1);
    EXPECT_EQ(CRegKey::SetValue(HKEY_CURRENT_USER, "K", "v"), 0);
    EXPECT_EQ(m_folder.Read("home/.config/K/tessara.settings"), "[]\n\"\"=\"v\"\n");
}

} // namespace
