// The software accumulation buffer on EGL contexts, which have none of their own.
#include "platform/CVAccumBuffer.h"
#include "platform/CVTestGLDib.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {
::testing::AssertionResult Near(COLORREF got, int r, int g, int b, int tolerance) {
    if (std::abs(GetRValue(got) - r) <= tolerance && std::abs(GetGValue(got) - g) <= tolerance &&
        std::abs(GetBValue(got) - b) <= tolerance)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << std::hex << got << " is not within " << tolerance << " of " << r << ","
                                         << g << "," << b;
}

TEST(CVAccumBufferGLTest, ThreeFramesAverageToGrey) {
    for (int bits : {32, 16}) {
        SCOPED_TRACE(bits);
        CVTestGLDib dib(64, 64, bits);
        ASSERT_TRUE(dib.MakeCurrent());
        ASSERT_EQ(CVTestGetInt(GL_ACCUM_RED_BITS), 0);
        CVTestClear(1, 0, 0);
        CVAccum(GL_LOAD, 1.0f / 3);
        CVTestClear(0, 1, 0);
        CVAccum(GL_ACCUM, 1.0f / 3);
        CVTestClear(0, 0, 1);
        CVAccum(GL_ACCUM, 1.0f / 3);
        CVAccum(GL_RETURN, 1.0f);
        ASSERT_TRUE(SwapBuffers(dib.hdc));
        // 85 is a third of 255; a 5-bit channel holds a third only to within one step (8).
        for (int xy : {0, 31, 63}) EXPECT_TRUE(Near(dib.At(xy, 63 - xy), 85, 85, 85, bits == 32 ? 1 : 5));
        EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
    }
}

TEST(CVAccumBufferGLTest, ScissorBoxBoundsEveryOperation) {
    CVTestGLDib dib(32, 32, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    CVTestClear(1, 0, 0);
    glScissor(0, 0, 16, 32);  // left half
    glEnable(GL_SCISSOR_TEST);
    CVAccum(GL_LOAD, 1.0f);
    glDisable(GL_SCISSOR_TEST);
    CVTestClear(0, 0, 1);
    CVAccum(GL_RETURN, 1.0f);  // whole window: the right half was never loaded
    EXPECT_EQ(dib.GLAt(4, 4), RGB(255, 0, 0));
    EXPECT_EQ(dib.GLAt(28, 4), RGB(0, 0, 0));
    CVTestClear(0, 0, 1);
    glEnable(GL_SCISSOR_TEST);
    glScissor(16, 0, 16, 32);
    CVAccum(GL_RETURN, 1.0f);
    glDisable(GL_SCISSOR_TEST);
    EXPECT_EQ(dib.GLAt(4, 4), RGB(0, 0, 255));
    EXPECT_EQ(dib.GLAt(28, 4), RGB(0, 0, 0));
}

TEST(CVAccumBufferGLTest, MultAddAndClampedReturnThroughTheColourMask) {
    CVTestGLDib dib(16, 16, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    CVTestClear(1, 1, 1);
    CVAccum(GL_LOAD, 0.5f);
    CVAccum(GL_MULT, 0.5f);
    CVAccum(GL_ADD, 0.25f);
    CVTestClear(0, 0, 0);
    CVAccum(GL_RETURN, 1.0f);
    EXPECT_TRUE(Near(dib.GLAt(3, 3), 128, 128, 128, 1));
    CVAccum(GL_RETURN, 4.0f);  // 2.0 clamps to 1
    EXPECT_EQ(dib.GLAt(3, 3), RGB(255, 255, 255));
    CVTestClear(0, 0, 0);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_TRUE);
    CVAccum(GL_RETURN, 4.0f);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    EXPECT_EQ(dib.GLAt(3, 3), RGB(255, 0, 255));
    CVAccum(GL_STENCIL, 1.0f);  // not an accumulation operation: nothing happens
    EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
}
}  // namespace
