#include "markers/CVXShape.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVXShapeGLTest = cvtest::GeometryFixture;

TEST_F(CVXShapeGLTest, CrossTurnedByAnEighth) {
    auto* x = cvtest::Sized(Make<CVXShape>(), 1, 1, 1);
    Draw(x);
    EXPECT_TRUE(Lit(0.3f, 0.3f));
    EXPECT_TRUE(Lit(-0.3f, 0.3f));
    EXPECT_FALSE(Lit(0.4f, 0.0f));
    EXPECT_FALSE(Lit(0.0f, -0.4f));
    EXPECT_EQ(x->GetPickDetail(0), nullptr);
}

}  // namespace
