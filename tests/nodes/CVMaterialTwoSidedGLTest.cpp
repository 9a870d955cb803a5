#include "nodes/CVMaterialTwoSided.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using cvtest::GetInt;
using cvtest::GetMaterial;
using cvtest::Rgba;

class CVMaterialTwoSidedGLTest : public cvtest::NodeGLFixture {
protected:
    CVMaterialTwoSidedGLTest() {
        material.diffuseColor.SetValue(1.0f, 0.0f, 0.0f);
        material.backDiffuseColor.SetValue(0.0f, 0.5f, 1.0f);
        material.backAmbientIntensity.SetValue(0.5f);
        material.backSpecularColor.SetValue(0.25f, 0.25f, 0.25f);
        material.backEmissiveColor.SetValue(0.0f, 0.0f, 0.125f);
        material.backShininess.SetValue(0.5f);
        material.backTransparency.SetValue(0.25f);
    }
    CVMaterialTwoSided material;
};

TEST_F(CVMaterialTwoSidedGLTest, BackFacesGetTheirOwnValuesEveryTime) {
    material.twoSided.SetValue(1);
    material.Render(nullptr, area);
    const Rgba grey = {0.5f, 0.5f, 0.5f, 1.0f};
    glMaterialfv(GL_BACK, GL_SPECULAR, grey.data());
    glMaterialfv(GL_BACK, GL_EMISSION, grey.data());
    material.Render(nullptr, area);  // back values are resent
    // Tracking narrows to the diffuse colour (CVMesaQuirk::TrackedAmbientIgnored)
    // so that the front keeps its ambient intensity (default 0.8).
    EXPECT_EQ(GetInt(GL_COLOR_MATERIAL_FACE), GL_FRONT);
    EXPECT_EQ(GetInt(GL_COLOR_MATERIAL_PARAMETER), GL_DIFFUSE);
    EXPECT_EQ(GetMaterial(GL_FRONT, GL_AMBIENT), (Rgba{0.8f, 0.0f, 0.0f, 1.0f}));
    EXPECT_EQ(GetMaterial(GL_BACK, GL_DIFFUSE), (Rgba{0.0f, 0.5f, 1.0f, 0.75f}));
    EXPECT_EQ(GetMaterial(GL_BACK, GL_AMBIENT), (Rgba{0.0f, 0.25f, 0.5f, 0.75f}));
    EXPECT_EQ(GetMaterial(GL_BACK, GL_SPECULAR), (Rgba{0.25f, 0.25f, 0.25f, 0.75f}));
    EXPECT_EQ(GetMaterial(GL_BACK, GL_EMISSION), (Rgba{0.0f, 0.0f, 0.125f, 0.75f}));
    EXPECT_FLOAT_EQ(GetMaterial(GL_BACK, GL_SHININESS)[0], 64.0f);
    // Later colours reach only the front.
    glColor3f(0.0f, 1.0f, 0.0f);
    EXPECT_EQ(GetMaterial(GL_FRONT, GL_DIFFUSE), (Rgba{0.0f, 1.0f, 0.0f, 1.0f}));
    EXPECT_EQ(GetMaterial(GL_BACK, GL_DIFFUSE), (Rgba{0.0f, 0.5f, 1.0f, 0.75f}));
}

TEST_F(CVMaterialTwoSidedGLTest, OneSidedUsesTheFrontValuesForBoth) {
    material.Render(nullptr, area);
    EXPECT_EQ(GetInt(GL_COLOR_MATERIAL_FACE), GL_FRONT_AND_BACK);
    EXPECT_EQ(GetMaterial(GL_BACK, GL_DIFFUSE), (Rgba{1.0f, 0.0f, 0.0f, 1.0f}));
    EXPECT_EQ(GetMaterial(GL_BACK, GL_SPECULAR), GetMaterial(GL_FRONT, GL_SPECULAR));
    EXPECT_FLOAT_EQ(GetMaterial(GL_BACK, GL_SHININESS)[0], 0.2f * 128.0f);
}

}  // namespace
