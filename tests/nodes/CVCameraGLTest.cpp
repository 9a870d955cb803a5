#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVOrthographicCamera.h"

namespace {

using cvtest::GetMatrix;
using cvtest::MatrixNear;

// Records the matrices it is drawn under.
class Probe : public CVChild {
public:
    void Render(CVState*, CVGLRenderArea*) override {
        projection.push_back(GetMatrix(GL_PROJECTION_MATRIX));
        modelView.push_back(GetMatrix(GL_MODELVIEW_MATRIX));
    }
    std::vector<CVMatrix> projection, modelView;
};

// Eye coordinates of a world point under the given model-view matrix.
CVVector ToEye(const CVMatrix& m, float x, float y, float z) {
    CVVector out;
    m.MultVecMatrix(CVVector(x, y, z), out);
    return out;
}

using CVCameraGLTest = cvtest::GLFixture;

TEST_F(CVCameraGLTest, ChildrenSeeTheCameraAndTheMatricesComeBack) {
    auto* camera = new CVOrthographicCamera;
    camera->Ref();
    auto* probe = new Probe;
    camera->children.Add(probe);
    camera->position.SetValue(1.0f, 2.0f, 10.0f);
    camera->orientation.SetValue(0.0f, 0.0f, 1.0f, 1.5707963f);  // camera x axis along world y

    cvtest::DrawAction(area).Apply(camera);
    ASSERT_EQ(probe->modelView.size(), 1u);
    // One unit along world y from the camera, 10 in front: one unit right in eye space.
    EXPECT_TRUE(cvtest::Near3(ToEye(probe->modelView[0], 1.0f, 3.0f, 0.0f), CVVector(1.0f, 0.0f, -10.0f)));
    EXPECT_NEAR(probe->projection[0].m[1][1], 1.0f, 1e-6f);  // height 2
    EXPECT_TRUE(MatrixNear(GetMatrix(GL_PROJECTION_MATRIX), CVMatrix(), 0.0f));
    EXPECT_TRUE(MatrixNear(GetMatrix(GL_MODELVIEW_MATRIX), CVMatrix(), 0.0f));
    camera->Unref();
}

// The camera multiplies onto the current projection (here a stand-in for a
// pick matrix); the area stores that product when rendering but the pure
// camera projection when picking.
TEST_F(CVCameraGLTest, AreaReceivesThePureProjectionWhilePicking) {
    for (int picking : {0, 1}) {
        SCOPED_TRACE(picking);
        CVOrthographicCamera camera;
        CVState state;
        state.m_bRecordPath = picking;
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glScalef(4.0f, 4.0f, 1.0f);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        camera.Render(&state, area);

        const double* stored = area->GetProjectionMatrix();
        EXPECT_NEAR(GetMatrix(GL_PROJECTION_MATRIX).m[0][0], 4.0f, 1e-6f);
        EXPECT_NEAR(stored[0], picking ? 1.0 : 4.0, 1e-6);
        EXPECT_NEAR(stored[5], picking ? 1.0 : 4.0, 1e-6);
        EXPECT_EQ(cvtest::GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
        EXPECT_EQ(cvtest::GetInt(GL_PROJECTION_STACK_DEPTH), 1);
        EXPECT_NEAR(ToEye(GetMatrix(GL_MODELVIEW_MATRIX), 0.0f, 0.0f, 0.0f).z, -10.0f, 1e-6f);  // view applied
    }
}

}  // namespace
