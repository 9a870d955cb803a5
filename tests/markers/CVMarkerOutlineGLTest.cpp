#include "markers/CVFlag.h"
#include "markers/CVHeart.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVMarkerOutlineGLTest = cvtest::GeometryFixture;

TEST_F(CVMarkerOutlineGLTest, PickingDrawsNoNormals) {
    auto* heart = Make<CVHeart>();
    CVState picking;
    picking.m_bRecordPath = 1;
    glNormal3f(0.25f, 0.5f, 0.75f);
    heart->Render(&picking, area, nullptr);
    GLfloat n[3];
    glGetFloatv(GL_CURRENT_NORMAL, n);
    EXPECT_EQ(std::vector<float>(n, n + 3), std::vector<float>({0.25f, 0.5f, 0.75f}));
    Draw(heart);
    glGetFloatv(GL_CURRENT_NORMAL, n);
    EXPECT_EQ(n[1], 1.0f);  // the top cap's, last drawn
}

// Lying flat, the flag shows the viewer the side wall from its tip back to
// the staff; lit from the front it catches cos(atan(0.5)) of the light.
TEST_F(CVMarkerOutlineGLTest, SideWallsFaceOutwards) {
    LightFromViewer();
    Draw(cvtest::Sized(Make<CVFlag>(), 1, 1, 1));
    const int px = Px(0.3f);
    EXPECT_NEAR(Red(px, 32), 228, 6);
    const float x = (px + 0.5f) / 16.0f - 2.0f;  // the pixel centre, on the wall z = 0.3 - x / 2
    EXPECT_NEAR(Depth(px, 32), 0.5f - (0.3f - 0.5f * x) / 20.0f, 1e-4f);
    EXPECT_EQ(Pixel(Px(-0.1f), Px(0.0f)), 0u);
}

}  // namespace
