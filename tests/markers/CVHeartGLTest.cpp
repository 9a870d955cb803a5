#include <gtest/gtest.h>

#include "markers/CVHeart.h"
#include "support/CVGeometryTestSupport.h"

namespace {

class CVHeartGLTest : public cvtest::GeometryFixture {
protected:
    CVHeartGLTest() {
        heart = Make<CVHeart>();
        heart->size.SetValue(1.0f, 0.2f, 1.0f);
    }
    CVHeart* heart;
};

TEST_F(CVHeartGLTest, MarkerHeartStandsUprightFacingTheViewer) {
    heart->SetMarkerFlag(1);
    Draw(heart);
    EXPECT_FLOAT_EQ(Depth(32, 32), 0.5f - 0.1f / 20.0f);  // 0.2 deep
    const cvtest::PixelBounds b = LitBounds();
    // x from -0.4 to 0.4; the tip at y = -0.5 is narrower than a pixel.
    EXPECT_EQ(b.x0, 26);
    EXPECT_EQ(b.x1, 37);
    EXPECT_EQ(b.y0, 25);
    EXPECT_EQ(b.y1, 39);
    EXPECT_TRUE(Lit(0.25f, 0.45f));   // a lobe
    EXPECT_FALSE(Lit(0.0f, 0.45f));   // the notch between the lobes
    EXPECT_TRUE(Lit(0.0f, -0.4f));    // the tip
    EXPECT_FALSE(Lit(0.3f, -0.4f));
}

TEST_F(CVHeartGLTest, WithoutTheFlagItLiesFlat) {
    Draw(heart);
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_EQ(b.x0, 26);
    EXPECT_EQ(b.x1, 37);
    EXPECT_EQ(b.y0, 30);  // 0.2 high, seen edge on
    EXPECT_EQ(b.y1, 33);
    EXPECT_EQ(heart->IsAntialiased(), 0x4);
}

}  // namespace
