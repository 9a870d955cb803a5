#include "support/CVActionTestSupport.h"
#include "nodes/CVBillboard.h"

namespace {

using cvtest::Near3;
using CVBillboardGLTest = cvtest::GLFixture;

CVVector Dir(const CVMatrix& m, float x, float y, float z) {
    CVVector out;
    m.MultDirMatrix(CVVector(x, y, z), out);
    return out;
}

// Viewers off the axes: a camera turned by `angle` about `axis`, five units back.
TEST_F(CVBillboardGLTest, BillboardsFaceTheViewer) {
    const struct {
        const char* name;
        float axis[3], angle;
    } views[] = {
        {"AboutY", {0.0f, 1.0f, 0.0f}, 0.8f},
        {"AboutX", {1.0f, 0.0f, 0.0f}, -0.6f},
        {"Oblique", {1.0f, 2.0f, -0.5f}, 1.9f},
        {"Behind", {0.0f, 1.0f, 0.0f}, 2.8f},
    };
    for (const auto& v : views) {
        SCOPED_TRACE(v.name);
        auto loadView = [&] {
            glLoadIdentity();
            glTranslatef(0.3f, -0.2f, -5.0f);
            glRotatef(v.angle / 0.017453292f, v.axis[0], v.axis[1], v.axis[2]);
            glTranslatef(1.0f, 0.5f, 0.0f);
        };
        // Screen-aligned: all three axes turn to the screen's.
        CVBillboard screen;
        screen.axisOfRotation.SetValue(0.0f, 0.0f, 0.0f);
        loadView();
        screen.Render(nullptr, area);
        CVMatrix m = ModelView();
        EXPECT_TRUE(Near3(Dir(m, 1, 0, 0), CVVector(1, 0, 0), 1e-4f));
        EXPECT_TRUE(Near3(Dir(m, 0, 1, 0), CVVector(0, 1, 0), 1e-4f));
        EXPECT_TRUE(Near3(Dir(m, 0, 0, 1), CVVector(0, 0, 1), 1e-4f));

        // About y: the axis keeps its direction; the eye, seen from the
        // billboard, lies on its +z side within the plane normal to the axis.
        CVBillboard upright;
        loadView();
        const CVMatrix before = ModelView();
        upright.Render(nullptr, area);
        m = ModelView();
        EXPECT_TRUE(Near3(Dir(m, 0, 1, 0), Dir(before, 0, 1, 0), 1e-4f));
        CVVector eye;
        m.Inverse().MultVecMatrix(CVVector(0, 0, 0), eye);
        EXPECT_NEAR(eye.x, 0.0f, 1e-3f);
        EXPECT_GT(eye.z, 0.0f);
    }
}

TEST_F(CVBillboardGLTest, AxisAlongZDoesNothing) {
    CVBillboard b;
    b.axisOfRotation.SetValue(0.0f, 0.0f, 3.0f);
    glRotatef(40.0f, 0.0f, 1.0f, 0.0f);
    const CVMatrix before = ModelView();
    b.Render(nullptr, area);
    EXPECT_TRUE(cvtest::MatrixNear(ModelView(), before, 0.0f));
}

}  // namespace
