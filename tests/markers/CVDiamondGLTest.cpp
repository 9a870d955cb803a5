#include <memory>

#include "geometry/CVBoxDetail.h"
#include "markers/CVDiamond.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVDiamondGLTest = cvtest::GeometryFixture;

TEST_F(CVDiamondGLTest, FlatDiamondIsARhombusFacingPlusZPickedAsTheBoxFront) {
    auto* diamond = cvtest::Sized(Make<CVDiamond>(), 1, 1, 0);
    Draw(diamond);
    EXPECT_TRUE(Lit(0.6f, 0.0f));  // past the unturned square's edge
    EXPECT_TRUE(Lit(0.0f, -0.6f));
    EXPECT_FALSE(Lit(0.4f, 0.4f));
    EXPECT_FLOAT_EQ(Depth(32, 32), 0.5f);
    std::unique_ptr<CVDetail> detail(diamond->GetPickDetail(0));
    ASSERT_TRUE(detail && detail->IsKindOf(RUNTIME_CLASS(CVBoxDetail)));
    EXPECT_EQ(static_cast<CVBoxDetail*>(detail.get())->GetGeometry(), diamond);
    EXPECT_EQ(static_cast<CVBoxDetail*>(detail.get())->GetPart(), CVBox::Front);
}

}  // namespace
