// Bitmaps and DIB sections: creation, memory layout, descriptions, deletion.
#include "platform/WinGDI.h"
#include "platform/WinGL.h"
#include "platform/CVTestDib.h"

#include <gtest/gtest.h>

namespace {
BITMAPINFO Info(int w, int h, int bpp, DWORD compression = BI_RGB) {
    BITMAPINFO bi{};
    bi.bmiHeader = BITMAPINFOHEADER{40, w, h, 1, (WORD)bpp, compression, 0, 0, 0, 0, 0};
    return bi;
}

TEST(CVGdiBitmapTest, DescriptionsHaveTheWindowsSizes) {
    EXPECT_EQ(sizeof(BITMAP), 32u);
    EXPECT_EQ(sizeof(DIBSECTION), 104u);
    CVTestDib dib(33, 5, 16);
    DIBSECTION ds{};
    ASSERT_EQ(GetObjectW(dib.bitmap, sizeof ds, &ds), (int)sizeof(DIBSECTION));
    EXPECT_EQ(ds.dsBm.bmWidth, 33);
    EXPECT_EQ(ds.dsBm.bmHeight, 5);
    EXPECT_EQ(ds.dsBm.bmWidthBytes, 68);  // 66 bytes padded to 32 bits
    EXPECT_EQ(ds.dsBm.bmBitsPixel, 16);
    EXPECT_EQ(ds.dsBm.bmBits, dib.bits);
    EXPECT_EQ(ds.dsBmih.biSizeImage, 68u * 5);
    EXPECT_EQ(ds.dsBitfields[0], 0xF800u);
    EXPECT_EQ(ds.dsBitfields[1], 0x07E0u);
    EXPECT_EQ(ds.dsBitfields[2], 0x001Fu);
    BITMAP bm{};
    EXPECT_EQ(GetObjectW(dib.bitmap, sizeof bm, &bm), (int)sizeof(BITMAP));
    EXPECT_EQ(GetObjectW(dib.bitmap, sizeof bm - 1, &bm), 0);

    HBITMAP ddb = CreateBitmap(33, 2, 1, 1, nullptr);
    ASSERT_EQ(GetObjectW(ddb, sizeof bm, &bm), (int)sizeof(BITMAP));
    EXPECT_EQ(bm.bmWidthBytes, 6);  // device bitmaps pad rows to 16 bits
    EXPECT_EQ(bm.bmBits, nullptr);
    EXPECT_EQ(GetObjectW(ddb, sizeof ds, &ds), (int)sizeof(BITMAP));
    DeleteObject(ddb);
}

TEST(CVGdiBitmapTest, RowOrderFollowsTheSignOfTheHeight) {
    for (bool topDown : {false, true}) {
        CVTestDib dib(2, 3, 32, topDown);
        dib.Fill(0, 0, 2, 1, RGB(1, 2, 3));  // top row
        const BYTE* firstRow = dib.bits;
        EXPECT_EQ(firstRow[0] == 3 && firstRow[1] == 2 && firstRow[2] == 1, topDown) << topDown;
        EXPECT_EQ(dib.At(1, 0), RGB(1, 2, 3));
        EXPECT_EQ(dib.At(1, 1), RGB(0, 0, 0));
    }
}

// A header with room for the three masks of BI_BITFIELDS.
struct MaskedInfo {
    BITMAPINFOHEADER header;
    DWORD masks[3];
};
struct BadInfo {
    const char* name;
    MaskedInfo info;
};
MaskedInfo Plain(BITMAPINFO bi) { return MaskedInfo{bi.bmiHeader, {0, 0, 0}}; }
MaskedInfo Masked(int bpp, DWORD r, DWORD g, DWORD b) { return MaskedInfo{Info(4, 4, bpp, BI_BITFIELDS).bmiHeader, {r, g, b}}; }
void PrintTo(const BadInfo& c, std::ostream* os) { *os << c.name; }
class BadDibTest : public testing::TestWithParam<BadInfo> {};

TEST_P(BadDibTest, IsRefusedWithoutBits) {
    void* bits = reinterpret_cast<void*>(1);
    const auto* info = reinterpret_cast<const BITMAPINFO*>(&GetParam().info);
    EXPECT_EQ(CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &bits, nullptr, 0), nullptr);
    EXPECT_EQ(bits, nullptr);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
}

