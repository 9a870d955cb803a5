#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVPolygonOffset.h"

namespace {

using CVPolygonOffsetGLTest = cvtest::NodeGLFixture;

TEST_F(CVPolygonOffsetGLTest, FlagsSwitchEachModeAndFactorAndUnitsAreSet) {
    const GLenum modes[3] = {GL_POLYGON_OFFSET_FILL, GL_POLYGON_OFFSET_LINE, GL_POLYGON_OFFSET_POINT};
    CVPolygonOffset node;
    node.factor.SetValue(1.5f);
    node.units.SetValue(-2.0f);
    for (int flags : {0, 1, 2, 4, 7}) {  // fill, line, point bits
        SCOPED_TRACE(flags);
        // Start from the opposite of what is asked, so both directions are seen.
        for (int i = 0; i < 3; ++i) (flags >> i & 1) ? glDisable(modes[i]) : glEnable(modes[i]);
        node.fill.SetValue(flags & 1);
        node.line.SetValue(flags >> 1 & 1);
        node.point.SetValue(flags >> 2 & 1);
        node.Render(nullptr, area);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(glIsEnabled(modes[i]) != 0, (flags >> i & 1) != 0) << modes[i];
        EXPECT_EQ(cvtest::GetRgba(GL_POLYGON_OFFSET_FACTOR)[0], 1.5f);
        EXPECT_EQ(cvtest::GetRgba(GL_POLYGON_OFFSET_UNITS)[0], -2.0f);
    }
}

}  // namespace
