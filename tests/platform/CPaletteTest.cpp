// The framework's palette wrapper.
#include "platform/CPalette.h"

#include <gtest/gtest.h>

namespace {
TEST(CPaletteTest, CreatesOwnsAndDeletes) {
    HPALETTE handle;
    {
        CPalette pal;
        LOGPALETTE lp{0x300, 1, {{10, 20, 30, 0}}};
        ASSERT_TRUE(pal.CreatePalette(&lp));
        EXPECT_FALSE(pal.CreatePalette(&lp));
        handle = pal;
        EXPECT_EQ(pal.GetSafeHandle(), handle);
        EXPECT_EQ(pal.GetEntryCount(), 1);
        PALETTEENTRY e{};
        EXPECT_EQ(pal.GetPaletteEntries(0, 1, &e), 1u);
        EXPECT_EQ(e.peBlue, 30);
    }
    EXPECT_EQ(GetPaletteEntries(handle, 0, 0, nullptr), 0u);
}

TEST(CPaletteTest, RefusedEntriesLeaveItEmpty) {
    CPalette pal;
    LOGPALETTE lp{0x100, 1, {{0, 0, 0, 0}}};
    EXPECT_FALSE(pal.CreatePalette(&lp));
    EXPECT_EQ(pal.GetSafeHandle(), nullptr);
    EXPECT_EQ(pal.GetEntryCount(), 0);
    EXPECT_FALSE(pal.DeleteObject());
}
}  // namespace
