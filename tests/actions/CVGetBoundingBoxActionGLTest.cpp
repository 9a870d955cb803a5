#include "support/CVActionTestSupport.h"
#include "actions/CVGetBoundingBoxAction.h"
#include "geometry/CVShape.h"
#include "nodes/CVClipPlane.h"
#include "nodes/CVGroup.h"
#include "nodes/CVOrthographicCamera.h"
#include "nodes/CVTransform.h"

namespace {

using cvtest::Near3;
using cvtest::TestGeometry;
using P = Point3fStruct;

// Records the GL state in force when its box is asked for; its box is its origin.
class Probe : public CVChild {
public:
    void ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) override {
        attribDepth = cvtest::GetInt(GL_ATTRIB_STACK_DEPTH);
        const CVMatrix mv = cvtest::GetMatrix(GL_MODELVIEW_MATRIX), pr = cvtest::GetMatrix(GL_PROJECTION_MATRIX);
        eyeZ = mv.m[2][3];
        projectionX = pr.m[0][0];
        box->Union(P{0.0f, 0.0f, 0.0f});
    }
    GLint attribDepth = -1;
    float eyeZ = 0.0f, projectionX = 0.0f;
};

CVShape* MakeShape(TestGeometry*& geometry) {
    CVShape* shape = new CVShape;
    geometry = new TestGeometry;
    shape->geometry.SetValue(geometry);
    return shape;
}

::testing::AssertionResult BoxIs(const CVBox3f& box, P center, P size) {
    auto r = Near3(box.GetCenter(), center);
    return r ? Near3(box.GetSize(), size) : r;
}

::testing::AssertionResult FieldsAre(const CVGroup* g, P center, P size) {
    auto r = Near3(g->bboxCenter.GetValue(), center);
    return r ? Near3(g->bboxSize.GetValue(), size) : r;
}

// root [xf (scale 2, translation (1,0,0)) [shape (unit box)]]
class CVGetBoundingBoxActionGLTest : public cvtest::GLFixture {
protected:
    CVGetBoundingBoxActionGLTest() {
        root->Ref();
        root->children.Add(xf);
        xf->scale.SetValue(2.0f, 2.0f, 2.0f);
        xf->translation.SetValue(1.0f, 0.0f, 0.0f);
        xf->children.Add(MakeShape(geometry));
    }
    ~CVGetBoundingBoxActionGLTest() override { root->Unref(); }

    CVGroup* root = new CVGroup;
    CVTransform* xf = new CVTransform;
    TestGeometry* geometry = nullptr;
    CVGetBoundingBoxAction action{area};
};

TEST_F(CVGetBoundingBoxActionGLTest, TransformedChildBoxesFreshEveryApplyAndWrittenBack) {
    action.SetNodeBoundingBoxes(0);
    action.Apply(root);
    xf->translation.SetValue(-5.0f, 0.0f, 0.0f);
    action.Apply(root);
    EXPECT_TRUE(BoxIs(action.GetBoundingBox(), {-5, 0, 0}, {2, 2, 2}));
    EXPECT_EQ(root->bboxSize.GetValue().x, -1.0f);
    EXPECT_EQ(xf->bboxSize.GetValue().x, -1.0f);

    xf->translation.SetValue(1.0f, 0.0f, 0.0f);
    action.SetNodeBoundingBoxes(1);
    ASSERT_EQ(action.Apply(root), 1);
    EXPECT_TRUE(BoxIs(action.GetBoundingBox(), {1, 0, 0}, {2, 2, 2}));
    EXPECT_TRUE(FieldsAre(root, {1, 0, 0}, {2, 2, 2}));
    EXPECT_TRUE(FieldsAre(xf, {0, 0, 0}, {1, 1, 1}));  // the transform keeps its children's own box
    EXPECT_EQ(cvtest::GetInt(GL_MODELVIEW_STACK_DEPTH), 1);
}

TEST_F(CVGetBoundingBoxActionGLTest, LeavesAccumulateWithoutReset) {
    TestGeometry* g = nullptr;
    CVShape* shape = MakeShape(g);
    shape->Ref();
    action.Apply(shape);
    g->box.SetCenter(3.0f, 0.0f, 0.0f);
    action.Apply(shape);
    EXPECT_TRUE(BoxIs(action.GetBoundingBox(), {1.5f, 0, 0}, {4, 1, 1}));
    shape->Unref();
}

