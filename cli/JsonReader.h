#pragma once

#include <string>
#include <string_view>

#include "cli/JsonSlot.h"

namespace tessara {

/// Reads a JSON text into a slot. strFile stands for the file in messages.
///
/// Throws CInputError at the first problem, with its line and character and, for a value that the slots
/// refuse, its JSON pointer: "d.json:12:5: /binodal/0/y/3: must be a number or null, not a text". Refused too
/// are a key that is unknown or appears twice, a number beyond all doubles, text that is not valid UTF-8, and
/// more than 64 levels. What was read before stays in the slots' variables.
void ReadJson(std::string_view strText, const std::string& strFile, CJsonSlot& root);

} // namespace tessara
