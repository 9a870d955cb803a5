// Raster operations on real pixels, through the GDI calls that drive them.
#include "platform/WinGDI.h"
#include "support/CVTestDib.h"

#include <gtest/gtest.h>

#include <climits>

namespace {
// With pattern 0xF0, source 0xCC and destination 0xAA in every channel, each
// channel of the result is the raster operation's code byte: that is how the
// codes are defined.
TEST(CVGdiRasterTest, EachChannelGetsTheCodeByte) {
    const struct {
        DWORD rop;
        BYTE expected;
    } rops[] = {
        {SRCCOPY, 0xCC},   {SRCAND, 0x88},  {SRCPAINT, 0xEE},  {SRCINVERT, 0x66}, {NOTSRCCOPY, 0x33},
        {MERGECOPY, 0xC0}, {PATCOPY, 0xF0}, {PATINVERT, 0x5A}, {BLACKNESS, 0x00}, {WHITENESS, 0xFF},
        {DSTINVERT, 0x55}, {0x00FB0A09, 0xFB},  // no named constant: the general truth-table path
    };
    const COLORREF dest = RGB(0xAA, 0xAA, 0xAA);
    CVTestDib src(4, 2, 32);
    src.Fill(RGB(0xCC, 0xCC, 0xCC));
    for (const auto& c : rops) {
        SCOPED_TRACE(testing::Message() << std::hex << c.rop);
        CVTestDib dst(4, 2, 32);
        dst.Fill(dest);
        HBRUSH brush = CreateSolidBrush(RGB(0xF0, 0xF0, 0xF0));
        HGDIOBJ oldBrush = SelectObject(dst.hdc, brush);
        // Only the middle two columns of the top row: the rest must stay as it was.
        ASSERT_TRUE(BitBlt(dst.hdc, 1, 0, 2, 1, src.hdc, 0, 0, c.rop));
        const COLORREF want = RGB(c.expected, c.expected, c.expected);
        EXPECT_EQ((std::vector<COLORREF>{dst.At(0, 0), dst.At(1, 0), dst.At(2, 0), dst.At(3, 0), dst.At(1, 1)}),
                  (std::vector<COLORREF>{dest, want, want, dest, dest}));
        SelectObject(dst.hdc, oldBrush);
        DeleteObject(brush);
    }
    EXPECT_FALSE(PatBlt(src.hdc, 0, 0, 2, 2, SRCCOPY));  // PatBlt has no source
    EXPECT_TRUE(PatBlt(src.hdc, 0, 0, 2, 2, DSTINVERT));
    EXPECT_EQ(src.At(1, 1), RGB(0x33, 0x33, 0x33));
}

// A 2x2 source of four colours, for the scaling cases.
void FillQuadrants(CVTestDib& d) {
    SetPixel(d.hdc, 0, 0, RGB(255, 0, 0));
    SetPixel(d.hdc, 1, 0, RGB(0, 255, 0));
    SetPixel(d.hdc, 0, 1, RGB(0, 0, 255));
    SetPixel(d.hdc, 1, 1, RGB(255, 255, 0));
}

TEST(CVGdiRasterTest, StretchBltIsNearestNeighbourAndMirrorsOnOppositeSigns) {
    CVTestDib src(2, 2, 32), dst(6, 4, 32), mirror(2, 2, 32), big(4, 4, 32), small(2, 2, 32);
    FillQuadrants(src);
    SetStretchBltMode(dst.hdc, COLORONCOLOR);
    ASSERT_TRUE(StretchBlt(dst.hdc, 0, 0, 6, 4, src.hdc, 0, 0, 2, 2, SRCCOPY));
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 6; ++x) EXPECT_EQ(dst.At(x, y), src.At(x / 3, y / 2)) << x << "," << y;
    ASSERT_TRUE(StretchBlt(mirror.hdc, 2, 0, -2, 2, src.hdc, 0, 0, 2, 2, SRCCOPY));
    EXPECT_EQ(mirror.At(0, 0), RGB(0, 255, 0));
    EXPECT_EQ(mirror.At(1, 1), RGB(0, 0, 255));
    // Shrinking takes the pixel under each centre: destination 0 covers source
    // 0..2, its centre falls on source 1.
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) SetPixel(big.hdc, x, y, RGB(x * 60, y * 60, 7));
    ASSERT_TRUE(StretchBlt(small.hdc, 0, 0, 2, 2, big.hdc, 0, 0, 4, 4, SRCCOPY));
    EXPECT_EQ(small.At(0, 0), RGB(60, 60, 7));
    EXPECT_EQ(small.At(1, 0), RGB(180, 60, 7));
    EXPECT_EQ(small.At(1, 1), RGB(180, 180, 7));
}

