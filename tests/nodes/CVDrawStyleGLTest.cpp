#include "nodes/CVDrawStyle.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using CVDrawStyleGLTest = cvtest::NodeGLFixture;

TEST_F(CVDrawStyleGLTest, StyleSetsThePolygonModeOfBothFacesAndThreeLeavesIt) {
    const struct {
        int style;
        GLenum before, after;
    } cases[] = {
        {0, GL_LINE, GL_FILL},  {1, GL_FILL, GL_LINE},  {2, GL_FILL, GL_POINT},  {3, GL_LINE, GL_LINE},
        {3, GL_POINT, GL_POINT}, {7, GL_POINT, GL_FILL}, {-1, GL_LINE, GL_FILL},
    };
    CVDrawStyle node;
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << "style " << c.style << " over " << c.before);
        glPolygonMode(GL_FRONT_AND_BACK, c.before);
        node.style.SetValue(c.style);
        node.Render(nullptr, area);
        GLint modes[2] = {0, 0};
        glGetIntegerv(GL_POLYGON_MODE, modes);
        EXPECT_EQ(modes[0], (GLint)c.after);
        EXPECT_EQ(modes[1], (GLint)c.after);
    }
}

}  // namespace
