#include <gtest/gtest.h>

#include <GL/gl.h>

#include "geometry/CVLineBox.h"
#include "nodes/CVAppearance.h"
#include "nodes/CVMaterial.h"
#include "support/CVGeometryTestSupport.h"

namespace {

class CVLineBoxGLTest : public cvtest::GeometryFixture {
protected:
    CVLineBoxGLTest() {
        box = Make<CVLineBox>();
        box->size.SetValue(1, 1, 1);
        appearance = Make<CVAppearance>();
        material = new CVMaterial;
        material->emissiveColor.SetValue(0.0f, 1.0f, 0.0f);
        appearance->material.SetValue(material);
    }
    // The colour of the box's left edge.
    uint32_t EdgeColour() {
        const cvtest::PixelBounds b = LitBounds();
        return b.Empty() ? 0 : Pixel(b.x0, 32);
    }

    CVLineBox* box;
    CVAppearance* appearance;
    CVMaterial* material;
};

TEST_F(CVLineBoxGLTest, DrawsUnlitEdgesAndRestoresLightingAndPolygonMode) {
    LightFromViewer();  // lit, the edges facing sideways would come out black
    Draw(box);
    EXPECT_EQ(Pixel(32, 32), 0u);
    EXPECT_EQ(EdgeColour(), 0xFFFFFFu);
    EXPECT_EQ(FrontPolygonMode(), GL_FILL);
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
}

TEST_F(CVLineBoxGLTest, CompliantBoxTakesTheEmissiveColour) {
    Draw(box, appearance);
    EXPECT_EQ(EdgeColour(), 0x00FF00u);
}

TEST_F(CVLineBoxGLTest, OtherwiseTheCurrentColourStays) {
    box->SetVRMLCompliantFlag(0);
    Draw(box, appearance);
    EXPECT_EQ(EdgeColour(), 0xFFFFFFu);
    box->SetVRMLCompliantFlag(1);
    appearance->material.SetValue(nullptr);
    Draw(box, appearance);
    EXPECT_EQ(EdgeColour(), 0xFFFFFFu);
}

}  // namespace
