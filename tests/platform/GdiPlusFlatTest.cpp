#include <gtest/gtest.h>

#include <string>

#include "platform/CVTestDib.h"
#include "platform/GdiPlusFlat.h"

namespace {

const COLORREF kWhite = RGB(255, 255, 255);
const COLORREF kBlack = RGB(0, 0, 0);
const ARGB kOpaqueBlack = 0xFF000000;

struct DibCase {
    const char* name;
    int bpp;
    bool topDown;
};
void PrintTo(const DibCase& c, std::ostream* os) { *os << c.name; }

// 32-bit DIBs are drawn in place, the others through a converted copy.
const DibCase kDibCases[] = {
    {"Bgra32BottomUp", 32, false}, {"Bgra32TopDown", 32, true}, {"Rgb565", 16, false}, {"Grey8", 8, true},
    {"Mono1", 1, false},
};

class GdiPlusDrawTest : public ::testing::TestWithParam<DibCase> {
protected:
    void SetUp() override {
        m_dib.Fill(kWhite);
        ASSERT_EQ(GdipCreateFromHDC(m_dib.hdc, &m_graphics), Ok);
        ASSERT_EQ(GdipCreatePen1(kOpaqueBlack, 1.0f, UnitPixel, &m_pen), Ok);
        ASSERT_EQ(GdipCreateSolidFill(kOpaqueBlack, &m_brush), Ok);
    }
    void TearDown() override {
        GdipDeletePen(m_pen);
        GdipDeleteBrush(m_brush);
        GdipDeleteGraphics(m_graphics);
    }
    // "#" for black pixels, "." for white, row by row over [x0, x1) x [y0, y1).
    std::string Map(int x0, int y0, int x1, int y1) const {
        std::string s;
        for (int y = y0; y < y1; ++y) {
            for (int x = x0; x < x1; ++x) s += m_dib.At(x, y) == kBlack ? '#' : m_dib.At(x, y) == kWhite ? '.' : '?';
            s += '\n';
        }
        return s;
    }

    CVTestDib m_dib{16, 16, GetParam().bpp, GetParam().topDown};
    GpGraphics* m_graphics = nullptr;
    GpPen* m_pen = nullptr;
    GpSolidFill* m_brush = nullptr;
};

TEST_P(GdiPlusDrawTest, FilledRectangleCoversWidthTimesHeight) {
    ASSERT_EQ(GdipFillRectangleI(m_graphics, m_brush, 2, 3, 4, 2), Ok);
    EXPECT_EQ(Map(1, 2, 7, 6), "......\n.####.\n.####.\n......\n");
}

TEST_P(GdiPlusDrawTest, OutlinedRectangleSpansOneMorePixel) {
    ASSERT_EQ(GdipDrawRectangleI(m_graphics, m_pen, 2, 2, 3, 3), Ok);
    EXPECT_EQ(Map(1, 1, 7, 7), "......\n.####.\n.#..#.\n.#..#.\n.####.\n......\n");
}

TEST_P(GdiPlusDrawTest, HorizontalLineCoversItsRow) {
    ASSERT_EQ(GdipDrawLineI(m_graphics, m_pen, 2, 5, 6, 5), Ok);
    EXPECT_EQ(Map(1, 4, 8, 7), ".......\n.####..\n.......\n");
}

TEST_P(GdiPlusDrawTest, PieAndArcFollowClockwiseAngles) {
    // Quarter from 0 to 90 degrees: the lower right on screen.
    ASSERT_EQ(GdipFillPieI(m_graphics, m_brush, 0, 0, 16, 16, 0, 90), Ok);
    EXPECT_EQ(m_dib.At(11, 11), kBlack);
    EXPECT_EQ(m_dib.At(4, 11), kWhite);
    EXPECT_EQ(m_dib.At(11, 4), kWhite);
    // Upper-left quarter of the rim only (flat caps end it at the axes).
    ASSERT_EQ(GdipDrawArcI(m_graphics, m_pen, 0, 0, 16, 16, 180, 90), Ok);
    EXPECT_EQ(m_dib.At(0, 6), kBlack);
    EXPECT_EQ(m_dib.At(6, 0), kBlack);
    EXPECT_EQ(m_dib.At(2, 2), kBlack);
    EXPECT_EQ(m_dib.At(4, 4), kWhite);
    EXPECT_EQ(m_dib.At(15, 3), kWhite);
}

INSTANTIATE_TEST_SUITE_P(Dibs, GdiPlusDrawTest, ::testing::ValuesIn(kDibCases),
                         [](const auto& info) { return std::string(info.param.name); });

class GdiPlusGraphicsTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_dib.Fill(kWhite);
        ASSERT_EQ(GdipCreateFromHDC(m_dib.hdc, &m_graphics), Ok);
    }
    void TearDown() override { GdipDeleteGraphics(m_graphics); }
    GpStatus Fill(ARGB color, void (*draw)(GpGraphics*, GpBrush*)) {
        GpSolidFill* brush = nullptr;
        GdipCreateSolidFill(color, &brush);
        draw(m_graphics, brush);
        return GdipDeleteBrush(brush);
    }
    int Partial() const {
        int n = 0;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x) n += m_dib.At(x, y) != kWhite && m_dib.At(x, y) != kBlack;
        return n;
    }

    CVTestDib m_dib{16, 16, 32};
    GpGraphics* m_graphics = nullptr;
};