INSTANTIATE_TEST_SUITE_P(
    CVGdiBitmapTest, BadDibTest,
    testing::Values(BadInfo{"ZeroWidth", Plain(Info(0, 4, 32))}, BadInfo{"ZeroHeight", Plain(Info(4, 0, 32))},
                    BadInfo{"SevenBits", Plain(Info(4, 4, 7))},
                    BadInfo{"BitfieldsOn8Bits", Plain(Info(4, 4, 8, BI_BITFIELDS))},
                    BadInfo{"SplitMask", Masked(16, 0xF00F, 0x07E0, 0x001F)},
                    BadInfo{"OverlappingMasks", Masked(16, 0xF800, 0x0FE0, 0x001F)},
                    BadInfo{"TwoPlanes", [] { BITMAPINFO b = Info(4, 4, 32); b.bmiHeader.biPlanes = 2; return Plain(b); }()}),
    [](const testing::TestParamInfo<BadInfo>& i) { return std::string(i.param.name); });

TEST(CVGdiBitmapTest, SelectedBitmapCannotBeDeleted) {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bmp = CreateCompatibleBitmap(dc, 4, 4);
    HGDIOBJ old = SelectObject(dc, bmp);
    EXPECT_FALSE(DeleteObject(bmp));
    SelectObject(dc, old);
    EXPECT_TRUE(DeleteObject(bmp));
    BITMAP bm;
    EXPECT_EQ(GetObjectW(bmp, sizeof bm, &bm), 0);  // the handle is dead for good
    EXPECT_FALSE(DeleteObject(bmp));
    DeleteDC(dc);
}

TEST(CVGdiBitmapTest, CompatibleBitmapTakesTheSelectedBitmapsDepth) {
    CVTestDib dib(4, 4, 16);
    HDC fresh = CreateCompatibleDC(nullptr);
    BITMAP bm{};
    HBITMAP a = CreateCompatibleBitmap(dib.hdc, 4, 4), b = CreateCompatibleBitmap(fresh, 4, 4);
    GetObjectW(a, sizeof bm, &bm);
    EXPECT_EQ(bm.bmBitsPixel, 16);
    GetObjectW(b, sizeof bm, &bm);
    EXPECT_EQ(bm.bmBitsPixel, 1);  // a new memory DC holds a mono bitmap
    DeleteObject(a);
    DeleteObject(b);
    DeleteDC(fresh);
}

TEST(CVGdiBitmapTest, CreateBitmapTakesWordAlignedRows) {
    const BYTE rows[4] = {0x80, 0x00, 0x40, 0x00};  // two rows of 16 bits
    HBITMAP bmp = CreateBitmap(3, 2, 1, 1, rows);
    HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, bmp);
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(dc, 1, 0), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(dc, 1, 1), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(dc, 3, 0), CLR_INVALID);
    DeleteDC(dc);
    DeleteObject(bmp);
}

struct PixelCase {
    const char* name;
    int bpp;
    COLORREF set, stored;
};
void PrintTo(const PixelCase& c, std::ostream* os) { *os << c.name; }
class SetPixelTest : public testing::TestWithParam<PixelCase> {};

TEST_P(SetPixelTest, ReturnsAndStoresTheNearestEncodableColour) {
    const PixelCase& c = GetParam();
    CVTestDib dib(3, 2, c.bpp);
    EXPECT_EQ(SetPixel(dib.hdc, 2, 1, c.set), c.stored);
    EXPECT_EQ(GetPixel(dib.hdc, 2, 1), c.stored);
    EXPECT_EQ(dib.At(2, 1), c.stored);
    EXPECT_EQ(dib.At(1, 1), RGB(0, 0, 0));
}

INSTANTIATE_TEST_SUITE_P(CVGdiBitmapTest, SetPixelTest,
                         testing::Values(PixelCase{"Bits32", 32, RGB(1, 2, 3), RGB(1, 2, 3)},
                                         PixelCase{"Bits16", 16, RGB(0x85, 0x82, 0xFF), RGB(0x84, 0x82, 0xFF)},
                                         PixelCase{"Bits8", 8, RGB(10, 12, 14), RGB(12, 12, 12)},
                                         PixelCase{"Bits1", 1, RGB(200, 90, 200), RGB(255, 255, 255)}),
                         [](const testing::TestParamInfo<PixelCase>& i) { return std::string(i.param.name); });

TEST(CVGdiBitmapTest, ColourTableOfTheSelectedDib) {
    CVTestDib dib(8, 1, 1);
    RGBQUAD table[2];
    ASSERT_EQ(GetDIBColorTable(dib.hdc, 0, 4, table), 2u);
    EXPECT_EQ(table[1].rgbRed, 255);
    const RGBQUAD red{0, 0, 255, 0};
    EXPECT_EQ(SetDIBColorTable(dib.hdc, 1, 5, &red), 1u);
    dib.bits[0] = 0x80;
    // The bits stay, their meaning changes.
    EXPECT_EQ(GetPixel(dib.hdc, 0, 0), RGB(255, 0, 0));
    CVTestDib deep(2, 2, 32);
    EXPECT_EQ(GetDIBColorTable(deep.hdc, 0, 1, table), 0u);
}
}  // namespace
