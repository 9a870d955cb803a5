// Raster operations on real pixels, through the GDI calls that drive them.
#include "platform/WinGDI.h"
#include "platform/CVTestDib.h"

#include <gtest/gtest.h>

#include <climits>

namespace {
// With pattern 0xF0, source 0xCC and destination 0xAA in every channel, each
// channel of the result is the raster operation's code byte: that is how the
// codes are defined.
struct RopCase {
    const char* name;
    DWORD rop;
    BYTE expected;
};
const RopCase kRops[] = {
    {"SRCCOPY", SRCCOPY, 0xCC},       {"SRCAND", SRCAND, 0x88},       {"SRCPAINT", SRCPAINT, 0xEE},
    {"SRCINVERT", SRCINVERT, 0x66},   {"NOTSRCCOPY", NOTSRCCOPY, 0x33}, {"MERGECOPY", MERGECOPY, 0xC0},
    {"PATCOPY", PATCOPY, 0xF0},       {"PATINVERT", PATINVERT, 0x5A}, {"BLACKNESS", BLACKNESS, 0x00},
    {"WHITENESS", WHITENESS, 0xFF},   {"DSTINVERT", DSTINVERT, 0x55},
    {"DPSnoo", 0x00FB0A09, 0xFB},  // no named constant: goes through the general truth-table path
};

void PrintTo(const RopCase& c, std::ostream* os) { *os << c.name; }
class RopTest : public testing::TestWithParam<RopCase> {};

TEST_P(RopTest, EachChannelGetsTheCodeByte) {
    const RopCase& c = GetParam();
    CVTestDib dst(4, 2, 32), src(4, 2, 32);
    dst.Fill(RGB(0xAA, 0xAA, 0xAA));
    src.Fill(RGB(0xCC, 0xCC, 0xCC));
    HBRUSH brush = CreateSolidBrush(RGB(0xF0, 0xF0, 0xF0));
    HGDIOBJ oldBrush = SelectObject(dst.hdc, brush);
    // Only the middle two columns of the top row: the rest must stay as it was.
    ASSERT_TRUE(BitBlt(dst.hdc, 1, 0, 2, 1, src.hdc, 0, 0, c.rop));
    const COLORREF want = RGB(c.expected, c.expected, c.expected);
    EXPECT_EQ(dst.At(1, 0), want);
    EXPECT_EQ(dst.At(2, 0), want);
    EXPECT_EQ(dst.At(0, 0), RGB(0xAA, 0xAA, 0xAA));
    EXPECT_EQ(dst.At(3, 0), RGB(0xAA, 0xAA, 0xAA));
    EXPECT_EQ(dst.At(1, 1), RGB(0xAA, 0xAA, 0xAA));
    SelectObject(dst.hdc, oldBrush);
    DeleteObject(brush);
}

INSTANTIATE_TEST_SUITE_P(CVGdiRasterTest, RopTest, testing::ValuesIn(kRops),
                         [](const testing::TestParamInfo<RopCase>& i) { return std::string(i.param.name); });

TEST(CVGdiRasterTest, PatBltRefusesSourceOperations) {
    CVTestDib dst(2, 2, 32);
    dst.Fill(RGB(1, 2, 3));
    EXPECT_FALSE(PatBlt(dst.hdc, 0, 0, 2, 2, SRCCOPY));
    EXPECT_TRUE(PatBlt(dst.hdc, 0, 0, 2, 2, DSTINVERT));
    EXPECT_EQ(dst.At(1, 1), RGB(254, 253, 252));
}

// A 2x2 source of four colours, for the scaling cases.
void FillQuadrants(CVTestDib& d) {
    SetPixel(d.hdc, 0, 0, RGB(255, 0, 0));
    SetPixel(d.hdc, 1, 0, RGB(0, 255, 0));
    SetPixel(d.hdc, 0, 1, RGB(0, 0, 255));
    SetPixel(d.hdc, 1, 1, RGB(255, 255, 0));
}

TEST(CVGdiRasterTest, StretchBltEnlargesByNearestNeighbour) {
    CVTestDib src(2, 2, 32), dst(6, 4, 32);
    FillQuadrants(src);
    SetStretchBltMode(dst.hdc, COLORONCOLOR);
    ASSERT_TRUE(StretchBlt(dst.hdc, 0, 0, 6, 4, src.hdc, 0, 0, 2, 2, SRCCOPY));
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 6; ++x) {
            SCOPED_TRACE(testing::Message() << x << "," << y);
            EXPECT_EQ(dst.At(x, y), src.At(x / 3, y / 2));
        }
    }
}

TEST(CVGdiRasterTest, StretchBltShrinksTakingThePixelUnderEachCentre) {
    CVTestDib src(4, 4, 32), dst(2, 2, 32);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) SetPixel(src.hdc, x, y, RGB(x * 60, y * 60, 7));
    ASSERT_TRUE(StretchBlt(dst.hdc, 0, 0, 2, 2, src.hdc, 0, 0, 4, 4, SRCCOPY));
    // Destination pixel 0 covers source 0..2, its centre falls on source 1.
    EXPECT_EQ(dst.At(0, 0), RGB(60, 60, 7));
    EXPECT_EQ(dst.At(1, 0), RGB(180, 60, 7));
    EXPECT_EQ(dst.At(1, 1), RGB(180, 180, 7));
}

