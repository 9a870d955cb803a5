// GetDIBits: header queries, conversions between depths, row ranges, failures.
#include "platform/WinGDI.h"
#include "platform/CVTestDib.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

struct Info {
    BITMAPINFOHEADER h;
    RGBQUAD table[256];
};

Info Header(int w, int h, int bpp, DWORD compression = BI_RGB) {
    Info info;
    std::memset(&info, 0, sizeof info);
    info.h = BITMAPINFOHEADER{40, w, h, 1, (WORD)bpp, compression, 0, 0, 0, 0, 0};
    return info;
}

// A 16-bit 5-6-5 bitmap with a different colour in each pixel.
void Paint(CVTestDib& dib) {
    for (int y = 0; y < dib.height; ++y)
        for (int x = 0; x < dib.width; ++x) SetPixel(dib.hdc, x, y, RGB(x * 60, y * 80, 200 - x * 40));
}

TEST(GetDIBitsTest, ZeroBitCountDescribesTheBitmap) {
    struct Case {
        int bpp;
        DWORD compression;
    } cases[] = {{16, BI_BITFIELDS}, {32, BI_RGB}, {8, BI_RGB}};
    for (const Case& c : cases) {
        CVTestDib dib(5, 3, c.bpp);
        Info info = Header(0, 0, 0);
        ASSERT_NE(GetDIBits(nullptr, dib.bitmap, 0, 0, nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 0);
        EXPECT_EQ(info.h.biWidth, 5);
        EXPECT_EQ(info.h.biHeight, 3);
        EXPECT_EQ(info.h.biBitCount, c.bpp);
        EXPECT_EQ(info.h.biCompression, c.compression) << c.bpp;
        EXPECT_EQ(info.h.biSizeImage, (DWORD)dib.stride * 3);
    }
}

TEST(GetDIBitsTest, ConvertsToThirtyTwoBitsInEitherRowOrder) {
    CVTestDib dib(4, 3, 16);
    Paint(dib);
    for (bool topDown : {false, true}) {
        Info info = Header(4, topDown ? -3 : 3, 32);
        std::vector<uint32_t> bits(12, 0xDEADBEEF);
        ASSERT_EQ(GetDIBits(dib.hdc, dib.bitmap, 0, 3, bits.data(), reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 3);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 4; ++x) {
                const uint32_t v = bits[(topDown ? y : 2 - y) * 4 + x];
                const COLORREF want = dib.At(x, y);
                EXPECT_EQ(v, (uint32_t)(GetRValue(want) << 16 | GetGValue(want) << 8 | GetBValue(want)))
                    << x << "," << y << " top-down " << topDown;
            }
    }
}

TEST(GetDIBitsTest, SameDepthCopiesValuesAndTable) {
    CVTestDib grey(3, 2, 8);
    grey.Row(0)[0] = 7;
    grey.Row(1)[2] = 200;
    Info info = Header(3, 2, 8);
    BYTE bits[8] = {};
    ASSERT_EQ(GetDIBits(grey.hdc, grey.bitmap, 0, 2, bits, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 2);
    EXPECT_EQ(bits[4 + 0], 7);  // bottom-up: the top row comes second
    EXPECT_EQ(bits[2], 200);
    EXPECT_EQ(info.table[255].rgbGreen, 255);
    EXPECT_EQ(info.table[128].rgbRed, 128);

    CVTestDib colour(2, 1, 32);
    colour.bits[3] = 0x5A;  // reserved byte of the first pixel
    colour.bits[0] = 9;
    Info info32 = Header(2, 1, 32);
    uint32_t out[2] = {};
    ASSERT_EQ(GetDIBits(nullptr, colour.bitmap, 0, 1, out, reinterpret_cast<BITMAPINFO*>(&info32), DIB_RGB_COLORS), 1);
    EXPECT_EQ(out[0], 0x5A000009u);
}

TEST(GetDIBitsTest, MonochromeTakesTheNearestOfBlackAndWhite) {
    CVTestDib dib(3, 1, 32);
    SetPixel(dib.hdc, 0, 0, RGB(250, 240, 230));
    SetPixel(dib.hdc, 1, 0, RGB(20, 10, 40));
    SetPixel(dib.hdc, 2, 0, RGB(200, 200, 90));
    Info info = Header(3, 1, 1);
    BYTE bits[4] = {};
    ASSERT_EQ(GetDIBits(dib.hdc, dib.bitmap, 0, 1, bits, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 1);
    EXPECT_EQ(bits[0], 0xA0);  // 1 0 1
    EXPECT_EQ(info.table[0].rgbRed, 0);
    EXPECT_EQ(info.table[1].rgbBlue, 255);
}

TEST(GetDIBitsTest, RowRangeCountsInTheDIBsOrder) {
    CVTestDib dib(1, 4, 32);
    for (int y = 0; y < 4; ++y) SetPixel(dib.hdc, 0, y, RGB(0, 0, 10 * (y + 1)));
    Info info = Header(1, 4, 32);
    uint32_t out[4] = {};
    // Bottom-up rows 1 and 2 are the image rows 2 and 1 from the top; the
    // range is clipped to the bitmap.
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 1, 2, out, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 2);
    EXPECT_EQ(out[0], 30u);
    EXPECT_EQ(out[1], 20u);
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 3, 9, out, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 1);
    EXPECT_EQ(out[0], 10u);
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 4, 1, out, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 0);
}

TEST(GetDIBitsTest, RefusesWhatItCannotDo) {
    CVTestDib dib(4, 4, 32);
    uint32_t out[16];
    Info wrongWidth = Header(5, 4, 32);
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 0, 4, out, reinterpret_cast<BITMAPINFO*>(&wrongWidth), DIB_RGB_COLORS), 0);
    Info ok = Header(4, 4, 32);
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 0, 4, out, reinterpret_cast<BITMAPINFO*>(&ok), DIB_PAL_COLORS), 0);
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 0, 4, out, nullptr, DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(dib.hdc, nullptr, 0, 4, out, reinterpret_cast<BITMAPINFO*>(&ok), DIB_RGB_COLORS), 0);
    Info badDepth = Header(4, 4, 7);
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 0, 4, out, reinterpret_cast<BITMAPINFO*>(&badDepth), DIB_RGB_COLORS), 0);
}

}  // namespace
