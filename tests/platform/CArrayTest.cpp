#include <gtest/gtest.h>

#include <vector>

#include "platform/CArray.h"
#include "platform/CStringArray.h"

namespace {

std::vector<int> Of(const CArray<int, int>& a) { return std::vector<int>(a.GetData(), a.GetData() + a.GetSize()); }

TEST(CArrayTest, SetSizeZeroFillsAndKeepsGrowBy) {
    CArray<int, int> a;
    a.SetSize(3, 25);
    EXPECT_EQ(Of(a), (std::vector<int>{0, 0, 0}));
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
    EXPECT_EQ(Of(a), (std::vector<int>{1, 2}));
    try {
        a[7];
        ADD_FAILURE();
    } catch (const CInvalidArgException& e) {
        EXPECT_STREQ(e.what(), "CArray::operator[](): index 7 out of range");
    }
}

TEST(CArrayTest, InsertInsideShiftsAndPastTheEndGrows) {
    CArray<int, int> a;
    a.Add(1);
    a.Add(3);
    a.InsertAt(1, 2);
    a.InsertAt(5, 9);
    EXPECT_EQ(Of(a), (std::vector<int>{1, 2, 3, 0, 0, 9}));
    a.RemoveAt(0, 2);
    a.SetAtGrow(5, 4);
    EXPECT_EQ(Of(a), (std::vector<int>{3, 0, 0, 9, 0, 4}));
}

TEST(CArrayTest, AddOfOwnElementSurvivesReallocationAndCopiesAppend) {
    CArray<CString, const CString&> a;
    a.Add(CString(L"first element long enough to live on the heap"));
    for (int i = 0; i < 100; ++i) a.Add(a[0]);
    EXPECT_EQ(a[100], a[0]);
    CStringArray s, t;
    s.Add(L"a");
    s.Add(L"b");
    t.Copy(s);
    t.Append(s);
    ASSERT_EQ(t.GetSize(), 4);
    EXPECT_EQ(t[3], CString(L"b"));
    t.RemoveAll();
    EXPECT_TRUE(t.IsEmpty());
    EXPECT_EQ(t.GetCapacity(), 0);
}

}  // namespace
