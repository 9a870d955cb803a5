#include <gtest/gtest.h>

#include <GL/gl.h>

#include <cmath>

#include "actions/CVActionTestSupport.h"
#include "nodes/CVPerspectiveCamera.h"

namespace {

const double kPi = 3.14159265358979323846;

struct ProjectionCase {
    const char* name;
    int inflate;
    int perspective;
    int useViewportAspect;
    float aspectField;
    float viewportAspect;
    double p00, p11;  // x and y scale of the projection
};

// Perspective: p11 = cot(angle / 2), p00 = p11 / aspect.
// Orthographic form: the field of view is the height h, p11 = 2 / h, p00 = 2 / (h * aspect).
const double kCot45 = 1.0 / std::tan(kPi / 8);
const double kCotInflated = 1.0 / (3.0 * std::tan(kPi / 8));
const double kOrthoHeight = 0.785398;
const ProjectionCase kCases[] = {
    {"Plain45Degrees", 0, 1, 1, 1.0f, 1.0f, kCot45, kCot45},
    {"InflationWidensTheAngle", 1, 1, 1, 1.0f, 1.0f, kCotInflated, kCotInflated},
    {"ViewportAspect", 0, 1, 1, 3.0f, 2.0f, kCot45 / 2.0, kCot45},
    {"AspectFieldWhenViewportAspectOff", 0, 1, 0, 3.0f, 2.0f, kCot45 / 3.0, kCot45},
    {"OrthographicForm", 0, 0, 1, 1.0f, 2.0f, 2.0 / (kOrthoHeight * 2.0), 2.0 / kOrthoHeight},
    {"OrthographicFormInflated", 1, 0, 1, 1.0f, 1.0f, 2.0 / (3 * kOrthoHeight), 2.0 / (3 * kOrthoHeight)},
};

class CVPerspectiveCameraGLTest : public cvtest::GLFixture, public ::testing::WithParamInterface<ProjectionCase> {};

TEST_P(CVPerspectiveCameraGLTest, ProjectionMatchesTheFieldsAndInflation) {
    const ProjectionCase& c = GetParam();
    CVGLRenderArea::SetInflateWorld(c.inflate);
    CVPerspectiveCamera camera;
    camera.perspective.SetValue(c.perspective);
    camera.useViewportAspect.SetValue(c.useViewportAspect);
    camera.aspectRatio.SetValue(c.aspectField);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    camera.SetProjection(c.viewportAspect);

    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_MODELVIEW);
    GLdouble p[16];
    glGetDoublev(GL_PROJECTION_MATRIX, p);
    EXPECT_NEAR(p[0], c.p00, 1e-5 * c.p00);
    EXPECT_NEAR(p[5], c.p11, 1e-5 * c.p11);
    // Depth range 1..10 either way.
    if (c.perspective) {
        EXPECT_NEAR(p[10], -11.0 / 9.0, 1e-6);
        EXPECT_NEAR(p[14], -20.0 / 9.0, 1e-6);
        EXPECT_EQ(p[11], -1.0);
    } else {
        EXPECT_NEAR(p[10], -2.0 / 9.0, 1e-6);
        EXPECT_NEAR(p[14], -11.0 / 9.0, 1e-6);
        EXPECT_EQ(p[15], 1.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, CVPerspectiveCameraGLTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

using CVPerspectiveCameraAngleGLTest = cvtest::GLFixture;

TEST_F(CVPerspectiveCameraAngleGLTest, InflatedAngleIsAbout102Degrees) {
    CVGLRenderArea::SetInflateWorld(1);
    CVPerspectiveCamera camera;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    camera.SetProjection(1.0f);
    GLdouble p[16];
    glGetDoublev(GL_PROJECTION_MATRIX, p);
    const double degrees = 2.0 * std::atan(1.0 / p[5]) * 180.0 / kPi;
    EXPECT_NEAR(degrees, 2.0 * std::atan(3.0 * std::tan(kPi / 8)) * 180.0 / kPi, 1e-3);
    EXPECT_NEAR(degrees, 102.35, 0.01);
}

TEST_F(CVPerspectiveCameraAngleGLTest, MultipliesOntoTheCurrentProjection) {
    CVPerspectiveCamera camera;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glScalef(2.0f, 2.0f, 1.0f);
    camera.SetProjection(1.0f);
    GLdouble p[16];
    glGetDoublev(GL_PROJECTION_MATRIX, p);
    EXPECT_NEAR(p[5], 2.0 * kCot45, 1e-5);
}

}  // namespace
