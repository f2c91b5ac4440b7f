#pragma once

#include "tessara/platform/base/StringArray.h"

namespace tessara {

enum class ELinesRead { read, unreadable, tooLarge };

/// Reads the lines of a text file, without their ends; what fails leaves none.
///
/// A line ends with LF or CR LF, and the last one may have no end, or the CR of one. Where a file has no LF
/// at all, CR ends its lines. A UTF-8 byte order mark is not read as text. A text in UTF-16, which its byte
/// order mark tells, becomes UTF-8. All other bytes stay as they are, zeros too.
///
/// What is no plain file (a folder, a pipe, a device) is unreadable. A file is too large with more than 512
/// MB or 16 million lines, and where the memory does not suffice: every line costs a string of its own.
ELinesRead ReadLines(const char* pszPath, CStringArray& lines);

} // namespace tessara
