#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tessara/platform/base/String.h"

// The INI files in which earlier versions kept settings, as Qt wrote them.
//
// They held strings alone. Names have %XX for a character below 256 and %UXXXX for half of a UTF-16 pair;
// values are in quotes where need be, with the escapes of C; lists have commas between their items.

namespace tessara {

struct OLDSETTING {
    std::string strSection;
    std::string strName;
    std::string strValue;
};

/// Where the file of an application lies; empty where there is no home.
std::string OldSettingsPath(const CString& strMaker, const CString& strApplication);

/// The values of a file, in its order. Total: of what Qt would not have written as much is read as makes
/// sense. The items of a list are joined by ", ", and of other kinds of values their text is taken.
std::vector<OLDSETTING> ReadOldSettings(std::string_view strBytes);

} // namespace tessara
