#include <gtest/gtest.h>

#include <GL/gl.h>

#include <string>

#include "nodes/CVDrawStyle.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

struct StyleCase {
    const char* name;
    int style;
    GLenum before;
    GLenum after;
};

class CVDrawStyleGLTest : public cvtest::NodeGLFixture, public ::testing::WithParamInterface<StyleCase> {};

TEST_P(CVDrawStyleGLTest, StyleSetsThePolygonModeOfBothFaces) {
    const StyleCase& c = GetParam();
    glPolygonMode(GL_FRONT_AND_BACK, c.before);
    CVDrawStyle* node = new CVDrawStyle;
    node->Ref();
    node->style.SetValue(c.style);
    node->Render(nullptr, area);
    node->Unref();
    GLint modes[2] = {0, 0};
    glGetIntegerv(GL_POLYGON_MODE, modes);
    EXPECT_EQ(modes[0], (GLint)c.after);
    EXPECT_EQ(modes[1], (GLint)c.after);
}

const StyleCase kStyles[] = {
    {"FillByDefault", 0, GL_LINE, GL_FILL},
    {"Lines", 1, GL_FILL, GL_LINE},
    {"Points", 2, GL_FILL, GL_POINT},
    {"ThreeKeepsLines", 3, GL_LINE, GL_LINE},
    {"ThreeKeepsPoints", 3, GL_POINT, GL_POINT},
    {"UnknownFills", 7, GL_POINT, GL_FILL},
    {"NegativeFills", -1, GL_LINE, GL_FILL},
};

INSTANTIATE_TEST_SUITE_P(Styles, CVDrawStyleGLTest, ::testing::ValuesIn(kStyles),
                         [](const ::testing::TestParamInfo<StyleCase>& info) { return std::string(info.param.name); });

}  // namespace
