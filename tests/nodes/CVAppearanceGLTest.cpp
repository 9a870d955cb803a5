#include "nodes/CVAppearance.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using cvtest::GetRgba;
using cvtest::Rgba;

// A texture whose Render is seen.
class MarkedTexture : public CVTexture {
public:
    void Render(CVState* state, CVGLRenderArea* area) override {
        ++renders;
        CVTexture::Render(state, area);
    }
    int renders = 0;
};

using CVAppearanceGLTest = cvtest::NodeGLFixture;

TEST_F(CVAppearanceGLTest, UnusableTextureTurnsTheMaterialToTheFallBackColourForGood) {
    CVAppearance appearance;
    auto* texture = new MarkedTexture;
    texture->SetFallBackColor({0.0f, 0.5f, 1.0f});
    texture->SetTextureRendered(0);
    appearance.texture.SetValue(texture);
    glColor3f(0.25f, 0.25f, 0.25f);
    appearance.Render(nullptr, area);  // no material: the colour stays
    EXPECT_EQ(texture->renders, 1);
    EXPECT_EQ(GetRgba(GL_CURRENT_COLOR), (Rgba{0.25f, 0.25f, 0.25f, 1.0f}));

    auto* material = new CVMaterial;
    material->diffuseColor.SetValue(1.0f, 0.0f, 0.0f);
    appearance.material.SetValue(material);
    appearance.Render(nullptr, area);
    EXPECT_EQ(GetRgba(GL_CURRENT_COLOR), (Rgba{0.0f, 0.5f, 1.0f, 1.0f}));
    EXPECT_FLOAT_EQ(material->diffuseColor.GetValue().g, 0.5f);

    texture->SetTextureRendered(1);
    texture->SetFallBackColor({1.0f, 1.0f, 0.0f});
    appearance.Render(nullptr, area);
    EXPECT_EQ(GetRgba(GL_CURRENT_COLOR), (Rgba{0.0f, 0.5f, 1.0f, 1.0f}));  // the overwrite stays
}

}  // namespace