TEST_F(CVGetBoundingBoxActionGLTest, ClipPlanesActUpToTheirGroup) {
    // scene [clipped [clip x >= 0, shape], shape at x = -3]
    CVGroup* clipped = new CVGroup;
    TestGeometry *inside = nullptr, *beside = nullptr;
    clipped->children.Add(new CVClipPlane);
    clipped->children.Add(MakeShape(inside));
    CVGroup* scene = new CVGroup;
    scene->Ref();
    scene->children.Add(clipped);
    scene->children.Add(MakeShape(beside));
    beside->box.SetCenter(-3.0f, 0.0f, 0.0f);

    action.Apply(scene);
    EXPECT_TRUE(FieldsAre(clipped, {0.25f, 0, 0}, {0.5f, 1, 1}));
    EXPECT_TRUE(BoxIs(action.GetBoundingBox(), {-1.5f, 0, 0}, {4, 1, 1}));
    EXPECT_EQ(action.GetBoundingBox().HaveClipList(), 0);
    scene->Unref();
}

TEST_F(CVGetBoundingBoxActionGLTest, FastApplyGivesTheBoxWithoutGLPushesOrWriteBack) {
    Probe* probe = new Probe;
    xf->children.Add(probe);
    const GLint outside = cvtest::GetInt(GL_ATTRIB_STACK_DEPTH);
    action.FastApply(root);
    EXPECT_TRUE(BoxIs(action.GetBoundingBox(), {1, 0, 0}, {2, 2, 2}));
    EXPECT_EQ(probe->attribDepth, outside);
    EXPECT_EQ(root->bboxSize.GetValue().x, -1.0f);
    action.Apply(root);
    EXPECT_EQ(probe->attribDepth, outside + 2);
}

TEST_F(CVGetBoundingBoxActionGLTest, PathApplyBoundsTheLastNodeThroughTheTransformsAbove) {
    CVGroup* inner = new CVGroup;
    TestGeometry *g = nullptr, *distant = nullptr;
    inner->children.Add(MakeShape(g));
    xf->children.Add(inner);
    root->children.Add(MakeShape(distant));
    distant->box.SetCenter(100.0f, 0.0f, 0.0f);
    g->box.SetCenter(0.0f, 1.0f, 0.0f);

    ASSERT_EQ(action.Apply(cvtest::Path({root, xf, inner})), 1);
    EXPECT_TRUE(BoxIs(action.GetBoundingBox(), {1, 2, 0}, {2, 2, 2}));
    EXPECT_TRUE(FieldsAre(inner, {0, 1, 0}, {1, 1, 1}));
    EXPECT_EQ(xf->bboxSize.GetValue().x, -1.0f);  // only the last node's subtree is written
    EXPECT_EQ(action.Apply(cvtest::Path({})), 0);
}

TEST_F(CVGetBoundingBoxActionGLTest, CameraApplyWalksUnderTheCamerasViewAndRestoresIt) {
    CVOrthographicCamera camera;
    camera.position.SetValue(0.0f, 0.0f, 7.0f);
    camera.height.SetValue(4.0f);
    Probe* probe = new Probe;
    xf->children.Add(probe);
    glLoadIdentity();
    glTranslatef(0.0f, 0.0f, 3.0f);  // the caller's matrices must not leak in

    ASSERT_EQ(action.Apply(root, &camera), 1);
    EXPECT_FLOAT_EQ(probe->eyeZ, -7.0f);                 // view only, then the transform's own 0 z
    EXPECT_NEAR(probe->projectionX, 2.0f / 4.0f, 1e-6);  // ortho height 4, aspect 1
    EXPECT_TRUE(BoxIs(action.GetBoundingBox(), {1, 0, 0}, {2, 2, 2}));  // still in the root's coordinates
    EXPECT_FLOAT_EQ(ModelView().m[2][3], 3.0f);
    EXPECT_EQ(action.Apply(root, nullptr), 1);  // plain Apply
    EXPECT_FLOAT_EQ(probe->eyeZ, 3.0f);
}

}  // namespace
