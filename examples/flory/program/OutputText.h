#pragma once

#include <string>

namespace flory {

/// Writes a text as a file that is there as a whole or, after an exception, as it was before. Throws
/// CException that names the file.
void WriteText(const std::string& strPath, const std::string& strText);

/// Throws the same CException where WriteText would, before long work is done for nothing.
void CheckWritable(const std::string& strPath);

} // namespace flory
