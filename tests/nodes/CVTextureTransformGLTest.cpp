#include <gtest/gtest.h>

#include <GL/gl.h>

#include "math/CVMatrix.h"
#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVTextureTransform.h"

namespace {

CVMatrix TextureMatrix() {
    GLfloat m[16];
    glGetFloatv(GL_TEXTURE_MATRIX, m);
    return CVMatrix(m);
}

GLint GetInt(GLenum what) {
    GLint v = 0;
    glGetIntegerv(what, &v);
    return v;
}

class CVTextureTransformGLTest : public cvtest::NodeGLFixture {
protected:
    CVTextureTransformGLTest() { transform->Ref(); }
    ~CVTextureTransformGLTest() override { transform->Unref(); }
    CVTextureTransform* transform = new CVTextureTransform;
};

TEST_F(CVTextureTransformGLTest, ApplyTurnsAndScalesAboutTheCentreThenTranslates) {
    transform->translation.SetValue(0.5f, 0.0f);
    transform->center.SetValue(0.5f, 0.5f);
    transform->rotation.SetValue(1.5707963f);
    transform->scale.SetValue(2.0f, 1.0f);
    transform->Apply();
    EXPECT_EQ(GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
    const CVMatrix m = TextureMatrix();
    // (1, 0.5) - centre = (0.5, 0); scaled (1, 0); turned (0, 1); + centre
    // (0.5, 1.5); + translation (1, 1.5).
    const float x = 1.0f, y = 0.5f;
    EXPECT_NEAR(m.m[0][0] * x + m.m[0][1] * y + m.m[0][3], 1.0f, 1e-5f);
    EXPECT_NEAR(m.m[1][0] * x + m.m[1][1] * y + m.m[1][3], 1.5f, 1e-5f);
    // Texture z is flattened: the third scale factor is 0.
    EXPECT_EQ(m.m[2][2], 0.0f);
}

}  // namespace