TEST(CVGdiRasterTest, BlitsClipToBothBitmapsAndOverlapsSeeTheOldPixels) {
    CVTestDib src(4, 4, 32), dst(4, 4, 32), d(4, 1, 32);
    src.Fill(RGB(9, 9, 9));
    dst.Fill(RGB(1, 1, 1));
    // Three columns would come from outside the source, two rows land outside the destination.
    EXPECT_TRUE(BitBlt(dst.hdc, 0, 2, 4, 4, src.hdc, -3, 0, SRCCOPY));
    EXPECT_EQ(dst.At(2, 3), RGB(1, 1, 1));
    EXPECT_EQ(dst.At(3, 2), RGB(9, 9, 9));
    EXPECT_EQ(dst.At(3, 1), RGB(1, 1, 1));
    EXPECT_TRUE(BitBlt(dst.hdc, 100000, -100000, 5, 5, src.hdc, 0, 0, SRCCOPY));
    EXPECT_TRUE(PatBlt(dst.hdc, -0x7FFFFFFF, -5, 0x7FFFFFFF, 0x7FFFFFFF, BLACKNESS));
    EXPECT_EQ(dst.At(0, 0), RGB(1, 1, 1));  // the right edge, 0, is exclusive
    // Extreme extents (run under the sanitizers) neither overflow nor crash.
    EXPECT_TRUE(StretchBlt(dst.hdc, INT_MAX, INT_MIN, INT_MIN, INT_MAX, src.hdc, INT_MIN, 0, INT_MAX, INT_MIN,
                           SRCCOPY));
    for (int x = 0; x < 4; ++x) SetPixel(d.hdc, x, 0, RGB(x * 10, 0, 0));
    ASSERT_TRUE(BitBlt(d.hdc, 1, 0, 3, 1, d.hdc, 0, 0, SRCCOPY));
    EXPECT_EQ((std::vector<COLORREF>{d.At(1, 0), d.At(2, 0), d.At(3, 0)}),
              (std::vector<COLORREF>{RGB(0, 0, 0), RGB(10, 0, 0), RGB(20, 0, 0)}));
}

TEST(CVGdiRasterTest, ColourAndMonoConvertThroughTheBackgroundAndTextColours) {
    CVTestDib colour(3, 1, 32), mask(3, 1, 1), back(2, 1, 32);
    SetPixel(colour.hdc, 0, 0, RGB(255, 0, 255));
    SetPixel(colour.hdc, 1, 0, RGB(10, 20, 30));
    SetPixel(colour.hdc, 2, 0, RGB(255, 0, 255));
    SetBkColor(colour.hdc, RGB(255, 0, 255));
    ASSERT_TRUE(BitBlt(mask.hdc, 0, 0, 3, 1, colour.hdc, 0, 0, SRCCOPY));
    EXPECT_EQ(mask.bits[0] & 0xE0, 0xA0);  // the source's background colour marks bits 1 0 1
    SetTextColor(back.hdc, RGB(200, 0, 0));
    SetBkColor(back.hdc, RGB(0, 0, 200));
    ASSERT_TRUE(BitBlt(back.hdc, 0, 0, 2, 1, mask.hdc, 0, 0, SRCCOPY));  // 1 -> background, 0 -> text
    EXPECT_EQ(back.At(0, 0), RGB(0, 0, 200));
    EXPECT_EQ(back.At(1, 0), RGB(200, 0, 0));
}

TEST(CVGdiRasterTest, MaskMadeThroughBackgroundColourGivesTransparentCopy) {
    const COLORREF key = RGB(255, 0, 255), ink = RGB(40, 80, 120), back = RGB(0, 200, 0);
    CVTestDib image(4, 4, 32), mask(4, 4, 1), dst(4, 4, 32);
    image.Fill(key);
    image.Fill(1, 1, 3, 3, ink);
    dst.Fill(back);
    SetBkColor(image.hdc, key);
    ASSERT_TRUE(BitBlt(mask.hdc, 0, 0, 4, 4, image.hdc, 0, 0, SRCCOPY));
    // Key pixels of the image to black: mask 1 -> background black, 0 -> text white.
    SetBkColor(image.hdc, RGB(0, 0, 0));
    SetTextColor(image.hdc, RGB(255, 255, 255));
    ASSERT_TRUE(BitBlt(image.hdc, 0, 0, 4, 4, mask.hdc, 0, 0, SRCAND));
    // Hole in the destination where the image is opaque, then paint the image in.
    SetBkColor(dst.hdc, RGB(255, 255, 255));
    SetTextColor(dst.hdc, RGB(0, 0, 0));
    ASSERT_TRUE(BitBlt(dst.hdc, 0, 0, 4, 4, mask.hdc, 0, 0, SRCAND));
    ASSERT_TRUE(BitBlt(dst.hdc, 0, 0, 4, 4, image.hdc, 0, 0, SRCPAINT));
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(dst.At(x, y), x >= 1 && x < 3 && y >= 1 && y < 3 ? ink : back) << x << "," << y;
}

TEST(CVGdiRasterTest, CopyMatchesTheDestinationEncoding) {
    const struct {
        int srcBpp, dstBpp;
        COLORREF in, out;
    } cases[] = {
        {32, 16, RGB(0x84, 0x82, 0x84), RGB(0x84, 0x82, 0x84)},  // 16/31 and 33/63: exact in 5-6-5
        {32, 16, RGB(0x86, 0x85, 0x01), RGB(0x84, 0x86, 0x00)},  // rounded
        {16, 32, RGB(255, 0, 0x84), RGB(255, 0, 0x84)},
        {32, 8, RGB(100, 101, 99), RGB(100, 100, 100)},  // nearest of the grey palette
        {32, 1, RGB(255, 255, 255), RGB(255, 255, 255)},
    };
    for (const auto& c : cases) {
        CVTestDib src(1, 1, c.srcBpp), dst(1, 1, c.dstBpp);
        SetPixel(src.hdc, 0, 0, c.in);
        ASSERT_TRUE(BitBlt(dst.hdc, 0, 0, 1, 1, src.hdc, 0, 0, SRCCOPY));
        EXPECT_EQ(dst.At(0, 0), c.out) << c.srcBpp << " to " << c.dstBpp << " bits";
    }
}
}  // namespace
