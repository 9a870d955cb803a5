#include <GL/glu.h>

#include "support/CVActionTestSupport.h"
#include "actions/CVGetTransformAction.h"
#include "geometry/CVShape.h"
#include "nodes/CVGroup.h"
#include "nodes/CVSwitch.h"
#include "nodes/CVTransform.h"

namespace {

using cvtest::Near3;
using P = Point3fStruct;

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
    P Map(P in) {
        P out{-9, -9, -9};
        EXPECT_EQ(action.TransformCoord(in, out), 1);
        return out;
    }

    CVGroup* root = new CVGroup;
    CVTransform* xf = new CVTransform;
    CVShape* shape = new CVShape;
    CArray<CVNode*, CVNode*> path = cvtest::Path({root, xf, shape});
    CVGetTransformAction action{area};
};

TEST_F(CVGetTransformActionGLTest, ObjectPointsMapToWindowThroughThePathOrNode) {
    ASSERT_EQ(action.Apply(path), 1);
    EXPECT_TRUE(Near3(Map({0, 0, 0}), P{48, 32, 0.5f}));
    EXPECT_TRUE(Near3(Map({1, 1, 0}), P{64, 48, 0.5f}));
    // Sizes are mapped as vectors, not as points.
    P w;
    ASSERT_EQ(action.TransformSize({1, 1, 0}, w), 1);
    EXPECT_TRUE(Near3(w, P{16, 16, 0}));
    action.SetTransformType(CVGetTransformAction::WindowToObject);
    action.TransformSize({16, 16, 0}, w);
    EXPECT_TRUE(Near3(w, P{1, 1, 0}));

    // A transform applied to includes its own matrix; the root alone stays in root coordinates.
    action.SetTransformType(CVGetTransformAction::ObjectToWindow);
    ASSERT_EQ(action.Apply(xf), 1);
    EXPECT_TRUE(Near3(Map({0, 0, 0}), P{48, 32, 0.5f}));
    action.Apply(root);
    EXPECT_TRUE(Near3(Map({0, 0, 0}), P{32, 32, 0.5f}));
}

TEST_F(CVGetTransformActionGLTest, PointsRoundTripUnderPerspective) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, 1.0, 0.1, 100.0);
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(0.0f, 0.0f, -5.0f);
    xf->rotation.SetValue(1.0f, 1.0f, 0.0f, 0.6f);

    action.Apply(path);
    const P p{0.3f, -0.2f, 0.4f};
    const P w = Map(p);
    EXPECT_GT(w.z, 0.0f);
    EXPECT_LT(w.z, 1.0f);
    action.SetTransformType(CVGetTransformAction::WindowToObject);
    EXPECT_TRUE(Near3(Map(w), p, 1e-3f));
    EXPECT_NEAR(ModelView().m[2][3], -5.0f, 1e-6f);  // the walk left the caller's matrices in place
}

TEST_F(CVGetTransformActionGLTest, UnknownTypeAndUnreachedPathGiveZeros) {
    action.Apply(path);
    action.SetTransformType((CVGetTransformAction::TransformType)7);
    float x = 1, y = 1, z = 1;
    EXPECT_EQ(action.TransformCoord(0.5f, 0.5f, 0.5f, x, y, z), 0);
    EXPECT_TRUE(x == 0.0f && y == 0.0f && z == 0.0f);

    // A switch that chose another child never reaches the path's end.
    CVSwitch* sw = new CVSwitch;
    CVShape* wanted = new CVShape;
    sw->choice.Add(new CVShape);
    sw->choice.Add(wanted);
    sw->whichChoice.SetValue(0);
    root->children.Add(sw);
    action.SetTransformType(CVGetTransformAction::ObjectToWindow);
    EXPECT_EQ(action.Apply(cvtest::Path({root, sw, wanted})), 0);
    EXPECT_TRUE(Near3(Map({0, 0, 0}), P{0, 0, 0.5f}));  // identity matrices, empty viewport
}

}  // namespace
