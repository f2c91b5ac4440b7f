#include "tessara/phasediagram/MathList.h"

IMPLEMENT_DYNCREATE(CMathList, CListBox)
