#include "markers/CVFlag.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVFlagGLTest = cvtest::GeometryFixture;

TEST_F(CVFlagGLTest, TurnedFlagIsATrianglePointingRight) {
    auto* flag = cvtest::Sized(Make<CVFlag>(), 1, 1, 1);
    flag->SetMarkerFlag(1);
    Draw(flag);
    EXPECT_TRUE(Lit(0.05f, 0.25f));  // near the staff's top
    EXPECT_TRUE(Lit(0.5f, 0.0f));    // near the tip
    EXPECT_FALSE(Lit(-0.05f, 0.0f));
    EXPECT_FALSE(Lit(0.45f, 0.2f));
    EXPECT_EQ(LitBounds().x0, 32);
    EXPECT_EQ(LitBounds().x1, Px(0.6f) - 1);
}

}  // namespace
