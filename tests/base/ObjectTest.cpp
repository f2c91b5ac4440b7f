#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"
#include "tessara/numeric/TableReference.h"
#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/ObArray.h"
#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/files/MemFile.h"

namespace {

struct CClassCase {
    CRuntimeClass* pClass;
    const char* pszName;
    CRuntimeClass* pBase;
};

TEST(Object, EveryClassIsNamedHasItsBaseAndIsNotMadeByName) {
    const CClassCase cases[] = {
        {RUNTIME_CLASS(CCurve), "CCurve", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CMultiCurve), "CMultiCurve", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CTable), "CTable", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CTableReference), "CTableReference", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CMultipartTable), "CMultipartTable", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CMultipartCurve), "CMultipartCurve", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CObArray), "CObArray", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CDWordArray), "CDWordArray", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CStringArray), "CStringArray", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CFile), "CFile", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CMemFile), "CMemFile", RUNTIME_CLASS(CFile)},
    };
    for (const CClassCase& item : cases) {
        EXPECT_STREQ(item.pClass->m_lpszClassName, item.pszName);
        EXPECT_EQ(item.pClass->m_pBaseClass, item.pBase) << item.pszName;
        EXPECT_EQ(item.pClass->m_wSchema, 0xFFFFU) << item.pszName;
        EXPECT_EQ(item.pClass->CreateObject(), nullptr) << item.pszName;
    }
}

TEST(Object, KnowsItsClassThroughItsBase) {
    CMemFile file;
    const CObject& object = file;
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CMemFile)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CFile)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(object.IsKindOf(RUNTIME_CLASS(CCurve)));
    EXPECT_FALSE(object.IsSerializable());
}

} // namespace
