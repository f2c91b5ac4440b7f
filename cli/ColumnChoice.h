#pragma once

#include <string>
#include <vector>

namespace tessara {

/// Which columns of a file are read, in which order: the first is the abscissa. An empty choice takes all.
class CColumnChoice {
public:
    CColumnChoice() = default;
    /// strList is "A,B,...": numbers from 1, or names from the header. strOption names the option in
    /// messages. Throws CException when an entry is empty or there are fewer than two.
    CColumnChoice(const std::string& strOption, const std::string& strList);

    bool IsEmpty() const { return m_Entries.empty(); }
    /// True when a column is chosen by name, so that the file must have a header.
    bool NeedsHeader() const;

    /// The chosen columns of a file, counted from 0. `fields` is its first row, found in line nLine.
    /// Throws CInputError for a name or number that the row does not have.
    std::vector<int> Resolve(const std::vector<std::string>& fields, const std::string& strFile,
                             int nLine) const;

private:
    std::vector<std::string> m_Entries;
};

} // namespace tessara
