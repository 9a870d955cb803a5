// The framework's device-context wrapper.
#include "platform/CDC.h"
#include "platform/CPalette.h"
#include "support/CVTestDib.h"

#include <gtest/gtest.h>

namespace {
TEST(CDCTest, OwnsWhatItCreatesAndLetsGoOfWhatItDetaches) {
    HDC kept;
    {
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        EXPECT_FALSE(dc.CreateCompatibleDC(nullptr));  // already holds one
        kept = dc.Detach();
        EXPECT_EQ(dc.GetSafeHdc(), nullptr);
    }
    EXPECT_EQ(GetDeviceCaps(kept, PLANES), 1);
    {
        CDC dc;
        ASSERT_TRUE(dc.Attach(kept));
    }
    EXPECT_EQ(GetDeviceCaps(kept, PLANES), 0);  // gone with the wrapper
}

TEST(CDCTest, FromHandleIsATemporaryThatNeverDeletes) {
    CVTestDib dib(2, 2, 32);
    CDC* a = CDC::FromHandle(dib.hdc);
    EXPECT_EQ(CDC::FromHandle(dib.hdc), a);
    EXPECT_EQ(a->GetSafeHdc(), dib.hdc);
    EXPECT_TRUE(a->IsKindOf(RUNTIME_CLASS(CDC)));
    CDC::DeleteTempMap();
    EXPECT_EQ(GetDeviceCaps(dib.hdc, BITSPIXEL), 32);
    EXPECT_EQ(CDC::FromHandle(nullptr), nullptr);
}

TEST(CDCTest, FillSolidRectLeavesTheBackgroundColourSet) {
    CVTestDib dib(4, 4, 32);
    CDC* dc = CDC::FromHandle(dib.hdc);
    dc->FillSolidRect(1, 1, 2, 2, RGB(9, 8, 7));
    EXPECT_EQ(dib.At(2, 2), RGB(9, 8, 7));
    EXPECT_EQ(dib.At(3, 3), RGB(0, 0, 0));
    EXPECT_EQ(dc->GetBkColor(), RGB(9, 8, 7));
    // The brush did not change.
    EXPECT_TRUE(dc->PatBlt(0, 0, 1, 1, PATCOPY));
    EXPECT_EQ(dib.At(0, 0), RGB(255, 255, 255));
    CDC::DeleteTempMap();
}

TEST(CDCTest, BlitsAndPaletteSelectionGoThroughWrappers) {
    CVTestDib src(2, 2, 32), dst(2, 2, 32);
    src.Fill(RGB(50, 60, 70));
    CDC* s = CDC::FromHandle(src.hdc);
    CDC* d = CDC::FromHandle(dst.hdc);
    EXPECT_TRUE(d->BitBlt(0, 0, 1, 2, s, 0, 0, SRCCOPY));
    EXPECT_EQ(dst.At(0, 1), RGB(50, 60, 70));
    EXPECT_EQ(dst.At(1, 1), RGB(0, 0, 0));
    EXPECT_FALSE(d->BitBlt(0, 0, 1, 1, nullptr, 0, 0, SRCCOPY));

    CPalette pal;
    LOGPALETTE lp{0x300, 1, {{1, 2, 3, 0}}};
    ASSERT_TRUE(pal.CreatePalette(&lp));
    CPalette* previous = d->SelectPalette(&pal, FALSE);
    ASSERT_NE(previous, nullptr);
    EXPECT_EQ(previous->GetEntryCount(), 20);
    EXPECT_EQ(d->RealizePalette(), 1u);
    EXPECT_EQ(d->SelectPalette(previous, FALSE)->GetSafeHandle(), (HPALETTE)pal);
    CDC::DeleteTempMap();
    CPalette::DeleteTempMap();
}
}  // namespace
