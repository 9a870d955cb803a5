#include <gtest/gtest.h>

#include "platform/CException.h"
#include "render/CVCache.h"

namespace {

int g_nDeleted = 0;

class CountedElement : public CVCacheElement {
public:
    explicit CountedElement(const CString& key) : CVCacheElement(key) {}
    ~CountedElement() override { ++g_nDeleted; }
};

TEST(CVCacheTest, ElementsAreSharedByKeyAndFreedWithTheirLastUser) {
    g_nDeleted = 0;
    CVCache cache;
    int ownerA = 0, ownerB = 0;
    EXPECT_EQ(cache.Acquire(L"tex.png", &ownerA), nullptr);
    CVCacheElement* e = cache.Add(new CountedElement(L"tex.png"), &ownerA);
    EXPECT_EQ(cache.Acquire(L"tex.png", &ownerB), e);
    EXPECT_EQ(cache.Acquire(L"tex.png", &ownerB), e);  // a user counts once
    EXPECT_EQ(e->GetUserCount(), 2);
    EXPECT_EQ(cache.Find(L"TEX.png"), nullptr);  // keys are exact
    EXPECT_EQ(cache.Release(e, &ownerA), 0);
    EXPECT_EQ(g_nDeleted, 0);
    EXPECT_EQ(cache.Release(e, &ownerB), 1);
    EXPECT_EQ(g_nDeleted, 1);
    EXPECT_EQ(cache.GetCount(), 0);
    EXPECT_EQ(cache.Find(L"tex.png"), nullptr);
}

TEST(CVCacheTest, DuplicateKeysAndForeignElementsAreRefused) {
    g_nDeleted = 0;
    {
        CVCache cache;
        int owner = 0;
        cache.Add(new CountedElement(L"a"), &owner);
        CountedElement dup(L"a");
        EXPECT_THROW(cache.Add(&dup, &owner), CInvalidArgException);
        EXPECT_EQ(cache.Release(&dup, &owner), 0);  // not in this cache
        EXPECT_EQ(cache.Release(nullptr, &owner), 0);
        cache.Add(new CountedElement(L"b"), &owner);
        EXPECT_EQ(cache.GetCount(), 2);
    }
    EXPECT_EQ(g_nDeleted, 3);  // two freed with the cache, one on the stack
}

}  // namespace
