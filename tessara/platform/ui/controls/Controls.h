#pragma once

#include <memory>

class CWnd;

namespace tessara {

/// A new object of the class that goes with a control's class name; a CWnd for any other name.
std::unique_ptr<CWnd> MakeControlObject(const char* pszClass);

} // namespace tessara
