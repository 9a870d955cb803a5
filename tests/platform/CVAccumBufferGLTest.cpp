// The software accumulation buffer on EGL contexts, which have none of their own.
#include "platform/CVAccumBuffer.h"
#include "platform/CVTestGLDib.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {
void Clear(float r, float g, float b) {
    glClearColor(r, g, b, 1);
    glClear(GL_COLOR_BUFFER_BIT);
}

void ExpectNear(COLORREF got, int r, int g, int b, int tolerance) {
    EXPECT_LE(std::abs(GetRValue(got) - r), tolerance) << std::hex << got;
    EXPECT_LE(std::abs(GetGValue(got) - g), tolerance) << std::hex << got;
    EXPECT_LE(std::abs(GetBValue(got) - b), tolerance) << std::hex << got;
}

class AverageTest : public testing::TestWithParam<int> {};

TEST_P(AverageTest, ThreeFramesAverageToGrey) {
    CVTestGLDib dib(64, 64, GetParam());
    ASSERT_TRUE(dib.MakeCurrent());
    GLint bits = -1;
    glGetIntegerv(GL_ACCUM_RED_BITS, &bits);
    ASSERT_EQ(bits, 0);
    Clear(1, 0, 0);
    CVAccum(GL_LOAD, 1.0f / 3);
    Clear(0, 1, 0);
    CVAccum(GL_ACCUM, 1.0f / 3);
    Clear(0, 0, 1);
    CVAccum(GL_ACCUM, 1.0f / 3);
    CVAccum(GL_RETURN, 1.0f);
    ASSERT_TRUE(SwapBuffers(dib.hdc));
    // 85 is a third of 255; a 5-bit channel holds a third only to within one step (8).
    const int tolerance = GetParam() == 32 ? 1 : 5;
    ExpectNear(dib.At(0, 0), 85, 85, 85, tolerance);
    ExpectNear(dib.At(63, 63), 85, 85, 85, tolerance);
    ExpectNear(dib.At(31, 17), 85, 85, 85, tolerance);
    EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
}

INSTANTIATE_TEST_SUITE_P(CVAccumBufferGLTest, AverageTest, testing::Values(32, 16),
                         [](const testing::TestParamInfo<int>& i) { return "Bits" + std::to_string(i.param); });

TEST(CVAccumBufferGLTest, ScissorBoxBoundsEveryOperation) {
    CVTestGLDib dib(32, 32, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    Clear(1, 0, 0);
    glScissor(0, 0, 16, 32);  // left half
    glEnable(GL_SCISSOR_TEST);
    CVAccum(GL_LOAD, 1.0f);
    glDisable(GL_SCISSOR_TEST);
    Clear(0, 0, 1);
    CVAccum(GL_RETURN, 1.0f);  // whole window: the right half was never loaded
    EXPECT_EQ(dib.GLAt(4, 4), RGB(255, 0, 0));
    EXPECT_EQ(dib.GLAt(28, 4), RGB(0, 0, 0));
    Clear(0, 0, 1);
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
    Clear(1, 1, 1);
    CVAccum(GL_LOAD, 0.5f);
    CVAccum(GL_MULT, 0.5f);
    CVAccum(GL_ADD, 0.25f);
    Clear(0, 0, 0);
    CVAccum(GL_RETURN, 1.0f);
    ExpectNear(dib.GLAt(3, 3), 128, 128, 128, 1);
    CVAccum(GL_RETURN, 4.0f);  // 2.0 clamps to 1
    EXPECT_EQ(dib.GLAt(3, 3), RGB(255, 255, 255));
    Clear(0, 0, 0);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_TRUE);
    CVAccum(GL_RETURN, 4.0f);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    EXPECT_EQ(dib.GLAt(3, 3), RGB(255, 0, 255));
    CVAccum(GL_STENCIL, 1.0f);  // not an accumulation operation: nothing happens
    EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
}
}  // namespace
