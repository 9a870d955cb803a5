#include <gtest/gtest.h>

#include <string>

#include "platform/BaseTsd.h"
#include "platform/WinGDI.h"

namespace {

// Hosts put handles into text as decimal 32-bit values; the value must lead
// back to the same live object, and negative values sign-extend.
TEST(BaseTsdTest, HandlesSurviveTheTripThroughTheirDecimalValue) {
    HBITMAP bitmap = CreateBitmap(3, 2, 1, 32, nullptr);
    const LONG value = HandleToLong(bitmap);
    EXPECT_GT(value, 0);
    EXPECT_EQ(HandleToULong(bitmap), (ULONG)value);
    HBITMAP back = static_cast<HBITMAP>(LongToHandle(std::stol(std::to_string(value))));
    BITMAP info;
    ASSERT_NE(GetObjectW(back, sizeof(info), &info), 0);
    EXPECT_EQ(info.bmWidth, 3);
    EXPECT_TRUE(DeleteObject(back));
    EXPECT_EQ(static_cast<HGDIOBJ>(LongToHandle(-1)), HGDI_ERROR);
    EXPECT_EQ(ULongToHandle(0xFFFFFFFFu), reinterpret_cast<void*>((uintptr_t)0xFFFFFFFFu));
}

}  // namespace
