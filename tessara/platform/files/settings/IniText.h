#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tessara {

/// An entry's line, taken apart.
struct INIENTRY {
    std::string strName;
    std::string_view strValue; ///< as it stands, a part of the line
};

/// Names of entries with their values.
using CIniValues = std::vector<std::pair<std::string, std::string>>;

/// How names and values are written in one kind of INI file. Lines come without their end and without blanks
/// around.
class CIniSyntax {
public:
    virtual ~CIniSyntax() = default;

    /// The name of the section that a line begins with '['; nothing where it cannot be read.
    virtual std::optional<std::string> ReadHeader(std::string_view strLine) const = 0;
    /// The entry of any other line; nothing for comments and for what cannot be read.
    virtual std::optional<INIENTRY> ReadEntry(std::string_view strLine) const = 0;
    virtual std::string WriteHeader(std::string_view strSection) const = 0;
    virtual std::string WriteName(std::string_view strName) const = 0;
};

/// The bytes of an INI file, read and changed in place: a change touches the lines of its entry or section
/// and no other byte. Comments, order, unreadable lines, a byte order mark and the kind of line ends stay as
/// they are.
///
/// Names compare without regard to the case of ASCII letters. Entries before the first section are those of
/// the section "". Sections of one name are one section, of entries of one name the first counts. What
/// follows a header that cannot be read belongs to no section. Total for any bytes; each operation passes
/// over the text once or twice.
///
/// Known libraries for such files normalise what they keep: they drop lines that they cannot read, join
/// sections of one name and write line ends and blanks of their own.
class CIniText {
public:
    /// Both live longer than the object.
    CIniText(const CIniSyntax& syntax, std::string& strBytes) : m_syntax(syntax), m_strBytes(strBytes) {}

    /// An entry's value as it stands.
    std::optional<std::string> Find(std::string_view strSection, std::string_view strName) const;
    /// Replaces the value in its line, or adds a line to the section, which is made where there is none.
    void Set(std::string_view strSection, std::string_view strName, std::string_view strValue);
    /// The same for several entries of different names, in one pass over the text.
    void SetAll(std::string_view strSection, const CIniValues& values);
    /// Removes all entries of that name. Returns whether there was one.
    bool Remove(std::string_view strSection, std::string_view strName);

    /// Adds a header at the end.
    void AddSection(std::string_view strSection);
    /// Removes headers and entries; comments and unreadable lines stay.
    void RemoveSection(std::string_view strSection);

    /// The names of sections that have a header or entries, each once, in the file's order.
    std::vector<std::string> Sections() const;
    /// The names of a section's entries, each once, in the file's order.
    std::vector<std::string> Entries(std::string_view strSection) const;
    /// These entries, with their values as they stand.
    CIniValues Values(std::string_view strSection) const;

private:
    struct PLACE {
        std::size_t nPosition;
        std::size_t nLength;
    };

    struct FOUND {
        std::vector<std::optional<PLACE>> values; ///< of each name, the first
        /// Where a line can be added: after the section's last header or entry, so that what is said above
        /// the next section stays there.
        std::optional<std::size_t> end;
    };

    FOUND Look(std::string_view strSection, const CIniValues& wanted) const;
    void Replace(std::vector<std::pair<PLACE, std::string_view>> changes);
    void InsertLine(std::size_t nPosition, const std::string& strLine);
    bool IsLastLineBlank() const;
    std::string_view LineEnd() const;

    const CIniSyntax& m_syntax;
    std::string& m_strBytes;
};

/// Whether two names are the same but for the case of ASCII letters.
bool IsSameName(std::string_view strA, std::string_view strB);

/// Without the blanks, tabs and carriage returns around it.
std::string_view Trimmed(std::string_view str);

/// Names in the order in which they came, each once.
class CNameList {
public:
    /// False for a name that is there already.
    bool Add(std::string_view strName);
    std::vector<std::string> Take() { return std::move(m_names); }

private:
    std::vector<std::string> m_names;
    std::unordered_set<std::string> m_known; ///< in lower case
};

} // namespace tessara
