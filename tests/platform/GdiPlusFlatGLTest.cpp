// GDI+ drawing on a DIB that also has an EGL context: GL's pixels and the
// drawing must end up in both the DIB and GL's colour buffer.
#include <gtest/gtest.h>

#include "platform/CVTestGLDib.h"
#include "platform/GdiPlusFlat.h"

namespace {

TEST(GdiPlusFlatGLTest, DrawingKeepsDibAndColourBufferInStep) {
    CVTestGLDib dib(32, 32, 32);
    ASSERT_NE(dib.context, nullptr);
    ASSERT_TRUE(dib.MakeCurrent());
    glClearColor(0, 1, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);

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
