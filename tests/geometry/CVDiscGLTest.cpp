#include <gtest/gtest.h>

#include <GL/gl.h>

#include "geometry/CVDisc.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVDiscGLTest = cvtest::GeometryFixture;

TEST_F(CVDiscGLTest, HexagonWithPointsLeftAndRight) {
    auto* disc = Make<CVDisc>();
    disc->size.SetValue(1, 1, 1);
    Draw(disc);
    EXPECT_TRUE(Lit(0.45f, 0.0f));
    EXPECT_TRUE(Lit(-0.48f, 0.0f));
    EXPECT_TRUE(Lit(0.2f, 0.45f));
    EXPECT_FALSE(Lit(0.45f, 0.4f));  // corner cut off
    EXPECT_FALSE(Lit(-0.45f, -0.4f));
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_EQ(b.y0, 24);
    EXPECT_EQ(b.y1, 39);
}

TEST_F(CVDiscGLTest, BothSidesShowAndCullingIsRestored) {
    auto* disc = Make<CVDisc>();
    disc->size.SetValue(2, 1, 1);
    glRotatef(180.0f, 0.0f, 1.0f, 0.0f);
    Draw(disc);
    EXPECT_TRUE(Lit(0.9f, 0.0f));
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    GLboolean texCoords = glIsEnabled(GL_TEXTURE_COORD_ARRAY);
    EXPECT_FALSE(texCoords);
    EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
}

}  // namespace
