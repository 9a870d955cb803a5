#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVOrthographicCamera.h"

namespace {

using CVOrthographicCameraGLTest = cvtest::GLFixture;

TEST_F(CVOrthographicCameraGLTest, VolumeIsHeightTimesInflationByAspect) {
    const struct {
        const char* name;
        int inflate, useViewportAspect;
        float height, viewportAspect;
        double left, right, bottom, top;  // the volume glOrtho must receive
    } cases[] = {
        {"Height2Aspect1_5", 0, 1, 2.0f, 1.5f, -1.5, 1.5, -1.0, 1.0},
        {"Inflated", 1, 1, 2.0f, 1.5f, -4.5, 4.5, -3.0, 3.0},
        {"AspectFieldWhenViewportAspectOff", 0, 0, 4.0f, 1.5f, -2.0, 2.0, -2.0, 2.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CVGLRenderArea::SetInflateWorld(c.inflate);
        CVOrthographicCamera camera;
        camera.height.SetValue(c.height);
        camera.useViewportAspect.SetValue(c.useViewportAspect);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        camera.SetProjection(c.viewportAspect);
        glMatrixMode(GL_PROJECTION);
        const CVMatrix got = cvtest::GetMatrix(GL_PROJECTION_MATRIX);
        glLoadIdentity();
        glOrtho(c.left, c.right, c.bottom, c.top, 1.0, 10.0);
        EXPECT_TRUE(cvtest::MatrixNear(got, cvtest::GetMatrix(GL_PROJECTION_MATRIX), 1e-6f));
    }
}

}  // namespace