TEST(CVGdiRasterTest, OppositeExtentSignsMirror) {
    CVTestDib src(2, 2, 32), dst(2, 2, 32);
    FillQuadrants(src);
    ASSERT_TRUE(StretchBlt(dst.hdc, 2, 0, -2, 2, src.hdc, 0, 0, 2, 2, SRCCOPY));
    EXPECT_EQ(dst.At(0, 0), RGB(0, 255, 0));
    EXPECT_EQ(dst.At(1, 1), RGB(0, 0, 255));
}

TEST(CVGdiRasterTest, BlitsClipToBothBitmaps) {
    CVTestDib src(4, 4, 32), dst(4, 4, 32);
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
}

TEST(CVGdiRasterTest, OverlappingCopyWithinOneBitmapSeesTheOldPixels) {
    CVTestDib d(4, 1, 32);
    for (int x = 0; x < 4; ++x) SetPixel(d.hdc, x, 0, RGB(x * 10, 0, 0));
    ASSERT_TRUE(BitBlt(d.hdc, 1, 0, 3, 1, d.hdc, 0, 0, SRCCOPY));
    EXPECT_EQ(d.At(1, 0), RGB(0, 0, 0));
    EXPECT_EQ(d.At(2, 0), RGB(10, 0, 0));
    EXPECT_EQ(d.At(3, 0), RGB(20, 0, 0));
}

TEST(CVGdiRasterTest, ColourToMonoMarksTheSourceBackgroundColour) {
    CVTestDib colour(3, 1, 32), mask(3, 1, 1);
    SetPixel(colour.hdc, 0, 0, RGB(255, 0, 255));
    SetPixel(colour.hdc, 1, 0, RGB(10, 20, 30));
    SetPixel(colour.hdc, 2, 0, RGB(255, 0, 255));
    SetBkColor(colour.hdc, RGB(255, 0, 255));
    ASSERT_TRUE(BitBlt(mask.hdc, 0, 0, 3, 1, colour.hdc, 0, 0, SRCCOPY));
    EXPECT_EQ(mask.bits[0] & 0xE0, 0xA0);  // bits 1 0 1
}

TEST(CVGdiRasterTest, MonoToColourUsesDestinationTextAndBackground) {
    CVTestDib mask(2, 1, 1), colour(2, 1, 32);
    mask.bits[0] = 0x40;  // pixel 0 clear, pixel 1 set
    SetTextColor(colour.hdc, RGB(200, 0, 0));
    SetBkColor(colour.hdc, RGB(0, 0, 200));
    ASSERT_TRUE(BitBlt(colour.hdc, 0, 0, 2, 1, mask.hdc, 0, 0, SRCCOPY));
    EXPECT_EQ(colour.At(0, 0), RGB(200, 0, 0));
    EXPECT_EQ(colour.At(1, 0), RGB(0, 0, 200));
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

    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x) {
            bool inside = x >= 1 && x < 3 && y >= 1 && y < 3;
            EXPECT_EQ(dst.At(x, y), inside ? ink : back) << x << "," << y;
        }
    }
}

struct ConvertCase {
    const char* name;
    int srcBpp, dstBpp;
    COLORREF in, out;
};
const ConvertCase kConversions[] = {
    // 0x84 is 16/31 and 33/63: exact in 5-6-5.
    {"To565Exact", 32, 16, RGB(0x84, 0x82, 0x84), RGB(0x84, 0x82, 0x84)},
    {"To565Rounded", 32, 16, RGB(0x86, 0x85, 0x01), RGB(0x84, 0x86, 0x00)},
    {"From565", 16, 32, RGB(255, 0, 0x84), RGB(255, 0, 0x84)},
    {"ToGreyPaletteNearest", 32, 8, RGB(100, 101, 99), RGB(100, 100, 100)},
    {"ToMonoByBackground", 32, 1, RGB(255, 255, 255), RGB(255, 255, 255)},
};
void PrintTo(const ConvertCase& c, std::ostream* os) { *os << c.name; }
class ConvertTest : public testing::TestWithParam<ConvertCase> {};

TEST_P(ConvertTest, CopyMatchesTheDestinationEncoding) {
    const ConvertCase& c = GetParam();
    CVTestDib src(1, 1, c.srcBpp), dst(1, 1, c.dstBpp);
    SetPixel(src.hdc, 0, 0, c.in);
    ASSERT_TRUE(BitBlt(dst.hdc, 0, 0, 1, 1, src.hdc, 0, 0, SRCCOPY));
    EXPECT_EQ(dst.At(0, 0), c.out);
}

INSTANTIATE_TEST_SUITE_P(CVGdiRasterTest, ConvertTest, testing::ValuesIn(kConversions),
                         [](const testing::TestParamInfo<ConvertCase>& i) { return std::string(i.param.name); });
}  // namespace
