#include "cli/ColumnFile.h"

#include <algorithm>
#include <numeric>

#include "cli/ColumnParser.h"
#include "cli/InputError.h"
#include "cli/TextFile.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

template <class TYPE>
void Rearrange(std::vector<TYPE>& values, const std::vector<std::size_t>& order) {
    std::vector<TYPE> arranged;
    arranged.reserve(values.size());
    for (const std::size_t nRow : order) {
        arranged.push_back(values[nRow]);
    }
    values.swap(arranged);
}

} // namespace

CColumnFile CColumnFile::Read(const std::string& strPath, const COLUMNFORMAT& format) {
    return Parse(ReadTextFile(strPath), strPath, format);
}

CColumnFile CColumnFile::Parse(std::string_view strText, const std::string& strName,
                               const COLUMNFORMAT& format) {
    return CColumnParser(strText, strName, format).Parse();
}

CColumnFile CColumnFile::FromColumns(const std::string& strName, COLUMN abscissa,
                                     std::vector<COLUMN> functions) {
    CColumnFile file;
    file.m_strName = strName;
    file.m_Lines.resize(abscissa.m_Values.size());
    std::iota(file.m_Lines.begin(), file.m_Lines.end(), 1);
    file.m_Abscissa = std::move(abscissa);
    file.m_Functions = std::move(functions);
    return file;
}

void CColumnFile::CheckAscending() const {
    const std::vector<double>& x = m_Abscissa.m_Values;
    const auto end = std::is_sorted_until(x.begin(), x.end());
    if (end == x.end()) {
        return;
    }
    const auto nRow = static_cast<std::size_t>(end - x.begin());
    throw CInputError(m_strName, m_Lines[nRow], m_Abscissa.nNumber,
                      FormatText("the abscissa %.15g is below the %.15g before it; --sort sorts the rows",
                                 x[nRow], x[nRow - 1]));
}

void CColumnFile::Sort() {
    const std::vector<double>& x = m_Abscissa.m_Values;
    std::vector<std::size_t> order(x.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return x[a] < x[b]; });
    Rearrange(m_Abscissa.m_Values, order);
    for (COLUMN& column : m_Functions) {
        Rearrange(column.m_Values, order);
    }
    Rearrange(m_Lines, order);
}

} // namespace tessara
