#include "tessara/dialogs/MonomerFile.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <unistd.h>
#include <unordered_map>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/files/SharedFile.h"
#include "tessara/platform/files/settings/ProfileText.h"
#include "tessara/platform/ui/frames/ProgramFolder.h"

namespace tessara {

namespace {

constexpr const char* FILE_NAME = "Monomers.ini";
constexpr const char* SECTION = "List";
constexpr const char* SORT_BY_NAME = "SortByName";
constexpr const char* COUNT = "NumberOfMonomers";
constexpr const char* SHORT_NAME = "ShortName";
constexpr const char* FULL_NAME = "FullName";
/// A file may lack keys of entries that it counts, but a count alone must not fill the memory.
constexpr int MAX_MISSING = 10000;

bool IsThere(const std::string& strPath) {
    return access(strPath.c_str(), F_OK) == 0;
}

std::string InLowerCase(CString strKey) {
    strKey.MakeLower();
    return std::string(strKey.View());
}

/// The values of the section by their keys.
class CValues {
public:
    explicit CValues(std::string strBytes) {
        for (auto& [strKey, strValue] : CProfileText(strBytes).Values(SECTION)) {
            m_values.emplace(InLowerCase(strKey.c_str()), std::move(strValue));
        }
    }

    int Number(const char* pszKey) const { return static_cast<int>(ProfileNumber(Find(pszKey))); }
    CString Text(const std::string& strKey) const {
        const std::string_view str = Find(strKey);
        return CString(CutText(str.substr(0, str.find('\0')), CMonomerFile::MAX_VALUE));
    }
    /// At least as many entries as there are keys of them.
    int MostEntries() const { return static_cast<int>(m_values.size()) + MAX_MISSING; }

private:
    std::string_view Find(const std::string& strKey) const {
        const auto it = m_values.find(InLowerCase(strKey.c_str()));
        return it == m_values.end() ? std::string_view() : it->second;
    }

    std::unordered_map<std::string, std::string> m_values;
};

std::string OnOneLine(const CString& str) {
    std::string strLine(str.View());
    std::replace_if(
        strLine.begin(), strLine.end(), [](char ch) { return ch == '\n' || ch == '\r'; }, ' ');
    return strLine;
}

CIniValues ValuesOf(bool bSortByName, const CArray<CMonomerAbbreviation>& abbreviations) {
    CIniValues values = {{SORT_BY_NAME, bSortByName ? "1" : "0"},
                         {COUNT, std::to_string(abbreviations.GetSize())}};
    for (int i = 0; i < abbreviations.GetSize(); ++i) {
        values.emplace_back(SHORT_NAME + std::to_string(i), OnOneLine(abbreviations[i].m_strShortName));
        values.emplace_back(FULL_NAME + std::to_string(i), OnOneLine(abbreviations[i].m_strFullName));
    }
    return values;
}

} // namespace

CMonomerFile CMonomerFile::OfProgram() {
    return In(FolderOfExecutable(), UserDataFolder());
}

CMonomerFile CMonomerFile::In(const std::string& strBeside, const std::string& strOfUser) {
    const std::string strProgram = strBeside + FILE_NAME;
    const bool bWritable = !IsThere(strProgram) || access(strProgram.c_str(), W_OK) == 0;
    if (bWritable && CanWriteIn(strBeside)) {
        return {strProgram, strProgram};
    }
    const std::string strUser = strOfUser + FILE_NAME;
    return {IsThere(strUser) ? strUser : strProgram, strUser};
}

bool CMonomerFile::Read(CArray<CMonomerAbbreviation>& abbreviations) const {
    const CValues values(CSharedFile(m_strRead).Read());
    const int nEntries = std::min(values.Number(COUNT), values.MostEntries());
    for (int i = 0; i < nEntries; ++i) {
        abbreviations.Add(CMonomerAbbreviation(values.Text(SHORT_NAME + std::to_string(i)),
                                               values.Text(FULL_NAME + std::to_string(i))));
    }
    return values.Number(SORT_BY_NAME) != 0;
}

void CMonomerFile::Write(bool bSortByName, const CArray<CMonomerAbbreviation>& abbreviations) const {
    std::error_code error; // what is not made is told by the writing
    std::filesystem::create_directories(std::filesystem::path(m_strWritten).parent_path(), error);
    CSharedFile(m_strWritten).Update([&](std::string& strBytes) {
        if (m_strRead != m_strWritten && strBytes.empty()) {
            strBytes = CSharedFile(m_strRead).Read(); // with what else is in it
        }
        CProfileText(strBytes).SetAll(SECTION, ValuesOf(bSortByName, abbreviations));
    });
}

} // namespace tessara
