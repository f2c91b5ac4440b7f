#pragma once

#include "tessara/platform/base/Array.h"
#include "tessara/platform/base/String.h"

/// An array of strings. New elements that are not given are empty.
class TESSARA_API CStringArray : public CArray<CString> {
    DECLARE_DYNAMIC(CStringArray)
};
