#include "markers/CVStar.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using CVStarGLTest = cvtest::GeometryFixture;

// In line mode the caps show the star's outline; the edges between the
// spikes and the inner pentagon stay hidden.
TEST_F(CVStarGLTest, LinesShowOnlyTheOutline) {
    auto* star = cvtest::Sized(Make<CVStar>(), 1, 1, 1);
    star->SetMarkerFlag(1);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    Draw(star);
    // The outline itself: the upper spike's flanks at y = 0.3.
    EXPECT_GT(CountLit(Px(-0.15f), Px(0.3f), Px(0.15f), Px(0.3f)), 0);
    // The pentagon's upper edge would run along y = 0.2023 between x = +-0.147,
    // through the two rows looked at here; the spike's flanks stay outside them.
    const int x0 = Px(-0.06f), x1 = Px(0.06f), y0 = Px(0.2023f) - 1, y1 = Px(0.2023f);
    EXPECT_EQ(CountLit(x0, y0, x1, y1), 0);
    // Filled, the same place is covered.
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    Draw(star);
    EXPECT_EQ(CountLit(x0, y0, x1, y1), 2 * (x1 - x0 + 1));
}

}  // namespace
