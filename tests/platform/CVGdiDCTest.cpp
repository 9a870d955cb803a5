// Memory device contexts: selection, attributes, capabilities, and what
// happens with handles that name nothing.
#include "platform/WinGDI.h"
#include "platform/WinGL.h"
#include "support/CVTestDib.h"

#include <gtest/gtest.h>

#include <climits>

namespace {
TEST(CVGdiDCTest, SelectObjectReturnsThePreviousObjectOfThatKind) {
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ stockBitmap = GetCurrentObject(dc, OBJ_BITMAP), stockBrush = GetCurrentObject(dc, OBJ_BRUSH);
    EXPECT_EQ(GetObjectType(stockBitmap), (DWORD)OBJ_BITMAP);
    EXPECT_EQ(GetObjectType(stockBrush), (DWORD)OBJ_BRUSH);
    EXPECT_EQ(GetObjectType(reinterpret_cast<HGDIOBJ>(dc)), (DWORD)OBJ_MEMDC);
    HBITMAP a = CreateCompatibleBitmap(nullptr, 2, 2), b = CreateCompatibleBitmap(nullptr, 2, 2);
    HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(SelectObject(dc, a), stockBitmap);
    EXPECT_EQ(SelectObject(dc, b), a);
    EXPECT_EQ(SelectObject(dc, brush), stockBrush);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), brush);
    EXPECT_EQ(SelectObject(dc, GetCurrentObject(dc, OBJ_PAL)), nullptr);  // palettes are not selected this way
    EXPECT_TRUE(DeleteObject(stockBrush));                                // stock objects survive
    EXPECT_EQ(GetObjectType(stockBrush), (DWORD)OBJ_BRUSH);
    CVTestDib dib(2, 2, 32);
    EXPECT_EQ(SelectObject(dc, dib.bitmap), nullptr);  // a bitmap is in one DC at a time
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BITMAP), b);
    DeleteDC(dc);
    EXPECT_TRUE(DeleteObject(a));
    EXPECT_TRUE(DeleteObject(b));  // deleting the DC released it
    DeleteObject(brush);
}

TEST(CVGdiDCTest, FillUsesTheSelectedBrushAndNormalisesRectangles) {
    CVTestDib dib(4, 4, 32);
    HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255)), red = CreateSolidBrush(RGB(255, 0, 0));
    HGDIOBJ old = SelectObject(dib.hdc, blue);
    EXPECT_TRUE(PatBlt(dib.hdc, 0, 0, 1, 1, PATCOPY));
    EXPECT_EQ(dib.At(0, 0), RGB(0, 0, 255));
    RECT r{1, 4, 4, 2};  // top below bottom still covers the rectangle
    EXPECT_TRUE(FillRect(dib.hdc, &r, red));
    EXPECT_EQ(dib.At(1, 2), RGB(255, 0, 0));
    EXPECT_EQ(dib.At(3, 3), RGB(255, 0, 0));
    EXPECT_EQ(dib.At(1, 1), RGB(0, 0, 0));
    SelectObject(dib.hdc, old);
    DeleteObject(blue);
    SelectObject(dib.hdc, red);
    DeleteObject(red);  // a deleted brush leaves the DC with white
    PatBlt(dib.hdc, 0, 0, 1, 1, PATCOPY);
    EXPECT_EQ(dib.At(0, 0), RGB(255, 255, 255));
}

TEST(CVGdiDCTest, AttributesStartAtTheirDefaultsAndReturnTheirPreviousValues) {
    CVTestDib dib(1, 1, 32);
    EXPECT_EQ(SetBkColor(dib.hdc, RGB(1, 2, 3)), RGB(255, 255, 255));
    EXPECT_EQ(GetBkColor(dib.hdc), RGB(1, 2, 3));
    EXPECT_EQ(SetTextColor(dib.hdc, RGB(4, 5, 6)), RGB(0, 0, 0));
    EXPECT_EQ(SetBkMode(dib.hdc, TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetBkMode(dib.hdc, 7), 0);
    EXPECT_EQ(GetBkMode(dib.hdc), TRANSPARENT);
    EXPECT_EQ(SetStretchBltMode(dib.hdc, COLORONCOLOR), BLACKONWHITE);
    EXPECT_EQ(GetStretchBltMode(dib.hdc), COLORONCOLOR);
}

TEST(CVGdiDCTest, CapsDescribeTheSelectedBitmap) {
    const struct {
        int bpp, numColors, sizePalette, hasPalette;
    } cases[] = {{32, -1, 0, 0}, {16, -1, 0, 0}, {8, 256, 256, 1}, {1, 2, 2, 1}};
    for (const auto& c : cases) {
        CVTestDib dib(5, 3, c.bpp);
        const int caps[] = {BITSPIXEL, PLANES, HORZRES, VERTRES, NUMCOLORS, SIZEPALETTE};
        std::vector<int> got;
        for (int cap : caps) got.push_back(GetDeviceCaps(dib.hdc, cap));
        got.push_back((GetDeviceCaps(dib.hdc, RASTERCAPS) & RC_PALETTE) != 0);
        EXPECT_EQ(got, (std::vector<int>{c.bpp, 1, 5, 3, c.numColors, c.sizePalette, c.hasPalette})) << c.bpp;
    }
}

TEST(CVGdiDCTest, HandlesAreSmallPositiveAndNeverReused) {
    HDC first = CreateCompatibleDC(nullptr);
    const uintptr_t v = reinterpret_cast<uintptr_t>(first);
    EXPECT_GT(v, 0u);
    EXPECT_LE(v, (uintptr_t)INT_MAX);
    DeleteDC(first);
    HDC second = CreateCompatibleDC(nullptr);
    EXPECT_NE(second, first);
    EXPECT_EQ(GetDeviceCaps(first, BITSPIXEL), 0);
    DeleteDC(second);
}

TEST(CVGdiDCTest, BadHandlesFailHarmlessly) {
    HDC dead = CreateCompatibleDC(nullptr), live = CreateCompatibleDC(nullptr);
    DeleteDC(dead);
    HBRUSH brush = CreateSolidBrush(0);
    for (HDC bad : {HDC(nullptr), dead, reinterpret_cast<HDC>(uintptr_t(0x7FFFFFF0)), reinterpret_cast<HDC>(brush)}) {
        SetLastError(0);
        RECT r{0, 0, 1, 1};
        EXPECT_FALSE(DeleteDC(bad));
        EXPECT_EQ(SelectObject(bad, brush), nullptr);
        EXPECT_EQ(FillRect(bad, &r, brush), 0);
        EXPECT_FALSE(BitBlt(bad, 0, 0, 1, 1, bad, 0, 0, SRCCOPY));
        EXPECT_FALSE(PatBlt(bad, 0, 0, 1, 1, PATCOPY));
        EXPECT_EQ(GetPixel(bad, 0, 0), CLR_INVALID);
        EXPECT_EQ(SetBkColor(bad, 0), CLR_INVALID);
        EXPECT_EQ(RealizePalette(bad), 0u);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_HANDLE);
    }
    EXPECT_EQ(GetObjectType(reinterpret_cast<HGDIOBJ>(dead)), 0u);
    EXPECT_FALSE(DeleteObject(reinterpret_cast<HGDIOBJ>(uintptr_t(12345))));
    EXPECT_FALSE(DeleteObject(reinterpret_cast<HGDIOBJ>(live)));  // a DC is not a GDI object for DeleteObject
    EXPECT_EQ(GetDeviceCaps(live, PLANES), 1);
    DeleteDC(live);
    DeleteObject(brush);
}
}  // namespace
