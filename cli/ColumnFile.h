#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/ColumnChoice.h"
#include "cli/Delimiter.h"

namespace tessara {

/// How a file of columns is read.
struct COLUMNFORMAT {
    std::optional<CDelimiter> delimiter; ///< detected when there is none
    CColumnChoice choice;
};

/// One chosen column of a file.
struct COLUMN {
    int nNumber;                  ///< its place in the file, from 1
    std::string strName;          ///< from the header; empty without one
    std::vector<double> m_Values; ///< one for each row; not-a-number is a gap
};

/// The chosen columns of a text file, row by row.
///
/// The file holds lines of fields, as many in every line. Lines that start with '#' and blank lines are
/// passed over. The first other line is a header when one of its chosen fields is a text and none is a
/// number. The first chosen column is the abscissa, whose values are finite; the others are values, in which
/// "NA", "nan", "inf" and empty fields are gaps. Errors are thrown as CInputError, with the line and the
/// column.
///
///     CColumnFile file = CColumnFile::Read("chi.txt", {});
///     file.CheckAscending();
///     Plot(file.GetAbscissa().m_Values, file.GetFunctions());
class CColumnFile {
public:
    static CColumnFile Read(const std::string& strPath, const COLUMNFORMAT& format);
    /// The same for a text in memory; strName stands for the file in messages.
    static CColumnFile Parse(std::string_view strText, const std::string& strName,
                             const COLUMNFORMAT& format);
    /// Columns that come from no file; row i counts as line i + 1. All have the same length.
    static CColumnFile FromColumns(const std::string& strName, COLUMN abscissa,
                                   std::vector<COLUMN> functions);

    const std::string& GetName() const { return m_strName; }
    int GetNumRows() const { return static_cast<int>(m_Lines.size()); }
    const COLUMN& GetAbscissa() const { return m_Abscissa; }
    /// At least one.
    const std::vector<COLUMN>& GetFunctions() const { return m_Functions; }

    /// Throws CInputError for the first row whose abscissa is below the one before. Equal neighbours are
    /// allowed.
    void CheckAscending() const;
    /// Sorts the rows by their abscissae; rows with equal ones keep their order.
    void Sort();

private:
    friend class CColumnParser;
    CColumnFile() = default;

    std::string m_strName;
    COLUMN m_Abscissa;
    std::vector<COLUMN> m_Functions;
    std::vector<int> m_Lines; ///< the line of each row
};

} // namespace tessara
