#pragma once

#include <string>
#include <vector>

namespace flory {

/// Adds a line of numbers with tabs between them, each with all its digits.
void AppendRow(std::string& strText, const std::vector<double>& row);

/// Writes a text as a file that is there as a whole or, after an exception, as it was before. Throws
/// CException that names the file.
void WriteText(const std::string& strPath, const std::string& strText);

/// Throws the same CException where WriteText would, before long work is done for nothing.
void CheckWritable(const std::string& strPath);

} // namespace flory
