#pragma once

#include "tessara/platform/base/Array.h"

/// An array of 32-bit unsigned numbers, colours for example. New elements that are not given are 0.
class TESSARA_API CDWordArray : public CArray<DWORD, DWORD> {
    DECLARE_DYNAMIC(CDWordArray)
};
