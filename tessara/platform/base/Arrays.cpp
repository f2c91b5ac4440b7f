#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/ObArray.h"
#include "tessara/platform/base/StringArray.h"

IMPLEMENT_DYNAMIC(CObArray, CObject)
IMPLEMENT_DYNAMIC(CDWordArray, CObject)
IMPLEMENT_DYNAMIC(CStringArray, CObject)
