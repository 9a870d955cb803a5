// GetDIBits: header queries, conversions between depths, row ranges, failures.
#include "platform/WinGDI.h"
#include "support/CVTestDib.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

struct Info {
    BITMAPINFOHEADER h;
    RGBQUAD table[256];
};

Info Header(int w, int h, int bpp) {
    Info info;
    std::memset(&info, 0, sizeof info);
    info.h = BITMAPINFOHEADER{40, w, h, 1, (WORD)bpp, BI_RGB, 0, 0, 0, 0, 0};
    return info;
}

int Get(const CVTestDib& dib, UINT start, UINT lines, void* bits, Info& info, UINT usage = DIB_RGB_COLORS) {
    return GetDIBits(dib.hdc, dib.bitmap, start, lines, bits, reinterpret_cast<BITMAPINFO*>(&info), usage);
}

TEST(GetDIBitsTest, ZeroBitCountDescribesTheBitmap) {
    for (int bpp : {16, 32, 8}) {
        CVTestDib dib(5, 3, bpp);
        Info info = Header(0, 0, 0);
        ASSERT_NE(GetDIBits(nullptr, dib.bitmap, 0, 0, nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 0);
        EXPECT_EQ((std::vector<long>{info.h.biWidth, info.h.biHeight, info.h.biBitCount, (long)info.h.biCompression,
                                     (long)info.h.biSizeImage}),
                  (std::vector<long>{5, 3, bpp, bpp == 16 ? BI_BITFIELDS : BI_RGB, dib.stride * 3}));
    }
}

TEST(GetDIBitsTest, ConvertsToThirtyTwoBitsInEitherRowOrder) {
    CVTestDib dib(4, 3, 16);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x) SetPixel(dib.hdc, x, y, RGB(x * 60, y * 80, 200 - x * 40));
    for (bool topDown : {false, true}) {
        Info info = Header(4, topDown ? -3 : 3, 32);
        std::vector<uint32_t> bits(12, 0xDEADBEEF);
        ASSERT_EQ(Get(dib, 0, 3, bits.data(), info), 3);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 4; ++x) {
                const COLORREF want = dib.At(x, y);
                EXPECT_EQ(bits[(topDown ? y : 2 - y) * 4 + x],
                          (uint32_t)(GetRValue(want) << 16 | GetGValue(want) << 8 | GetBValue(want)))
                    << x << "," << y << " top-down " << topDown;
            }
    }
}

TEST(GetDIBitsTest, SameDepthCopiesValuesAndTableMonoTakesTheNearest) {
    CVTestDib grey(3, 2, 8), colour(2, 1, 32), mono(3, 1, 32);
    grey.Row(0)[0] = 7;
    grey.Row(1)[2] = 200;
    Info info = Header(3, 2, 8);
    BYTE bits[8] = {};
    ASSERT_EQ(Get(grey, 0, 2, bits, info), 2);
    EXPECT_EQ(bits[4 + 0], 7);  // bottom-up: the top row comes second
    EXPECT_EQ(bits[2], 200);
    EXPECT_EQ(info.table[255].rgbGreen, 255);
    EXPECT_EQ(info.table[128].rgbRed, 128);
    colour.bits[3] = 0x5A;  // reserved byte of the first pixel
    colour.bits[0] = 9;
    info = Header(2, 1, 32);
    uint32_t out[2] = {};
    ASSERT_EQ(Get(colour, 0, 1, out, info), 1);
    EXPECT_EQ(out[0], 0x5A000009u);
    SetPixel(mono.hdc, 0, 0, RGB(250, 240, 230));
    SetPixel(mono.hdc, 1, 0, RGB(20, 10, 40));
    SetPixel(mono.hdc, 2, 0, RGB(200, 200, 90));
    info = Header(3, 1, 1);
    ASSERT_EQ(Get(mono, 0, 1, bits, info), 1);
    EXPECT_EQ(bits[0], 0xA0);  // 1 0 1
    EXPECT_EQ(info.table[0].rgbRed, 0);
    EXPECT_EQ(info.table[1].rgbBlue, 255);
}

TEST(GetDIBitsTest, RowRangeCountsInTheDIBsOrderAndBadRequestsFail) {
    CVTestDib dib(1, 4, 32);
    for (int y = 0; y < 4; ++y) SetPixel(dib.hdc, 0, y, RGB(0, 0, 10 * (y + 1)));
    Info info = Header(1, 4, 32);
    uint32_t out[16] = {};
    // Bottom-up rows 1 and 2 are the image rows 2 and 1 from the top; the
    // range is clipped to the bitmap.
    EXPECT_EQ(Get(dib, 1, 2, out, info), 2);
    EXPECT_EQ(out[0], 30u);
    EXPECT_EQ(out[1], 20u);
    EXPECT_EQ(Get(dib, 3, 9, out, info), 1);
    EXPECT_EQ(out[0], 10u);
    EXPECT_EQ(Get(dib, 4, 1, out, info), 0);
    EXPECT_EQ(Get(dib, 0, 4, out, info, DIB_PAL_COLORS), 0);
    EXPECT_EQ(GetDIBits(dib.hdc, dib.bitmap, 0, 4, out, nullptr, DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(dib.hdc, nullptr, 0, 4, out, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS), 0);
    for (Info bad : {Header(2, 4, 32), Header(1, 4, 7)}) EXPECT_EQ(Get(dib, 0, 4, out, bad), 0);  // width, depth
}

}  // namespace
