#include "library/CVLibrary.h"
#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVPerspectiveCamera.h"

namespace {

const double kPi = 3.14159265358979323846;
using CVPerspectiveCameraGLTest = cvtest::GLFixture;

// Perspective: p11 = cot(angle / 2), p00 = p11 / aspect. Orthographic form:
// the field of view is the height h, p11 = 2 / h, p00 = 2 / (h * aspect).
// Depth runs 1..10 either way.
TEST_F(CVPerspectiveCameraGLTest, ProjectionMatchesTheFieldsAndInflation) {
    const double kCot45 = 1.0 / std::tan(kPi / 8), kCotInflated = 1.0 / (3.0 * std::tan(kPi / 8)), kH = 0.785398;
    const struct {
        const char* name;
        int inflate, perspective, useViewportAspect;
        float aspectField, viewportAspect;
        double p00, p11;
    } cases[] = {
        {"Plain45Degrees", 0, 1, 1, 1.0f, 1.0f, kCot45, kCot45},
        {"InflationWidensTheAngle", 1, 1, 1, 1.0f, 1.0f, kCotInflated, kCotInflated},
        {"ViewportAspect", 0, 1, 1, 3.0f, 2.0f, kCot45 / 2.0, kCot45},
        {"AspectFieldWhenViewportAspectOff", 0, 1, 0, 3.0f, 2.0f, kCot45 / 3.0, kCot45},
        {"OrthographicForm", 0, 0, 1, 1.0f, 2.0f, 2.0 / (kH * 2.0), 2.0 / kH},
        {"OrthographicFormInflated", 1, 0, 1, 1.0f, 1.0f, 2.0 / (3 * kH), 2.0 / (3 * kH)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CVGLRenderArea::SetInflateWorld(c.inflate);
        CVPerspectiveCamera camera;
        camera.perspective.SetValue(c.perspective);
        camera.useViewportAspect.SetValue(c.useViewportAspect);
        camera.aspectRatio.SetValue(c.aspectField);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        camera.SetProjection(c.viewportAspect);
        EXPECT_EQ(cvtest::GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
        GLdouble p[16];
        glGetDoublev(GL_PROJECTION_MATRIX, p);
        EXPECT_NEAR(p[0], c.p00, 1e-5 * c.p00);
        EXPECT_NEAR(p[5], c.p11, 1e-5 * c.p11);
        EXPECT_NEAR(p[10], c.perspective ? -11.0 / 9.0 : -2.0 / 9.0, 1e-6);
        EXPECT_NEAR(p[14], c.perspective ? -20.0 / 9.0 : -11.0 / 9.0, 1e-6);
        EXPECT_EQ(p[11], c.perspective ? -1.0 : 0.0);
        EXPECT_EQ(p[15], c.perspective ? 0.0 : 1.0);
    }
}

TEST_F(CVPerspectiveCameraGLTest, InflatedAngleIsAbout102DegreesAndMultipliesOntoTheProjection) {
    CVLibrary::ResetSettings();
    CVPerspectiveCamera camera;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glScalef(2.0f, 2.0f, 1.0f);
    camera.SetProjection(1.0f);
    GLdouble p[16];
    glGetDoublev(GL_PROJECTION_MATRIX, p);
    const double degrees = 2.0 * std::atan(2.0 / p[5]) * 180.0 / kPi;
    EXPECT_NEAR(degrees, 2.0 * std::atan(3.0 * std::tan(kPi / 8)) * 180.0 / kPi, 1e-3);
    EXPECT_NEAR(degrees, 102.35, 0.01);
}

}  // namespace
