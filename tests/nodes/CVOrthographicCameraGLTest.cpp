#include <gtest/gtest.h>

#include <GL/gl.h>

#include "actions/CVActionTestSupport.h"
#include "nodes/CVOrthographicCamera.h"

namespace {

struct OrthoCase {
    const char* name;
    int inflate;
    int useViewportAspect;
    float height;
    float viewportAspect;
    double left, right, bottom, top;  // the volume glOrtho must receive
};

const OrthoCase kCases[] = {
    {"Height2Aspect1_5", 0, 1, 2.0f, 1.5f, -1.5, 1.5, -1.0, 1.0},
    {"Inflated", 1, 1, 2.0f, 1.5f, -4.5, 4.5, -3.0, 3.0},
    {"AspectFieldWhenViewportAspectOff", 0, 0, 4.0f, 1.5f, -2.0, 2.0, -2.0, 2.0},
};

class CVOrthographicCameraGLTest : public cvtest::GLFixture, public ::testing::WithParamInterface<OrthoCase> {};

TEST_P(CVOrthographicCameraGLTest, VolumeIsHeightTimesInflationByAspect) {
    const OrthoCase& c = GetParam();
    CVGLRenderArea::SetInflateWorld(c.inflate);
    CVOrthographicCamera camera;
    camera.height.SetValue(c.height);
    camera.useViewportAspect.SetValue(c.useViewportAspect);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    camera.SetProjection(c.viewportAspect);

    glMatrixMode(GL_PROJECTION);
    GLdouble got[16], want[16];
    glGetDoublev(GL_PROJECTION_MATRIX, got);
    glLoadIdentity();
    glOrtho(c.left, c.right, c.bottom, c.top, 1.0, 10.0);
    glGetDoublev(GL_PROJECTION_MATRIX, want);
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(got[i], want[i], 1e-6) << "element " << i;
}

INSTANTIATE_TEST_SUITE_P(Cases, CVOrthographicCameraGLTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
