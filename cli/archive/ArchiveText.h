#pragma once

#include <string>
#include <vector>

#include "tessara/document/ArchiveFolder.h"

namespace tessara {

/// A text of a file as UTF-8 of one line: control characters become blanks.
std::string ToLine(const std::string& strBytes);

/// A table of variants with a head, a line each.
std::string VariantTable(const std::vector<ARCHIVEENTRY>& entries);
/// The same as a JSON array of objects.
std::string VariantJson(const std::vector<ARCHIVEENTRY>& entries);

/// All of a header, a line each.
std::string HeaderText(const CVariantHeader& header);

} // namespace tessara
