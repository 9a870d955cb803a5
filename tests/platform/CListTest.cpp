#include <gtest/gtest.h>

#include "platform/CList.h"
#include "platform/CMapStringToOb.h"

namespace {

TEST(CListTest, PositionsWalkBothWaysAndSurviveOtherRemovals) {
    CList<int, int> l;
    POSITION p1 = l.AddTail(1);
    POSITION p2 = l.AddTail(2);
    l.AddTail(3);
    l.AddHead(0);
    l.RemoveAt(p1);
    EXPECT_EQ(l.GetAt(p2), 2);
    std::vector<int> seen;
    for (POSITION p = l.GetHeadPosition(); p;) seen.push_back(l.GetNext(p));
    EXPECT_EQ(seen, (std::vector<int>{0, 2, 3}));
    seen.clear();
    for (POSITION p = l.GetTailPosition(); p;) seen.push_back(l.GetPrev(p));
    EXPECT_EQ(seen, (std::vector<int>{3, 2, 0}));
    l.InsertAfter(p2, 5);
    l.InsertBefore(p2, 4);
    EXPECT_EQ(l.GetCount(), 5);
    EXPECT_EQ(l.GetAt(l.Find(5)), 5);
    EXPECT_EQ(l.Find(42), nullptr);
    EXPECT_EQ(l.RemoveHead(), 0);
    EXPECT_EQ(l.RemoveTail(), 3);
    EXPECT_EQ(l.GetHead(), 4);
}

TEST(CListTest, EmptyListAccessThrows) {
    CList<int, int> l;
    EXPECT_THROW(l.GetHead(), CInvalidArgException);
    EXPECT_THROW(l.RemoveTail(), CInvalidArgException);
    POSITION p = nullptr;
    EXPECT_THROW(l.GetNext(p), CInvalidArgException);
}

TEST(CMapStringToObTest, KeysAreExactAndCaseSensitive) {
    CTypedStringMap<int*> m(10);
    int a = 1, b = 2;
    m.SetAt(L"key", &a);
    m.SetAt(L"Key", &b);
    int* out = nullptr;
    EXPECT_TRUE(m.Lookup(L"key", out));
    EXPECT_EQ(out, &a);
    EXPECT_FALSE(m.Lookup(L"key ", out));
    m.SetAt(L"key", &b);
    EXPECT_EQ(m.GetCount(), 2);
    EXPECT_TRUE(m.RemoveKey(L"key"));
    EXPECT_FALSE(m.RemoveKey(L"key"));
}

}  // namespace
