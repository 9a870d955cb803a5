// GDI+ drawing into DIB sections of every format, and on a DIB that also has
// an EGL context.
#include <gtest/gtest.h>

#include <string>

#include "platform/CVTestGLDib.h"
#include "platform/GdiPlusFlat.h"

namespace {

const COLORREF kWhite = RGB(255, 255, 255), kBlack = RGB(0, 0, 0);
const ARGB kOpaqueBlack = 0xFF000000;

// A white 16 x 16 DIB with graphics, a one-pixel black pen and a black brush.
struct Canvas {
    explicit Canvas(int bpp = 32, bool topDown = false) : dib(16, 16, bpp, topDown) {
        dib.Fill(kWhite);
        EXPECT_EQ(GdipCreateFromHDC(dib.hdc, &g), Ok);
        GdipCreatePen1(kOpaqueBlack, 1.0f, UnitPixel, &pen);
        GdipCreateSolidFill(kOpaqueBlack, &brush);
    }
    ~Canvas() {
        GdipDeletePen(pen);
        GdipDeleteBrush(brush);
        GdipDeleteGraphics(g);
    }
    // "#" for black pixels, "." for white, row by row over [x0, x1) x [y0, y1).
    std::string Map(int x0, int y0, int x1, int y1) const {
        std::string s;
        for (int y = y0; y < y1; ++y, s += '\n')
            for (int x = x0; x < x1; ++x) s += dib.At(x, y) == kBlack ? '#' : dib.At(x, y) == kWhite ? '.' : '?';
        return s;
    }
    // Pixels neither black nor white.
    int Partial() const {
        int n = 0;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x) n += dib.At(x, y) != kWhite && dib.At(x, y) != kBlack;
        return n;
    }
    CVTestDib dib;
    GpGraphics* g = nullptr;
    GpPen* pen = nullptr;
    GpSolidFill* brush = nullptr;
};

// 32-bit DIBs are drawn in place, the others through a converted copy.
TEST(GdiPlusFlatTest, ShapesCoverTheirPixelsOnEveryDibFormat) {
    const struct {
        int bpp;
        bool topDown;
    } formats[] = {{32, false}, {32, true}, {16, false}, {8, true}, {1, false}};
    for (const auto& f : formats) {
        SCOPED_TRACE(testing::Message() << f.bpp << (f.topDown ? " bits top-down" : " bits"));
        Canvas fill(f.bpp, f.topDown), outline(f.bpp, f.topDown), line(f.bpp, f.topDown), pie(f.bpp, f.topDown);
        ASSERT_EQ(GdipFillRectangleI(fill.g, fill.brush, 2, 3, 4, 2), Ok);
        EXPECT_EQ(fill.Map(1, 2, 7, 6), "......\n.####.\n.####.\n......\n");  // width x height
        ASSERT_EQ(GdipDrawRectangleI(outline.g, outline.pen, 2, 2, 3, 3), Ok);
        EXPECT_EQ(outline.Map(1, 1, 7, 7), "......\n.####.\n.#..#.\n.#..#.\n.####.\n......\n");  // one more
        ASSERT_EQ(GdipDrawLineI(line.g, line.pen, 2, 5, 6, 5), Ok);
        EXPECT_EQ(line.Map(1, 4, 8, 7), ".......\n.####..\n.......\n");
        // Clockwise angles: a quarter from 0 to 90 degrees is the lower right on
        // screen; the arc is the upper-left rim only (flat caps end it at the axes).
        ASSERT_EQ(GdipFillPieI(pie.g, pie.brush, 0, 0, 16, 16, 0, 90), Ok);
        ASSERT_EQ(GdipDrawArcI(pie.g, pie.pen, 0, 0, 16, 16, 180, 90), Ok);
        const struct {
            int x, y;
            COLORREF c;
        } probes[] = {{11, 11, kBlack}, {4, 11, kWhite}, {11, 4, kWhite}, {0, 6, kBlack},
                      {6, 0, kBlack},   {2, 2, kBlack},  {4, 4, kWhite},  {15, 3, kWhite}};
        for (const auto& p : probes) EXPECT_EQ(pie.dib.At(p.x, p.y), p.c) << p.x << "," << p.y;
    }
}

TEST(GdiPlusFlatTest, SmoothingBlendsEdgesOnlyWhenAntiAliased) {
    Canvas sharp, smooth;
    ASSERT_EQ(GdipSetSmoothingMode(smooth.g, SmoothingModeAntiAlias), Ok);
    SmoothingMode mode;
    GdipGetSmoothingMode(smooth.g, &mode);
    EXPECT_EQ(mode, SmoothingModeAntiAlias);
    for (Canvas* c : {&sharp, &smooth}) {
        GdipFillEllipseI(c->g, c->brush, 1, 1, 13, 13);
        EXPECT_EQ(c->dib.At(7, 7), kBlack);
        EXPECT_EQ(c->dib.At(1, 1), kWhite);
    }
    EXPECT_EQ(sharp.Partial(), 0);
    EXPECT_GT(smooth.Partial(), 8);
}

