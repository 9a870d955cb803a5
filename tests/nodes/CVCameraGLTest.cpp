#include <gtest/gtest.h>

#include <GL/gl.h>

#include <vector>

#include "actions/CVActionTestSupport.h"
#include "nodes/CVOrthographicCamera.h"

namespace {

using cvtest::MatrixNear;

CVMatrix Current(GLenum which) {
    GLfloat m[16];
    glGetFloatv(which, m);
    return CVMatrix(m);
}

// Records the matrices it is drawn under.
class Probe : public CVChild {
public:
    void Render(CVState*, CVGLRenderArea*) override {
        projection.push_back(Current(GL_PROJECTION_MATRIX));
        modelView.push_back(Current(GL_MODELVIEW_MATRIX));
    }
    std::vector<CVMatrix> projection, modelView;
};

// Eye coordinates of a world point under the given model-view matrix.
CVVector ToEye(const CVMatrix& m, float x, float y, float z) {
    return CVVector(m.m[0][0] * x + m.m[0][1] * y + m.m[0][2] * z + m.m[0][3],
                    m.m[1][0] * x + m.m[1][1] * y + m.m[1][2] * z + m.m[1][3],
                    m.m[2][0] * x + m.m[2][1] * y + m.m[2][2] * z + m.m[2][3]);
}

using CVCameraGLTest = cvtest::GLFixture;

TEST_F(CVCameraGLTest, ChildrenSeeTheCameraAndTheMatricesComeBack) {
    auto* camera = new CVOrthographicCamera;
    camera->Ref();
    auto* probe = new Probe;
    camera->children.Add(probe);
    camera->position.SetValue(1.0f, 2.0f, 10.0f);
    camera->orientation.SetValue(0.0f, 0.0f, 1.0f, 1.5707963f);  // camera x axis along world y
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();

    cvtest::DrawAction action(area);
    action.Apply(camera);

    ASSERT_EQ(probe->modelView.size(), 1u);
    // One unit along world y from the camera, 10 in front: one unit right in eye space.
    CVVector eye = ToEye(probe->modelView[0], 1.0f, 3.0f, 0.0f);
    EXPECT_NEAR(eye[0], 1.0f, 1e-5f);
    EXPECT_NEAR(eye[1], 0.0f, 1e-5f);
    EXPECT_NEAR(eye[2], -10.0f, 1e-5f);
    EXPECT_NEAR(probe->projection[0].m[1][1], 1.0f, 1e-6f);  // height 2
    EXPECT_TRUE(MatrixNear(Current(GL_PROJECTION_MATRIX), CVMatrix(), 0.0f));
    EXPECT_TRUE(MatrixNear(Current(GL_MODELVIEW_MATRIX), CVMatrix(), 0.0f));
    camera->Unref();
}

struct PickCase {
    const char* name;
    int identification;
    bool keepsPickMatrix;  // the current projection is pick * camera, not the camera's alone
};

class CVCameraPickGLTest : public cvtest::GLFixture, public ::testing::WithParamInterface<PickCase> {};

// The area always ends up with the pure camera projection when picking; a
// render walk stores whatever the camera multiplied onto.
TEST_P(CVCameraPickGLTest, AreaReceivesThePureProjectionWhilePicking) {
    const PickCase& c = GetParam();
    CVOrthographicCamera camera;
    CVState state;
    state.m_bRecordPath = c.identification;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glScalef(4.0f, 4.0f, 1.0f);  // stands in for a pick matrix
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    camera.Render(&state, area);

    const double* stored = area->GetProjectionMatrix();
    CVMatrix current = Current(GL_PROJECTION_MATRIX);
    EXPECT_NEAR(current.m[0][0], 4.0f, 1e-6f);  // pick matrix kept, camera multiplied onto it
    EXPECT_NEAR(stored[0], c.keepsPickMatrix ? 1.0 : 4.0, 1e-6);
    EXPECT_NEAR(stored[5], c.keepsPickMatrix ? 1.0 : 4.0, 1e-6);
    GLint mode = 0, depth = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    glGetIntegerv(GL_PROJECTION_STACK_DEPTH, &depth);
    EXPECT_EQ(mode, GL_MODELVIEW);
    EXPECT_EQ(depth, 1);
    EXPECT_NEAR(ToEye(Current(GL_MODELVIEW_MATRIX), 0.0f, 0.0f, 0.0f)[2], -10.0f, 1e-6f);  // view applied
}

const PickCase kPickCases[] = {{"Render", 0, false}, {"Pick", 1, true}};
INSTANTIATE_TEST_SUITE_P(Walks, CVCameraPickGLTest, ::testing::ValuesIn(kPickCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
