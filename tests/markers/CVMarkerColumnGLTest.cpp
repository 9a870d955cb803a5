#include "markers/CVCross.h"
#include "markers/CVHexagon.h"
#include "markers/CVPrism.h"
#include "markers/CVStar.h"
#include "nodes/CVAppearance.h"
#include "nodes/CVTexture.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVMarkerColumnGLTest = cvtest::GeometryFixture;

TEST_F(CVMarkerColumnGLTest, PickingDrawsNoNormalsOrTextureCoordinates) {
    CVState picking;
    picking.m_bRecordPath = 1;
    for (CVGeometry* g : {(CVGeometry*)Make<CVStar>(), (CVGeometry*)Make<CVHexagon>(), (CVGeometry*)Make<CVPrism>(),
                          (CVGeometry*)Make<CVCross>()}) {
        glNormal3f(0.25f, 0.5f, 0.75f);
        glTexCoord2f(0.125f, 0.375f);
        g->Render(&picking, area, nullptr);
        GLfloat n[3], t[4];
        glGetFloatv(GL_CURRENT_NORMAL, n);
        glGetFloatv(GL_CURRENT_TEXTURE_COORDS, t);
        EXPECT_EQ(n[2], 0.75f) << g->GetRuntimeClass()->m_lpszClassName;
        EXPECT_EQ(t[0], 0.125f) << g->GetRuntimeClass()->m_lpszClassName;
    }
}

// Lying flat, the hexagon shows its +z wall square on and the slanted walls
// at cos(63.4 deg).
TEST_F(CVMarkerColumnGLTest, SideWallsCarryTheirStoredNormals) {
    LightFromViewer();
    Draw(cvtest::Sized(Make<CVHexagon>(), 1, 1, 1));
    EXPECT_GE(Red(32, 32), 250);
    EXPECT_NEAR(Red(Px(0.4f), 32), 114, 6);
}

// A texture red below t = 0.5 and green above, on the flat hexagon's +z wall.
TEST_F(CVMarkerColumnGLTest, TiledTextureStretchesTheSides) {
    GLuint texture = cvtest::BindRedGreenTexture();
    auto* appearance = Make<CVAppearance>();
    auto* tiles = new CVTexture;
    tiles->SetTiled(1);
    appearance->texture.SetValue(tiles);
    auto* hexagon = cvtest::Sized(Make<CVHexagon>(), 1, 2, 1);
    Draw(hexagon, appearance);
    EXPECT_EQ(Pixel(32, Px(-0.4f)), 0xFF0000u);
    hexagon->SetVRMLCompliantFlag(0);
    Draw(hexagon, appearance);
    EXPECT_EQ(Pixel(32, Px(-0.4f)), 0x00FF00u);
    EXPECT_EQ(cvtest::GetInt(GL_TEXTURE_STACK_DEPTH), 1);
    glDeleteTextures(1, &texture);
}

}  // namespace
