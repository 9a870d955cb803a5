#include <gtest/gtest.h>

#include "platform/CArray.h"
#include "platform/CStringArray.h"

namespace {

TEST(CArrayTest, SetSizeZeroFillsAndKeepsGrowBy) {
    CArray<int, int> a;
    a.SetSize(3, 25);
    EXPECT_EQ(a.GetSize(), 3);
    EXPECT_EQ(a[0] + a[1] + a[2], 0);
    EXPECT_EQ(a.GetGrowBy(), 25);
    EXPECT_GE(a.GetCapacity(), 25);
    a.SetSize(1, -1);  // -1 keeps the grow-by
    EXPECT_EQ(a.GetGrowBy(), 25);
    EXPECT_EQ(a.GetCount(), 1);
}

TEST(CArrayTest, IndexErrorsThrowAndLeaveTheArrayAlone) {
    CArray<int, int> a;
    a.Add(1);
    a.Add(2);
    EXPECT_THROW(a[2], CInvalidArgException);
    EXPECT_THROW(a[-1], CInvalidArgException);
    EXPECT_THROW(a.SetAt(2, 5), CInvalidArgException);
    EXPECT_THROW(a.RemoveAt(1, 2), CInvalidArgException);
    EXPECT_THROW(a.ElementAt(5), CInvalidArgException);
    EXPECT_THROW(a.SetAtGrow(-1, 5), CInvalidArgException);
    EXPECT_THROW(a.InsertAt(-1, 5), CInvalidArgException);
    ASSERT_EQ(a.GetSize(), 2);
    EXPECT_EQ(a[0], 1);
    EXPECT_EQ(a[1], 2);
    try {
        a[7];
    } catch (const CInvalidArgException& e) {
        EXPECT_STREQ(e.what(), "CArray::operator[](): index 7 out of range");
    }
}

TEST(CArrayTest, InsertInsideShiftsAndPastTheEndGrows) {
    CArray<int, int> a;
    a.Add(1);
    a.Add(3);
    a.InsertAt(1, 2);
    ASSERT_EQ(a.GetSize(), 3);
    EXPECT_EQ(a[1], 2);
    EXPECT_EQ(a[2], 3);
    a.InsertAt(5, 9);
    ASSERT_EQ(a.GetSize(), 6);
    EXPECT_EQ(a[3], 0);
    EXPECT_EQ(a[5], 9);
    a.RemoveAt(0, 2);
    EXPECT_EQ(a[0], 3);
    a.SetAtGrow(7, 4);
    EXPECT_EQ(a.GetSize(), 8);
    EXPECT_EQ(a[7], 4);
}

TEST(CArrayTest, AddOfOwnElementSurvivesReallocation) {
    CArray<CString, const CString&> a;
    a.Add(CString(L"first element long enough to live on the heap"));
    for (int i = 0; i < 100; ++i) a.Add(a[0]);
    EXPECT_EQ(a[100], a[0]);
}

TEST(CArrayTest, CopyAppendAndRemoveAll) {
    CStringArray s;
    s.Add(L"a");
    s.Add(L"b");
    CStringArray t;
    t.Copy(s);
    t.Append(s);
    ASSERT_EQ(t.GetSize(), 4);
    EXPECT_EQ(t[3], CString(L"b"));
    t.RemoveAll();
    EXPECT_TRUE(t.IsEmpty());
    EXPECT_EQ(t.GetCapacity(), 0);
}

}  // namespace
