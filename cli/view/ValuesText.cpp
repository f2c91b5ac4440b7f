#include "cli/view/ValuesText.h"

#include <algorithm>
#include <cmath>

#include "cli/view/PlainText.h"

namespace tessara {

void CValuesText::AddColumn(const std::string& strName, std::vector<double> values) {
    std::string strClean = strName;
    std::replace_if(
        strClean.begin(), strClean.end(), [](unsigned char ch) { return ch < 0x20 || ch == 0x7F; }, ' ');
    m_columns.push_back({strClean, std::move(values)});
}

std::string CValuesText::Make() const {
    std::string strText;
    std::size_t nRows = 0;
    for (const COLUMNTEXT& column : m_columns) {
        strText += (strText.empty() ? "" : "\t") + column.strName;
        nRows = std::max(nRows, column.values.size());
    }
    strText += '\n';
    for (std::size_t nRow = 0; nRow < nRows; ++nRow) {
        std::string strLine;
        for (const COLUMNTEXT& column : m_columns) {
            strLine += &column == m_columns.data() ? "" : "\t";
            if (nRow < column.values.size() && !std::isnan(column.values[nRow])) {
                strLine += TextOfNumber(column.values[nRow]);
            }
        }
        strText += strLine + '\n';
    }
    return strText;
}

} // namespace tessara
