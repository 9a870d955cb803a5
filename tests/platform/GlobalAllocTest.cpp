// Global memory blocks: fixed and movable handles, locks, sizes, bad handles.
#include "platform/WinBase.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(GlobalAllocTest, FixedBlockIsItsOwnAddress) {
    HGLOBAL h = GlobalAlloc(GPTR, 100);
    ASSERT_NE(h, nullptr);
    EXPECT_EQ(GlobalLock(h), h);
    EXPECT_EQ(GlobalSize(h), 100u);
    const BYTE* p = static_cast<const BYTE*>(h);
    for (int i = 0; i < 100; ++i) ASSERT_EQ(p[i], 0) << i;
    EXPECT_FALSE(GlobalUnlock(h));
    EXPECT_EQ(GlobalFree(h), nullptr);
}

TEST(GlobalAllocTest, MovableBlockCountsLocks) {
    HGLOBAL h = GlobalAlloc(GHND, 16);
    ASSERT_NE(h, nullptr);
    BYTE* p = static_cast<BYTE*>(GlobalLock(h));
    ASSERT_NE(p, nullptr);
    EXPECT_NE(static_cast<void*>(p), h);
    std::memset(p, 0xAB, 16);
    EXPECT_EQ(GlobalLock(h), p);
    EXPECT_TRUE(GlobalUnlock(h));   // one lock left
    EXPECT_FALSE(GlobalUnlock(h));  // none left
    EXPECT_EQ(static_cast<BYTE*>(GlobalLock(h))[15], 0xAB);
    GlobalUnlock(h);
    EXPECT_EQ(GlobalSize(h), 16u);
    EXPECT_EQ(GlobalFree(h), nullptr);
}

TEST(GlobalAllocTest, BadRequestsAndHandlesFail) {
    EXPECT_EQ(GlobalAlloc(GHND, 0), nullptr);
    EXPECT_EQ(GlobalAlloc(0x8000, 10), nullptr);

    HGLOBAL h = GlobalAlloc(GHND, 8);
    ASSERT_EQ(GlobalFree(h), nullptr);
    int local = 0;
    for (HGLOBAL bad : {static_cast<HGLOBAL>(nullptr), h, static_cast<HGLOBAL>(&local)}) {
        EXPECT_EQ(GlobalLock(bad), nullptr);
        EXPECT_FALSE(GlobalUnlock(bad));
        EXPECT_EQ(GlobalSize(bad), 0u);
        EXPECT_EQ(GlobalFree(bad), bad);  // a failed free hands the handle back
    }
}

}  // namespace
