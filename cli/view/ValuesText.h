#pragma once

#include <string>
#include <vector>

namespace tessara {

/// Columns of numbers side by side as text: a line of names, then lines of tab-separated numbers with all
/// their digits. What is not a number, and what a shorter column lacks, is empty.
class CValuesText {
public:
    /// Control characters in names become blanks.
    void AddColumn(const std::string& strName, std::vector<double> values);
    std::string Make() const;

private:
    struct COLUMNTEXT {
        std::string strName;
        std::vector<double> values;
    };
    std::vector<COLUMNTEXT> m_columns;
};

} // namespace tessara
