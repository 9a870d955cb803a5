// Memory device contexts: selection, attributes, capabilities, and what
// happens with handles that name nothing.
#include "platform/WinGDI.h"
#include "platform/WinGL.h"
#include "platform/CVTestDib.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {
TEST(CVGdiDCTest, SelectObjectReturnsThePreviousObjectOfThatKind) {
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ stockBitmap = GetCurrentObject(dc, OBJ_BITMAP);
    HGDIOBJ stockBrush = GetCurrentObject(dc, OBJ_BRUSH);
    EXPECT_EQ(GetObjectType(stockBitmap), (DWORD)OBJ_BITMAP);
    EXPECT_EQ(GetObjectType(stockBrush), (DWORD)OBJ_BRUSH);
    EXPECT_EQ(GetObjectType(reinterpret_cast<HGDIOBJ>(dc)), (DWORD)OBJ_MEMDC);

    HBITMAP a = CreateCompatibleBitmap(nullptr, 2, 2), b = CreateCompatibleBitmap(nullptr, 2, 2);
    HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(SelectObject(dc, a), stockBitmap);
    EXPECT_EQ(SelectObject(dc, b), a);
    EXPECT_EQ(SelectObject(dc, brush), stockBrush);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BITMAP), b);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), brush);
    // A palette is not selected this way.
    EXPECT_EQ(SelectObject(dc, GetCurrentObject(dc, OBJ_PAL)), nullptr);
    // Stock objects survive DeleteObject.
    EXPECT_TRUE(DeleteObject(stockBrush));
    EXPECT_EQ(GetObjectType(stockBrush), (DWORD)OBJ_BRUSH);

    DeleteDC(dc);
    EXPECT_TRUE(DeleteObject(a));
    EXPECT_TRUE(DeleteObject(b));  // deleting the DC released it
    DeleteObject(brush);
}

TEST(CVGdiDCTest, ABitmapIsSelectedIntoOneDCAtATime) {
    CVTestDib dib(2, 2, 32);
    HDC other = CreateCompatibleDC(nullptr);
    EXPECT_EQ(SelectObject(other, dib.bitmap), nullptr);
    EXPECT_NE(GetCurrentObject(other, OBJ_BITMAP), dib.bitmap);
    DeleteDC(other);
}

TEST(CVGdiDCTest, FillUsesTheSelectedBrushAndNormalisesRectangles) {
    CVTestDib dib(4, 4, 32);
    HBRUSH brush = CreateSolidBrush(RGB(0, 0, 255));
    HGDIOBJ old = SelectObject(dib.hdc, brush);
    EXPECT_TRUE(PatBlt(dib.hdc, 0, 0, 1, 1, PATCOPY));
    EXPECT_EQ(dib.At(0, 0), RGB(0, 0, 255));
    // Given bottom-up (top > bottom), a fill still covers the rectangle.
    HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    RECT r{1, 4, 4, 2};
    EXPECT_TRUE(FillRect(dib.hdc, &r, red));
    EXPECT_EQ(dib.At(1, 2), RGB(255, 0, 0));
    EXPECT_EQ(dib.At(3, 3), RGB(255, 0, 0));
    EXPECT_EQ(dib.At(1, 1), RGB(0, 0, 0));
    SelectObject(dib.hdc, old);
    DeleteObject(brush);
    // A deleted brush leaves the DC with white.
    SelectObject(dib.hdc, red);
    DeleteObject(red);
    PatBlt(dib.hdc, 0, 0, 1, 1, PATCOPY);
    EXPECT_EQ(dib.At(0, 0), RGB(255, 255, 255));
}

TEST(CVGdiDCTest, AttributesReturnTheirPreviousValues) {
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

struct CapsCase {
    int bpp, bitsPixel, numColors, sizePalette, hasPalette;
};
void PrintTo(const CapsCase& c, std::ostream* os) { *os << c.bpp << " bits"; }
class CapsTest : public testing::TestWithParam<CapsCase> {};

TEST_P(CapsTest, DescribeTheSelectedBitmap) {
    const CapsCase& c = GetParam();
    CVTestDib dib(5, 3, c.bpp);
    EXPECT_EQ(GetDeviceCaps(dib.hdc, BITSPIXEL), c.bitsPixel);
    EXPECT_EQ(GetDeviceCaps(dib.hdc, PLANES), 1);
    EXPECT_EQ(GetDeviceCaps(dib.hdc, HORZRES), 5);
    EXPECT_EQ(GetDeviceCaps(dib.hdc, VERTRES), 3);
    EXPECT_EQ(GetDeviceCaps(dib.hdc, NUMCOLORS), c.numColors);
    EXPECT_EQ(GetDeviceCaps(dib.hdc, SIZEPALETTE), c.sizePalette);
    EXPECT_EQ((GetDeviceCaps(dib.hdc, RASTERCAPS) & RC_PALETTE) != 0, c.hasPalette != 0);
}

INSTANTIATE_TEST_SUITE_P(CVGdiDCTest, CapsTest,
                         testing::Values(CapsCase{32, 32, -1, 0, 0}, CapsCase{16, 16, -1, 0, 0},
                                         CapsCase{8, 8, 256, 256, 1}, CapsCase{1, 1, 2, 2, 1}),
                         [](const testing::TestParamInfo<CapsCase>& i) {
                             return "Bits" + std::to_string(i.param.bpp);
                         });

TEST(CVGdiDCTest, HandlesAreSmallPositiveAndNeverReused) {
    HDC first = CreateCompatibleDC(nullptr);
    uintptr_t v = reinterpret_cast<uintptr_t>(first);
    EXPECT_GT(v, 0u);
    EXPECT_LE(v, (uintptr_t)INT_MAX);
    DeleteDC(first);
    HDC second = CreateCompatibleDC(nullptr);
    EXPECT_NE(second, first);
    EXPECT_EQ(GetDeviceCaps(first, BITSPIXEL), 0);
    DeleteDC(second);
}

TEST(CVGdiDCTest, BadHandlesFailHarmlessly) {
    HDC dead = CreateCompatibleDC(nullptr);
    DeleteDC(dead);
    HBRUSH brush = CreateSolidBrush(0);
    for (HDC bad : {HDC(nullptr), dead, reinterpret_cast<HDC>(uintptr_t(0x7FFFFFF0)),
                    reinterpret_cast<HDC>(brush)}) {
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
    // A DC is not a GDI object for DeleteObject.
    HDC live = CreateCompatibleDC(nullptr);
    EXPECT_FALSE(DeleteObject(reinterpret_cast<HGDIOBJ>(live)));
    EXPECT_EQ(GetDeviceCaps(live, PLANES), 1);
    DeleteDC(live);
    DeleteObject(brush);
}
}  // namespace
