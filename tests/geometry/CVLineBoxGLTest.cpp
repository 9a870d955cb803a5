#include "geometry/CVLineBox.h"
#include "nodes/CVAppearance.h"
#include "nodes/CVMaterial.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVLineBoxGLTest = cvtest::GeometryFixture;

// Lit, the edges facing sideways would come out black.
TEST_F(CVLineBoxGLTest, DrawsUnlitEdgesInTheEmissiveColourOnlyWhenCompliant) {
    CVLineBox* box = cvtest::Sized(Make<CVLineBox>(), 1, 1, 1);
    auto* appearance = Make<CVAppearance>();
    auto* material = new CVMaterial;
    material->emissiveColor.SetValue(0.0f, 1.0f, 0.0f);
    const struct {
        const char* name;
        int compliant;
        CVAppearance* appearance;
        CVMaterial* material;
        uint32_t edge;
    } cases[] = {
        {"NoAppearance", 1, nullptr, nullptr, 0xFFFFFF},
        {"Compliant", 1, appearance, material, 0x00FF00},
        {"NotCompliant", 0, appearance, material, 0xFFFFFF},
        {"NoMaterial", 1, appearance, nullptr, 0xFFFFFF},
    };
    LightFromViewer();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glColor3f(1.0f, 1.0f, 1.0f);
        box->SetVRMLCompliantFlag(c.compliant);
        appearance->material.SetValue(c.material);
        Draw(box, c.appearance);
        EXPECT_EQ(Pixel(32, 32), 0u);
        EXPECT_EQ(Pixel(LitBounds().x0, 32), c.edge);  // the left edge
        EXPECT_EQ(FrontPolygonMode(), GL_FILL);
        EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    }
}

}  // namespace
