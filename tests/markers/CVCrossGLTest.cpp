#include "markers/CVCross.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVCrossGLTest = cvtest::GeometryFixture;

TEST_F(CVCrossGLTest, PlusSignFacingTheViewerWithOrWithoutTheMarkerFlag) {
    auto* cross = cvtest::Sized(Make<CVCross>(), 1, 1, 1);
    for (int marker : {0, 1}) {
        SCOPED_TRACE(marker);
        cross->SetMarkerFlag(marker);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        Draw(cross);
        EXPECT_TRUE(Lit(0.45f, 0.0f));
        EXPECT_TRUE(Lit(0.0f, -0.45f));
        EXPECT_FALSE(Lit(0.3f, 0.3f));
        EXPECT_FALSE(Lit(-0.3f, -0.3f));
        EXPECT_FLOAT_EQ(Depth(32, 32), 0.475f);
    }
}

}  // namespace
