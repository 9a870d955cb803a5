#include "support/CVGeometryTestSupport.h"

namespace {

using cvtest::Shaped;

class CVConeGLTest : public cvtest::GeometryFixture {
protected:
    CVCone* MakeCone(float radius, float height) { return Shaped(Make<CVCone>(), radius, height); }
};

TEST_F(CVConeGLTest, SideViewIsATriangleWithTheApexUp) {
    Draw(MakeCone(0.5f, 1.0f));
    // The top row's centres lie outside the apex's last 1/32 unit.
    EXPECT_EQ(cvtest::Corners(LitBounds()), (std::array<int, 4>{24, 24, 39, 38}));
    EXPECT_TRUE(Lit(0.0f, 0.4f));
    EXPECT_FALSE(Lit(0.2f, 0.4f));
    EXPECT_TRUE(Lit(0.4f, -0.4f));
    EXPECT_FALSE(Lit(0.4f, 0.2f));
}

TEST_F(CVConeGLTest, CompilingClearsModifiedWhileSharingLeavesItSet) {
    CVCacheManager* cache = FreshCacheManager();
    CVCone* a = MakeCone(0.5f, 1.0f);
    a->SetCachedFlag(1);
    Draw(a);
    EXPECT_EQ(a->GetFlags(), 0u);
    EXPECT_EQ(cache->GetCachedCone(16, 0.5f, 1.0f, 1, 1), 2000u);

    // A negative height is keyed by its size: the same list, drawn as lines.
    CVCone* b = MakeCone(0.5f, -1.0f);
    Draw(b);
    EXPECT_NE(b->IsModified(), 0);
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);

    CVCone* c = MakeCone(0.5f, 1.0f);
    c->bottom.SetValue(0);
    Draw(c);
    EXPECT_EQ(c->IsModified(), 0);
    EXPECT_EQ(cache->GetCachedCone(16, 0.5f, 1.0f, 0, 1), 2001u);
}

// The side normals are horizontal, so a light from straight above leaves the
// side dark; sloped normals would catch some of it. From the front the side
// is fully lit at its middle.
TEST_F(CVConeGLTest, SideNormalsIgnoreTheSlope) {
    const GLfloat above[4] = {0.0f, 1.0f, 0.0f, 0.0f};
    LightFromViewer();
    glLightfv(GL_LIGHT0, GL_POSITION, above);
    Draw(MakeCone(0.5f, 1.0f));
    EXPECT_LT(Red(32, 28), 8);
    LightFromViewer();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    Draw(MakeCone(0.5f, 1.0f));
    EXPECT_GE(Red(32, 28), 240);
}

}  // namespace
