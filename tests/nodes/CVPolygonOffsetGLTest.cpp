#include <gtest/gtest.h>

#include <GL/gl.h>

#include <string>

#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVPolygonOffset.h"

namespace {

struct OffsetCase {
    const char* name;
    int fill, line, point;
};

class CVPolygonOffsetGLTest : public cvtest::NodeGLFixture, public ::testing::WithParamInterface<OffsetCase> {};

TEST_P(CVPolygonOffsetGLTest, FlagsSwitchEachModeAndFactorAndUnitsAreSet) {
    const OffsetCase& c = GetParam();
    // Start from the opposite of what is asked, so both directions are seen.
    if (c.fill) glDisable(GL_POLYGON_OFFSET_FILL); else glEnable(GL_POLYGON_OFFSET_FILL);
    if (c.line) glDisable(GL_POLYGON_OFFSET_LINE); else glEnable(GL_POLYGON_OFFSET_LINE);
    if (c.point) glDisable(GL_POLYGON_OFFSET_POINT); else glEnable(GL_POLYGON_OFFSET_POINT);
    CVPolygonOffset* node = new CVPolygonOffset;
    node->Ref();
    node->fill.SetValue(c.fill);
    node->line.SetValue(c.line);
    node->point.SetValue(c.point);
    node->factor.SetValue(1.5f);
    node->units.SetValue(-2.0f);
    node->Render(nullptr, area);
    node->Unref();
    EXPECT_EQ(glIsEnabled(GL_POLYGON_OFFSET_FILL) != 0, c.fill != 0);
    EXPECT_EQ(glIsEnabled(GL_POLYGON_OFFSET_LINE) != 0, c.line != 0);
    EXPECT_EQ(glIsEnabled(GL_POLYGON_OFFSET_POINT) != 0, c.point != 0);
    GLfloat factor = 0.0f, units = 0.0f;
    glGetFloatv(GL_POLYGON_OFFSET_FACTOR, &factor);
    glGetFloatv(GL_POLYGON_OFFSET_UNITS, &units);
    EXPECT_FLOAT_EQ(factor, 1.5f);
    EXPECT_FLOAT_EQ(units, -2.0f);
}

const OffsetCase kOffsets[] = {
    {"AllOff", 0, 0, 0}, {"Fill", 1, 0, 0}, {"Line", 0, 1, 0}, {"Point", 0, 0, 1}, {"All", 1, 1, 1},
};

INSTANTIATE_TEST_SUITE_P(Flags, CVPolygonOffsetGLTest, ::testing::ValuesIn(kOffsets),
                         [](const ::testing::TestParamInfo<OffsetCase>& info) { return std::string(info.param.name); });

}  // namespace
