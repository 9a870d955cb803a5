// Bitmaps and DIB sections: creation, memory layout, descriptions, deletion.
#include "platform/WinGDI.h"
#include "platform/WinGL.h"
#include "support/CVTestDib.h"

#include <gtest/gtest.h>

namespace {
TEST(CVGdiBitmapTest, DescriptionsHaveTheWindowsSizesAndRowPadding) {
    EXPECT_EQ(sizeof(BITMAP), 32u);
    EXPECT_EQ(sizeof(DIBSECTION), 104u);
    CVTestDib dib(33, 5, 16);
    DIBSECTION ds{};
    ASSERT_EQ(GetObjectW(dib.bitmap, sizeof ds, &ds), (int)sizeof(DIBSECTION));
    // 66 bytes a row padded to 32 bits.
    EXPECT_EQ((std::vector<long>{ds.dsBm.bmWidth, ds.dsBm.bmHeight, ds.dsBm.bmWidthBytes, ds.dsBm.bmBitsPixel,
                                 (long)ds.dsBmih.biSizeImage}),
              (std::vector<long>{33, 5, 68, 16, 68 * 5}));
    EXPECT_EQ(ds.dsBm.bmBits, dib.bits);
    EXPECT_EQ((std::vector<DWORD>(ds.dsBitfields, ds.dsBitfields + 3)), (std::vector<DWORD>{0xF800, 0x07E0, 0x001F}));
    BITMAP bm{};
    EXPECT_EQ(GetObjectW(dib.bitmap, sizeof bm, &bm), (int)sizeof(BITMAP));
    EXPECT_EQ(GetObjectW(dib.bitmap, sizeof bm - 1, &bm), 0);
    HBITMAP ddb = CreateBitmap(33, 2, 1, 1, nullptr);
    ASSERT_EQ(GetObjectW(ddb, sizeof ds, &ds), (int)sizeof(BITMAP));  // no section to describe
    EXPECT_EQ(ds.dsBm.bmWidthBytes, 6);  // device bitmaps pad rows to 16 bits
    EXPECT_EQ(ds.dsBm.bmBits, nullptr);
    DeleteObject(ddb);
}

TEST(CVGdiBitmapTest, RowOrderFollowsTheSignOfTheHeight) {
    for (bool topDown : {false, true}) {
        CVTestDib dib(2, 3, 32, topDown);
        dib.Fill(0, 0, 2, 1, RGB(1, 2, 3));  // top row
        EXPECT_EQ(dib.bits[0] == 3 && dib.bits[1] == 2 && dib.bits[2] == 1, topDown) << topDown;
        EXPECT_EQ(dib.At(1, 0), RGB(1, 2, 3));
        EXPECT_EQ(dib.At(1, 1), RGB(0, 0, 0));
    }
}

TEST(CVGdiBitmapTest, MalformedHeadersAreRefusedWithoutBits) {
    struct {
        BITMAPINFOHEADER header;
        DWORD masks[3];
    } cases[] = {
        {{40, 0, 4, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}},  // zero width
        {{40, 4, 0, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}},
        {{40, 4, 4, 1, 7, BI_RGB, 0, 0, 0, 0, 0}, {}},
        {{40, 4, 4, 1, 8, BI_BITFIELDS, 0, 0, 0, 0, 0}, {}},
        {{40, 4, 4, 1, 16, BI_BITFIELDS, 0, 0, 0, 0, 0}, {0xF00F, 0x07E0, 0x001F}},  // split mask
        {{40, 4, 4, 1, 16, BI_BITFIELDS, 0, 0, 0, 0, 0}, {0xF800, 0x0FE0, 0x001F}},  // overlapping
        {{40, 4, 4, 2, 32, BI_RGB, 0, 0, 0, 0, 0}, {}},  // two planes
    };
    for (const auto& c : cases) {
        void* bits = reinterpret_cast<void*>(1);
        EXPECT_EQ(CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&c), DIB_RGB_COLORS, &bits, nullptr, 0),
                  nullptr);
        EXPECT_EQ(bits, nullptr);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    }
}

TEST(CVGdiBitmapTest, SelectedBitmapCannotBeDeletedAndDeadHandlesStayDead) {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bmp = CreateCompatibleBitmap(dc, 4, 4);
    HGDIOBJ old = SelectObject(dc, bmp);
    EXPECT_FALSE(DeleteObject(bmp));
    SelectObject(dc, old);
    EXPECT_TRUE(DeleteObject(bmp));
    BITMAP bm;
    EXPECT_EQ(GetObjectW(bmp, sizeof bm, &bm), 0);
    EXPECT_FALSE(DeleteObject(bmp));
    DeleteDC(dc);
}

TEST(CVGdiBitmapTest, CompatibleBitmapTakesTheSelectedBitmapsDepth) {
    CVTestDib dib(4, 4, 16);
    HDC fresh = CreateCompatibleDC(nullptr);
    for (HDC dc : {dib.hdc, fresh}) {
        BITMAP bm{};
        HBITMAP b = CreateCompatibleBitmap(dc, 4, 4);
        GetObjectW(b, sizeof bm, &bm);
        EXPECT_EQ(bm.bmBitsPixel, dc == fresh ? 1 : 16);  // a new memory DC holds a mono bitmap
        DeleteObject(b);
    }
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

TEST(CVGdiBitmapTest, SetPixelReturnsAndStoresTheNearestEncodableColour) {
    const struct {
        int bpp;
        COLORREF set, stored;
    } cases[] = {{32, RGB(1, 2, 3), RGB(1, 2, 3)},
                 {16, RGB(0x85, 0x82, 0xFF), RGB(0x84, 0x82, 0xFF)},
                 {8, RGB(10, 12, 14), RGB(12, 12, 12)},
                 {1, RGB(200, 90, 200), RGB(255, 255, 255)}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bpp);
        CVTestDib dib(3, 2, c.bpp);
        EXPECT_EQ(SetPixel(dib.hdc, 2, 1, c.set), c.stored);
        EXPECT_EQ(GetPixel(dib.hdc, 2, 1), c.stored);
        EXPECT_EQ(dib.At(2, 1), c.stored);
        EXPECT_EQ(dib.At(1, 1), RGB(0, 0, 0));
    }
}

TEST(CVGdiBitmapTest, ColourTableOfTheSelectedDib) {
    CVTestDib dib(8, 1, 1), deep(2, 2, 32);
    RGBQUAD table[2];
    ASSERT_EQ(GetDIBColorTable(dib.hdc, 0, 4, table), 2u);
    EXPECT_EQ(table[1].rgbRed, 255);
    const RGBQUAD red{0, 0, 255, 0};
    EXPECT_EQ(SetDIBColorTable(dib.hdc, 1, 5, &red), 1u);
    dib.bits[0] = 0x80;
    EXPECT_EQ(GetPixel(dib.hdc, 0, 0), RGB(255, 0, 0));  // the bits stay, their meaning changes
    EXPECT_EQ(GetDIBColorTable(deep.hdc, 0, 1, table), 0u);
}
}  // namespace