TEST_F(GdiPlusGraphicsTest, SmoothingBlendsEdgesOnlyWhenAntiAliased) {
    auto ellipse = [](GpGraphics* g, GpBrush* b) { GdipFillEllipseI(g, b, 1, 1, 13, 13); };
    Fill(kOpaqueBlack, ellipse);
    EXPECT_EQ(Partial(), 0);
    EXPECT_EQ(m_dib.At(7, 7), kBlack);
    EXPECT_EQ(m_dib.At(1, 1), kWhite);
    m_dib.Fill(kWhite);
    ASSERT_EQ(GdipSetSmoothingMode(m_graphics, SmoothingModeAntiAlias), Ok);
    SmoothingMode mode;
    GdipGetSmoothingMode(m_graphics, &mode);
    EXPECT_EQ(mode, SmoothingModeAntiAlias);
    Fill(kOpaqueBlack, ellipse);
    EXPECT_GT(Partial(), 8);
    EXPECT_EQ(m_dib.At(7, 7), kBlack);
}

TEST_F(GdiPlusGraphicsTest, TranslucentFillsBlendAndClearIsOpaque) {
    Fill(0x80000000, [](GpGraphics* g, GpBrush* b) { GdipFillRectangleI(g, b, 0, 0, 4, 4); });
    COLORREF c = m_dib.At(1, 1);
    EXPECT_NEAR(GetRValue(c), 127, 1);
    EXPECT_EQ(GetRValue(c), GetBValue(c));
    ASSERT_EQ(GdipGraphicsClear(m_graphics, 0x00336699), Ok);
    EXPECT_EQ(m_dib.At(15, 15), RGB(0x33, 0x66, 0x99));
}

TEST_F(GdiPlusGraphicsTest, FillModeDecidesSelfOverlaps) {
    // A pentagram: its centre is covered twice.
    const GpPoint star[] = {{8, 0}, {13, 15}, {0, 5}, {15, 5}, {3, 15}};
    for (GpFillMode mode : {FillModeAlternate, FillModeWinding}) {
        m_dib.Fill(kWhite);
        GpSolidFill* brush = nullptr;
        GdipCreateSolidFill(kOpaqueBlack, &brush);
        ASSERT_EQ(GdipFillPolygonI(m_graphics, brush, star, 5, mode), Ok);
        GdipDeleteBrush(brush);
        EXPECT_EQ(m_dib.At(8, 8), mode == FillModeWinding ? kBlack : kWhite);
        EXPECT_EQ(m_dib.At(8, 2), kBlack);
    }
}

TEST_F(GdiPlusGraphicsTest, BadArgumentsAndGoneDCsReportStatus) {
    GpGraphics* g = nullptr;
    EXPECT_EQ(GdipCreateFromHDC(reinterpret_cast<HDC>(0x7FFFFFF0), &g), InvalidParameter);
    EXPECT_EQ(g, nullptr);
    GpPen* pen = nullptr;
    GdipCreatePen1(kOpaqueBlack, 0.25f, UnitWorld, &pen);
    EXPECT_EQ(GdipDrawLineI(m_graphics, nullptr, 0, 0, 5, 5), InvalidParameter);
    const GpPoint one[] = {{1, 1}};
    EXPECT_EQ(GdipDrawPolygonI(m_graphics, pen, one, 1), InvalidParameter);
    EXPECT_EQ(GdipDrawLineI(m_graphics, pen, -20, -20, -10, -10), Ok);  // wholly outside: nothing
    EXPECT_EQ(GdipDrawLineI(m_graphics, pen, 0, 3, 15, 3), Ok);          // thin pens still draw a pixel wide
    EXPECT_EQ(m_dib.At(9, 3), kBlack);

    HDC other = CreateCompatibleDC(nullptr);
    GdipCreateFromHDC(other, &g);
    DeleteDC(other);
    EXPECT_EQ(GdipDrawLineI(g, pen, 0, 0, 5, 5), Win32Error);
    GdipDeleteGraphics(g);
    GdipDeletePen(pen);
}

}  // namespace
