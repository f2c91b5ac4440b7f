#pragma once

#include "tessara/platform/base/Array.h"

/// An array of pointers to objects, which belong to someone else. New elements that are not given are null.
class TESSARA_API CObArray : public CArray<CObject*, CObject*> {
    DECLARE_DYNAMIC(CObArray)
};
