#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/platform/files/MemFile.h"

namespace {

TEST(Object, KnowsItsClassThroughItsBaseAndIsNotMadeByName) {
    const CMemFile file;
    const CObject& object = file;
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CMemFile)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CFile)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(object.IsKindOf(RUNTIME_CLASS(CCurve)));
    EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "CMemFile");
    EXPECT_EQ(object.GetRuntimeClass()->CreateObject(), nullptr);
}

} // namespace
