#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVTexture.h"

namespace {

// The table ends with 4098: 4096 is not in it and 4098 is.
TEST(CVTextureTest, PowerOfTwoTableLookups) {
    const struct {
        int n, isPower, closest;
    } cases[] = {
        {-4, 0, 0},     {0, 0, 0},       {1, 1, 1},       {2, 1, 2},       {3, 0, 2},
        {4, 1, 4},      {5, 0, 4},       {512, 1, 512},   {513, 0, 512},   {3000, 0, 2048},
        {4096, 0, 2048}, {4097, 0, 2048}, {4098, 1, 4098}, {4099, 0, 4098}, {1 << 20, 0, 4098},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CVTexture::IsPowerOfTwo(c.n), c.isPower) << c.n;
        EXPECT_EQ(CVTexture::GetClosestPowerOfTwo(c.n), c.closest) << c.n;
    }
}

using CVTextureGLTest = cvtest::NodeGLFixture;

TEST_F(CVTextureGLTest, RepeatFlagsChooseTheWrapModes) {
    CVTexture t;
    for (int repeatS : {0, 1}) {
        for (int repeatT : {0, 1}) {
            t.repeatS.SetValue(repeatS);
            t.repeatT.SetValue(repeatT);
            t.Render(nullptr, area);
            GLint s = 0, w = 0;
            glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, &s);
            glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &w);
            EXPECT_EQ(s, repeatS ? GL_REPEAT : GL_CLAMP);
            EXPECT_EQ(w, repeatT ? GL_REPEAT : GL_CLAMP);
        }
    }
}

}  // namespace
