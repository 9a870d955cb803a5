#include <gtest/gtest.h>

#include <GL/gl.h>

#include <cmath>
#include <ostream>
#include <string>

#include "actions/CVBillboard.h"
#include "actions/CVActionTestSupport.h"

namespace {

// A viewer somewhere off the axes: the model-view of a camera turned by
// `angle` about `axis` and five units back.
struct ViewCase {
    const char* name;
    float axis[3];
    float angle;
};

void PrintTo(const ViewCase& c, std::ostream* os) { *os << c.name; }

const ViewCase kViews[] = {
    {"AboutY", {0.0f, 1.0f, 0.0f}, 0.8f},
    {"AboutX", {1.0f, 0.0f, 0.0f}, -0.6f},
    {"Oblique", {1.0f, 2.0f, -0.5f}, 1.9f},
    {"Behind", {0.0f, 1.0f, 0.0f}, 2.8f},
};

class CVBillboardGLTest : public cvtest::GLFixture, public ::testing::WithParamInterface<ViewCase> {
protected:
    void LoadView() {
        const ViewCase& v = GetParam();
        glLoadIdentity();
        glTranslatef(0.3f, -0.2f, -5.0f);
        glRotatef(v.angle / 0.017453292f, v.axis[0], v.axis[1], v.axis[2]);
        glTranslatef(1.0f, 0.5f, 0.0f);
    }
    static CVVector Dir(const CVMatrix& m, float x, float y, float z) {
        CVVector out;
        m.MultDirMatrix(CVVector(x, y, z), out);
        return out;
    }
};

void ExpectNear(const CVVector& a, const CVVector& b, float tolerance) {
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
    EXPECT_NEAR(a.z, b.z, tolerance);
}

TEST_P(CVBillboardGLTest, ScreenAlignedTurnsAllThreeAxesToTheScreen) {
    CVBillboard b;
    b.axisOfRotation.SetValue(0.0f, 0.0f, 0.0f);
    LoadView();
    b.Render(nullptr, area);
    const CVMatrix m = ModelView();
    ExpectNear(Dir(m, 1, 0, 0), CVVector(1, 0, 0), 1e-4f);
    ExpectNear(Dir(m, 0, 1, 0), CVVector(0, 1, 0), 1e-4f);
    ExpectNear(Dir(m, 0, 0, 1), CVVector(0, 0, 1), 1e-4f);
}

TEST_P(CVBillboardGLTest, AxisConstrainedFacesTheViewerAroundTheAxis) {
    CVBillboard b;  // about y
    LoadView();
    const CVMatrix before = ModelView();
    b.Render(nullptr, area);
    const CVMatrix m = ModelView();
    // The axis keeps its direction; the eye, seen from the billboard, lies on
    // its +z side within the plane normal to the axis.
    ExpectNear(Dir(m, 0, 1, 0), Dir(before, 0, 1, 0), 1e-4f);
    CVVector eye;
    m.Inverse().MultVecMatrix(CVVector(0, 0, 0), eye);
    EXPECT_NEAR(eye.x, 0.0f, 1e-3f);
    EXPECT_GT(eye.z, 0.0f);
}

INSTANTIATE_TEST_SUITE_P(Views, CVBillboardGLTest, ::testing::ValuesIn(kViews),
                         [](const auto& info) { return std::string(info.param.name); });

using CVBillboardAxisGLTest = cvtest::GLFixture;

TEST_F(CVBillboardAxisGLTest, AxisAlongZDoesNothing) {
    CVBillboard b;
    b.axisOfRotation.SetValue(0.0f, 0.0f, 3.0f);
    glRotatef(40.0f, 0.0f, 1.0f, 0.0f);
    const CVMatrix before = ModelView();
    b.Render(nullptr, area);
    EXPECT_TRUE(cvtest::MatrixNear(ModelView(), before, 0.0f));
}

}  // namespace
