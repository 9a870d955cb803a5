#include "geometry/CVDisc.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVDiscGLTest = cvtest::GeometryFixture;

TEST_F(CVDiscGLTest, HexagonWithPointsLeftAndRight) {
    Draw(cvtest::Sized(Make<CVDisc>(), 1, 1, 1));
    EXPECT_TRUE(Lit(0.45f, 0.0f));
    EXPECT_TRUE(Lit(-0.48f, 0.0f));
    EXPECT_TRUE(Lit(0.2f, 0.45f));
    EXPECT_FALSE(Lit(0.45f, 0.4f));  // corner cut off
    EXPECT_FALSE(Lit(-0.45f, -0.4f));
    EXPECT_EQ(LitBounds().y0, 24);
    EXPECT_EQ(LitBounds().y1, 39);
}

TEST_F(CVDiscGLTest, BothSidesShowAndTheStateIsRestored) {
    glRotatef(180.0f, 0.0f, 1.0f, 0.0f);
    Draw(cvtest::Sized(Make<CVDisc>(), 2, 1, 1));
    EXPECT_TRUE(Lit(0.9f, 0.0f));
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
    EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
}

}  // namespace
