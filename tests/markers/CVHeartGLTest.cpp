#include "markers/CVHeart.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using cvtest::Corners;
using CVHeartGLTest = cvtest::GeometryFixture;

// x runs from -0.4 to 0.4; the tip at y = -0.5 is narrower than a pixel.
TEST_F(CVHeartGLTest, MarkerHeartStandsUprightFacingTheViewerAndLiesFlatWithout) {
    auto* heart = cvtest::Sized(Make<CVHeart>(), 1.0f, 0.2f, 1.0f);
    EXPECT_EQ(heart->IsAntialiased(), 0x4);
    Draw(heart);
    EXPECT_EQ(Corners(LitBounds()), (std::array<int, 4>{26, 30, 37, 33}));  // 0.2 high, seen edge on

    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    heart->SetMarkerFlag(1);
    Draw(heart);
    EXPECT_FLOAT_EQ(Depth(32, 32), 0.5f - 0.1f / 20.0f);  // 0.2 deep
    EXPECT_EQ(Corners(LitBounds()), (std::array<int, 4>{26, 25, 37, 39}));
    EXPECT_TRUE(Lit(0.25f, 0.45f));  // a lobe
    EXPECT_FALSE(Lit(0.0f, 0.45f));  // the notch between the lobes
    EXPECT_TRUE(Lit(0.0f, -0.4f));   // the tip
    EXPECT_FALSE(Lit(0.3f, -0.4f));
}

}  // namespace
