#pragma once

#include <string>

#include "tessara/dialogs/MonomerAbbreviation.h"
#include "tessara/platform/base/Array.h"

namespace tessara {

/// The file "Monomers.ini" with the table of abbreviations: a profile file (docs/settings.md), which people
/// and other programs edit too. All in it that is not the table stays.
///
/// Section "List" has SortByName, NumberOfMonomers, and ShortName and FullName with the number of an entry
/// from 0 behind them. Values have at most 259 bytes; longer ones are cut when they are read, not inside a
/// UTF-8 character. Of a count that is far beyond what the file has only as much is believed. Failures throw
/// CFileException.
class CMonomerFile {
public:
    static constexpr std::size_t MAX_VALUE = 259;

    /// Beside the program's executable. Where that cannot be written, what is there is only read, and the
    /// user's own file takes its place from the first writing on.
    static CMonomerFile OfProgram();
    /// The same with these folders, which have a slash at their end.
    static CMonomerFile In(const std::string& strBeside, const std::string& strOfUser);
    /// A file that is read, and one that takes its place when it is written; they may be the same.
    CMonomerFile(std::string strRead, std::string strWritten)
        : m_strRead(std::move(strRead)), m_strWritten(std::move(strWritten)) {}

    /// Appends the entries, and says whether they are sorted by name. No file is an empty one.
    bool Read(CArray<CMonomerAbbreviation>& abbreviations) const;
    /// Replaces the file as a whole. Line ends in an entry are written as blanks.
    void Write(bool bSortByName, const CArray<CMonomerAbbreviation>& abbreviations) const;
    /// Where it is written.
    const std::string& GetPath() const { return m_strWritten; }

private:
    std::string m_strRead;
    std::string m_strWritten;
};

} // namespace tessara