TEST(GdiPlusFlatTest, TranslucentFillsBlendClearIsOpaqueAndFillModeDecidesOverlaps) {
    Canvas c;
    GpSolidFill* half = nullptr;
    GdipCreateSolidFill(0x80000000, &half);
    GdipFillRectangleI(c.g, half, 0, 0, 4, 4);
    GdipDeleteBrush(half);
    EXPECT_NEAR(GetRValue(c.dib.At(1, 1)), 127, 1);
    EXPECT_EQ(GetRValue(c.dib.At(1, 1)), GetBValue(c.dib.At(1, 1)));
    ASSERT_EQ(GdipGraphicsClear(c.g, 0x00336699), Ok);
    EXPECT_EQ(c.dib.At(15, 15), RGB(0x33, 0x66, 0x99));
    // A pentagram: its centre is covered twice.
    const GpPoint star[] = {{8, 0}, {13, 15}, {0, 5}, {15, 5}, {3, 15}};
    for (GpFillMode mode : {FillModeAlternate, FillModeWinding}) {
        c.dib.Fill(kWhite);
        ASSERT_EQ(GdipFillPolygonI(c.g, c.brush, star, 5, mode), Ok);
        EXPECT_EQ(c.dib.At(8, 8), mode == FillModeWinding ? kBlack : kWhite);
        EXPECT_EQ(c.dib.At(8, 2), kBlack);
    }
}

TEST(GdiPlusFlatTest, BadArgumentsAndGoneDCsReportStatus) {
    Canvas c;
    GpGraphics* g = nullptr;
    EXPECT_EQ(GdipCreateFromHDC(reinterpret_cast<HDC>(0x7FFFFFF0), &g), InvalidParameter);
    EXPECT_EQ(g, nullptr);
    GpPen* thin = nullptr;
    GdipCreatePen1(kOpaqueBlack, 0.25f, UnitWorld, &thin);
    EXPECT_EQ(GdipDrawLineI(c.g, nullptr, 0, 0, 5, 5), InvalidParameter);
    const GpPoint one[] = {{1, 1}};
    EXPECT_EQ(GdipDrawPolygonI(c.g, thin, one, 1), InvalidParameter);
    EXPECT_EQ(GdipDrawLineI(c.g, thin, -20, -20, -10, -10), Ok);  // wholly outside: nothing
    EXPECT_EQ(GdipDrawLineI(c.g, thin, 0, 3, 15, 3), Ok);          // thin pens still draw a pixel wide
    EXPECT_EQ(c.dib.At(9, 3), kBlack);
    EXPECT_EQ(c.Partial(), 0);
    HDC other = CreateCompatibleDC(nullptr);
    GdipCreateFromHDC(other, &g);
    DeleteDC(other);
    EXPECT_EQ(GdipDrawLineI(g, thin, 0, 0, 5, 5), Win32Error);
    GdipDeleteGraphics(g);
    GdipDeletePen(thin);
}

// GL's pixels and the drawing must end up in both the DIB and GL's colour buffer.
TEST(GdiPlusFlatGLTest, DrawingKeepsDibAndColourBufferInStep) {
    CVTestGLDib dib(32, 32, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    CVTestClear(0, 1, 0);
    GpGraphics* graphics = nullptr;
    GpSolidFill* red = nullptr;
    ASSERT_EQ(GdipCreateFromHDC(dib.hdc, &graphics), Ok);
    GdipCreateSolidFill(0xFFFF0000, &red);
    ASSERT_EQ(GdipFillRectangleI(graphics, red, 2, 2, 6, 6), Ok);
    // GL's clear reached the DIB around the fill before it was drawn (the
    // pixel next to it is in the rectangle sent back), and the fill went to GL.
    EXPECT_EQ(dib.At(8, 8), RGB(0, 255, 0));
    EXPECT_EQ(dib.At(4, 4), RGB(255, 0, 0));
    EXPECT_EQ(wglGetCurrentContext(), dib.context);
    EXPECT_EQ(dib.GLAt(4, 4), RGB(255, 0, 0));
    EXPECT_EQ(dib.GLAt(20, 20), RGB(0, 255, 0));
    // GL draws on top; the next frame read brings both into the DIB.
    CVTestDrawRect(16, 0, 32, 8, 32, 32, 0, 0, 1);
    ASSERT_TRUE(SwapBuffers(dib.hdc));
    EXPECT_EQ(dib.At(20, 28), RGB(0, 0, 255));
    EXPECT_EQ(dib.At(20, 20), RGB(0, 255, 0));
    EXPECT_EQ(dib.At(4, 4), RGB(255, 0, 0));
    GdipDeleteBrush(red);
    GdipDeleteGraphics(graphics);
}

}  // namespace
