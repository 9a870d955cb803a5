#include <gtest/gtest.h>

#include <GL/gl.h>

#include "nodes/CVAppearance.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

// A texture whose Render is seen, and whose loaded flag the test controls.
class MarkedTexture : public CVTexture {
public:
    void Render(CVState* state, CVGLRenderArea* area) override {
        ++renders;
        CVTexture::Render(state, area);
    }
    int renders = 0;
};

void ExpectCurrentColor(float r, float g, float b) {
    GLfloat c[4];
    glGetFloatv(GL_CURRENT_COLOR, c);
    EXPECT_FLOAT_EQ(c[0], r);
    EXPECT_FLOAT_EQ(c[1], g);
    EXPECT_FLOAT_EQ(c[2], b);
}

class CVAppearanceGLTest : public cvtest::NodeGLFixture {
protected:
    CVAppearanceGLTest() {
        appearance->Ref();
        material->Ref();
        texture->Ref();
        material->diffuseColor.SetValue(1.0f, 0.0f, 0.0f);
        texture->SetFallBackColor({0.0f, 0.5f, 1.0f});
    }
    ~CVAppearanceGLTest() override {
        appearance->Unref();
        material->Unref();
        texture->Unref();
    }

    CVAppearance* appearance = new CVAppearance;
    CVMaterial* material = new CVMaterial;
    MarkedTexture* texture = new MarkedTexture;
};

TEST_F(CVAppearanceGLTest, AppliesMaterialAndTexture) {
    appearance->material.SetValue(material);
    appearance->texture.SetValue(texture);
    texture->repeatT.SetValue(0);
    appearance->Render(nullptr, area);
    ExpectCurrentColor(1.0f, 0.0f, 0.0f);
    EXPECT_EQ(texture->renders, 1);
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &wrap);
    EXPECT_EQ(wrap, GL_CLAMP);
    EXPECT_EQ(appearance->GetMaterial(), material);
    EXPECT_EQ(appearance->GetTexture(), texture);
}

TEST_F(CVAppearanceGLTest, UnusableTextureTurnsTheMaterialToTheFallBackColourForGood) {
    appearance->material.SetValue(material);
    appearance->texture.SetValue(texture);
    texture->SetTextureRendered(0);
    appearance->Render(nullptr, area);
    ExpectCurrentColor(0.0f, 0.5f, 1.0f);
    const RGBColorStruct& d = material->diffuseColor.GetValue();
    EXPECT_FLOAT_EQ(d.g, 0.5f);

    texture->SetTextureRendered(1);
    texture->SetFallBackColor({1.0f, 1.0f, 0.0f});
    appearance->Render(nullptr, area);
    ExpectCurrentColor(0.0f, 0.5f, 1.0f);  // the overwrite stays
}

TEST_F(CVAppearanceGLTest, UnusableTextureWithoutMaterialLeavesTheColour) {
    appearance->texture.SetValue(texture);
    texture->SetTextureRendered(0);
    glColor3f(0.25f, 0.25f, 0.25f);
    appearance->Render(nullptr, area);
    EXPECT_EQ(texture->renders, 1);
    ExpectCurrentColor(0.25f, 0.25f, 0.25f);
}

}  // namespace
