#include <gtest/gtest.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include "actions/CVGetTransformAction.h"
#include "actions/CVGroup.h"
#include "actions/CVShape.h"
#include "actions/CVSwitch.h"
#include "actions/CVTransform.h"
#include "actions/CVActionTestSupport.h"

namespace {

void ExpectPoint(const Point3fStruct& p, float x, float y, float z, float tolerance = 1e-4f) {
    EXPECT_NEAR(p.x, x, tolerance);
    EXPECT_NEAR(p.y, y, tolerance);
    EXPECT_NEAR(p.z, z, tolerance);
}

// root [xf (translation (0.5,0,0), scale 0.5) [shape]] seen through an
// orthographic -1..1 cube on the 64 x 64 viewport.
class CVGetTransformActionGLTest : public cvtest::GLFixture {
protected:
    CVGetTransformActionGLTest() {
        root->Ref();
        root->children.Add(xf);
        xf->translation.SetValue(0.5f, 0.0f, 0.0f);
        xf->scale.SetValue(0.5f, 0.5f, 0.5f);
        xf->children.Add(shape);
        path.Add(root);
        path.Add(xf);
        path.Add(shape);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(-1.0, 1.0, -1.0, 1.0, -1.0, 1.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
    }
    ~CVGetTransformActionGLTest() override {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        root->Unref();
    }

    CVGroup* root = new CVGroup;
    CVTransform* xf = new CVTransform;
    CVShape* shape = new CVShape;
    CArray<CVNode*, CVNode*> path;
};

TEST_F(CVGetTransformActionGLTest, ObjectPointsMapToWindowThroughThePath) {
    CVGetTransformAction action(area);
    ASSERT_EQ(action.Apply(path), 1);
    Point3fStruct w;
    ASSERT_EQ(action.TransformCoord({0, 0, 0}, w), 1);
    ExpectPoint(w, 48, 32, 0.5f);
    action.TransformCoord({1, 1, 0}, w);
    ExpectPoint(w, 64, 48, 0.5f);

    // Sizes are mapped as vectors, not as points.
    ASSERT_EQ(action.TransformSize({1, 1, 0}, w), 1);
    ExpectPoint(w, 16, 16, 0);
    action.SetTransformType(CVGetTransformAction::WindowToObject);
    action.TransformSize({16, 16, 0}, w);
    ExpectPoint(w, 1, 1, 0);
}

TEST_F(CVGetTransformActionGLTest, ApplyingToATransformIncludesItsOwnMatrix) {
    CVGetTransformAction action(area);
    ASSERT_EQ(action.Apply(xf), 1);
    Point3fStruct w;
    action.TransformCoord({0, 0, 0}, w);
    ExpectPoint(w, 48, 32, 0.5f);
    // Applying to the root alone stays in root coordinates.
    action.Apply(root);
    action.TransformCoord({0, 0, 0}, w);
    ExpectPoint(w, 32, 32, 0.5f);
}

TEST_F(CVGetTransformActionGLTest, PointsRoundTripUnderPerspective) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, 1.0, 0.1, 100.0);
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(0.0f, 0.0f, -5.0f);
    xf->rotation.SetValue(1.0f, 1.0f, 0.0f, 0.6f);

    CVGetTransformAction action(area);
    action.Apply(path);
    const Point3fStruct p{0.3f, -0.2f, 0.4f};
    Point3fStruct w, back;
    ASSERT_EQ(action.TransformCoord(p, w), 1);
    EXPECT_GT(w.z, 0.0f);
    EXPECT_LT(w.z, 1.0f);
    action.SetTransformType(CVGetTransformAction::WindowToObject);
    ASSERT_EQ(action.TransformCoord(w, back), 1);
    ExpectPoint(back, p.x, p.y, p.z, 1e-3f);
    // The walk left the caller's matrices in place.
    EXPECT_NEAR(ModelView().m[2][3], -5.0f, 1e-6f);
}

TEST_F(CVGetTransformActionGLTest, UnknownTypeAndUnreachedPathGiveZeros) {
    CVGetTransformAction action(area);
    action.Apply(path);
    action.SetTransformType((CVGetTransformAction::TransformType)7);
    float x = 1, y = 1, z = 1;
    EXPECT_EQ(action.TransformCoord(0.5f, 0.5f, 0.5f, x, y, z), 0);
    EXPECT_EQ(x, 0.0f);
    EXPECT_EQ(z, 0.0f);

    // A switch that chose another child never reaches the path's end.
    CVSwitch* sw = new CVSwitch;
    CVShape* other = new CVShape;
    CVShape* wanted = new CVShape;
    sw->choice.Add(other);
    sw->choice.Add(wanted);
    sw->whichChoice.SetValue(0);
    root->children.Add(sw);
    CArray<CVNode*, CVNode*> toWanted;
    toWanted.Add(root);
    toWanted.Add(sw);
    toWanted.Add(wanted);
    action.SetTransformType(CVGetTransformAction::ObjectToWindow);
    EXPECT_EQ(action.Apply(toWanted), 0);
    Point3fStruct w;
    action.TransformCoord({0, 0, 0}, w);  // identity matrices, empty viewport
    ExpectPoint(w, 0, 0, 0.5f);
}

}  // namespace
