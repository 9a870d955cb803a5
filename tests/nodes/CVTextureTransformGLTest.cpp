#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVTextureTransform.h"

namespace {

using CVTextureTransformGLTest = cvtest::NodeGLFixture;

TEST_F(CVTextureTransformGLTest, ApplyTurnsAndScalesAboutTheCentreThenTranslates) {
    CVTextureTransform transform;
    transform.translation.SetValue(0.5f, 0.0f);
    transform.center.SetValue(0.5f, 0.5f);
    transform.rotation.SetValue(1.5707963f);
    transform.scale.SetValue(2.0f, 1.0f);
    transform.Apply();
    EXPECT_EQ(cvtest::GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
    const CVMatrix m = cvtest::GetMatrix(GL_TEXTURE_MATRIX);
    // (1, 0.5) - centre = (0.5, 0); scaled (1, 0); turned (0, 1); + centre
    // (0.5, 1.5); + translation (1, 1.5).
    CVVector p;
    m.MultVecMatrix(CVVector(1.0f, 0.5f, 0.0f), p);
    EXPECT_NEAR(p.x, 1.0f, 1e-5f);
    EXPECT_NEAR(p.y, 1.5f, 1e-5f);
    EXPECT_EQ(m.m[2][2], 0.0f);  // texture z is flattened: the third scale factor is 0
}

}  // namespace
