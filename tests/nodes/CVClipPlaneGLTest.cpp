#include "actions/CVGetBoundingBoxAction.h"
#include "nodes/CVClipPlane.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using cvtest::MakeQuadShape;
using cvtest::QuadGeometry;
typedef std::array<GLdouble, 4> Equation;

Equation PlaneEquation(int i) {
    Equation e{};
    glGetClipPlane(GL_CLIP_PLANE0 + i, e.data());
    return e;
}

class CVClipPlaneGLTest : public cvtest::NodeGLFixture {
protected:
    CVClipPlaneGLTest() {
        plane->Ref();
        root->Ref();
    }
    ~CVClipPlaneGLTest() override {
        plane->Unref();
        root->Unref();
    }
    CVClipPlane* plane = new CVClipPlane;
    CVGroup* root = new CVGroup;
};

TEST_F(CVClipPlaneGLTest, ClipsPixelsOnTheNegativeSide) {
    plane->normal.SetValue(-1.0f, 0.0f, 0.0f);
    plane->offset.SetValue(-0.5f);  // keeps x <= 0.5
    root->children.Add(plane);
    root->children.Add(MakeQuadShape(new QuadGeometry));
    DrawFrame(root);
    EXPECT_EQ(Pixel(4, 32), 0xCCCCCCu);   // the shape's default grey
    EXPECT_EQ(Pixel(46, 32), 0xCCCCCCu);  // x = 0.47
    EXPECT_EQ(Pixel(50, 32), 0x000000u);  // x = 0.58: clipped
    EXPECT_EQ(Pixel(60, 10), 0x000000u);
    EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0));  // ended with the group
}

TEST_F(CVClipPlaneGLTest, TakesTheFirstFreePlaneWithANormalisedEquationIfAny) {
    plane->on.SetValue(0);
    plane->Render(nullptr, area);
    EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0));

    plane->on.SetValue(1);
    glEnable(GL_CLIP_PLANE0);
    glEnable(GL_CLIP_PLANE2);
    plane->normal.SetValue(3.0f, 4.0f, 0.0f);
    plane->offset.SetValue(2.0f);
    plane->Render(nullptr, area);
    EXPECT_TRUE(glIsEnabled(GL_CLIP_PLANE1));
    const Equation e = PlaneEquation(1);
    EXPECT_NEAR(e[0], 0.6, 1e-6);
    EXPECT_NEAR(e[1], 0.8, 1e-6);
    EXPECT_DOUBLE_EQ(e[2], 0.0);
    EXPECT_DOUBLE_EQ(e[3], -2.0);
    plane->Render(nullptr, area);  // a second render takes the next free one
    EXPECT_TRUE(glIsEnabled(GL_CLIP_PLANE3));

    // All taken: nothing changes and GL reports no error.
    const GLint n = cvtest::GetInt(GL_MAX_CLIP_PLANES);
    ASSERT_GE(n, 6);
    std::vector<Equation> before;
    for (GLint i = 0; i < n; ++i) {
        glEnable(GL_CLIP_PLANE0 + i);
        before.push_back(PlaneEquation(i));
    }
    plane->normal.SetValue(0.0f, 1.0f, 0.0f);
    plane->Render(nullptr, area);
    for (GLint i = 0; i < n; ++i) EXPECT_EQ(PlaneEquation(i), before[i]) << "plane " << i;
    EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
}

// That the box is cut only up to the group end is the bounding-box action's.
TEST_F(CVClipPlaneGLTest, BoundingBoxesShrinkToTheKeptSide) {
    plane->offset.SetValue(0.25f);  // keeps x >= 0.25
    root->children.Add(plane);
    root->children.Add(MakeQuadShape(new QuadGeometry(-1.0f, -1.0f, 1.0f, 1.0f)));
    CVGetBoundingBoxAction bounds(area);
    Point3fStruct min, max;
    for (int on : {1, 0}) {
        plane->on.SetValue(on);
        bounds.Apply(root);
        bounds.GetBoundingBox().ComputeMinMax(min, max);
        EXPECT_EQ(std::make_pair(min.x, max.x), std::make_pair(on ? 0.25f : -1.0f, 1.0f));
    }
}

}  // namespace
