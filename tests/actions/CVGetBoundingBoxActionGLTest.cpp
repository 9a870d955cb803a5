#include <gtest/gtest.h>

#include <GL/gl.h>

#include "actions/CVGetBoundingBoxAction.h"
#include "actions/CVGroup.h"
#include "actions/CVShape.h"
#include "actions/CVTransform.h"
#include "actions/CVActionTestSupport.h"

namespace {

using cvtest::TestGeometry;

// Adds a clip plane to the box it is asked for, as clip-plane nodes do.
class ClipNode : public CVChild {
public:
    ClipNode(Point3fStruct normal, float d) : m_normal(normal), m_d(d) {}
    void ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) override { box->AddClipInfo(m_normal, m_d); }

private:
    Point3fStruct m_normal;
    float m_d;
};

// Records how deep the GL attribute stack is when its box is asked for.
class DepthProbe : public CVChild {
public:
    void ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f*) override {
        glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &attribDepth);
    }
    GLint attribDepth = -1;
};

CVShape* MakeShape(TestGeometry*& geometry) {
    CVShape* shape = new CVShape;
    geometry = new TestGeometry;
    shape->geometry.SetValue(geometry);
    return shape;
}

void ExpectBox(const CVBox3f& box, Point3fStruct center, Point3fStruct size) {
    EXPECT_NEAR(box.GetCenter().x, center.x, 1e-5f);
    EXPECT_NEAR(box.GetCenter().y, center.y, 1e-5f);
    EXPECT_NEAR(box.GetCenter().z, center.z, 1e-5f);
    EXPECT_NEAR(box.GetSize().x, size.x, 1e-5f);
    EXPECT_NEAR(box.GetSize().y, size.y, 1e-5f);
    EXPECT_NEAR(box.GetSize().z, size.z, 1e-5f);
}

void ExpectFields(const CVGroup* g, Point3fStruct center, Point3fStruct size) {
    CVBox3f box;
    box.SetCenter(g->bboxCenter.GetValue());
    box.SetSize(g->bboxSize.GetValue());
    ExpectBox(box, center, size);
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
};

TEST_F(CVGetBoundingBoxActionGLTest, TransformedChildBoxesAndWriteBack) {
    CVGetBoundingBoxAction action(area);
    ASSERT_EQ(action.Apply(root), 1);
    ExpectBox(action.GetBoundingBox(), {1, 0, 0}, {2, 2, 2});
    ExpectFields(root, {1, 0, 0}, {2, 2, 2});
    ExpectFields(xf, {0, 0, 0}, {1, 1, 1});  // the transform keeps its children's own box
    GLint depth = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
    EXPECT_EQ(depth, 1);
}

TEST_F(CVGetBoundingBoxActionGLTest, EveryGroupApplyStartsAfreshAndWriteBackCanBeOff) {
    CVGetBoundingBoxAction action(area);
    action.SetNodeBoundingBoxes(0);
    action.Apply(root);
    xf->translation.SetValue(-5.0f, 0.0f, 0.0f);
    action.Apply(root);
    ExpectBox(action.GetBoundingBox(), {-5, 0, 0}, {2, 2, 2});
    EXPECT_EQ(root->bboxSize.GetValue().x, -1.0f);
    EXPECT_EQ(xf->bboxSize.GetValue().x, -1.0f);
}

TEST_F(CVGetBoundingBoxActionGLTest, LeavesAccumulateWithoutReset) {
    CVGetBoundingBoxAction action(area);
    TestGeometry* g = nullptr;
    CVShape* shape = MakeShape(g);
    shape->Ref();
    action.Apply(shape);
    g->box.SetCenter(3.0f, 0.0f, 0.0f);
    action.Apply(shape);
    ExpectBox(action.GetBoundingBox(), {1.5f, 0, 0}, {4, 1, 1});
    shape->Unref();
}

TEST_F(CVGetBoundingBoxActionGLTest, ClipPlanesActUpToTheirGroup) {
    // clipped [clip x >= 0, shape]; then a shape at x = -3 beside it.
    CVGroup* clipped = new CVGroup;
    TestGeometry* inside = nullptr;
    clipped->children.Add(new ClipNode({1, 0, 0}, 0.0f));
    clipped->children.Add(MakeShape(inside));
    TestGeometry* beside = nullptr;
    CVGroup* scene = new CVGroup;
    scene->Ref();
    scene->children.Add(clipped);
    scene->children.Add(MakeShape(beside));
    beside->box.SetCenter(-3.0f, 0.0f, 0.0f);

    CVGetBoundingBoxAction action(area);
    action.Apply(scene);
    ExpectFields(clipped, {0.25f, 0, 0}, {0.5f, 1, 1});
    ExpectBox(action.GetBoundingBox(), {-1.5f, 0, 0}, {4, 1, 1});
    EXPECT_EQ(action.GetBoundingBox().HaveClipList(), 0);
    scene->Unref();
}

TEST_F(CVGetBoundingBoxActionGLTest, FastApplyGivesTheBoxWithoutGLPushesOrWriteBack) {
    DepthProbe* probe = new DepthProbe;
    xf->children.Add(probe);
    GLint outside = 0;
    glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &outside);

    CVGetBoundingBoxAction action(area);
    action.FastApply(root);
    ExpectBox(action.GetBoundingBox(), {1, 0, 0}, {2, 2, 2});
    EXPECT_EQ(probe->attribDepth, outside);
    EXPECT_EQ(root->bboxSize.GetValue().x, -1.0f);

    action.Apply(root);
    EXPECT_EQ(probe->attribDepth, outside + 2);
}

TEST_F(CVGetBoundingBoxActionGLTest, PathApplyBoundsTheLastNodeThroughTheTransformsAbove) {
    CVGroup* inner = new CVGroup;
    TestGeometry* g = nullptr;
    inner->children.Add(MakeShape(g));
    xf->children.Add(inner);
    TestGeometry* distant = nullptr;
    root->children.Add(MakeShape(distant));
    distant->box.SetCenter(100.0f, 0.0f, 0.0f);
    g->box.SetCenter(0.0f, 1.0f, 0.0f);

    CArray<CVNode*, CVNode*> path;
    path.Add(root);
    path.Add(xf);
    path.Add(inner);
    CVGetBoundingBoxAction action(area);
    ASSERT_EQ(action.Apply(path), 1);
    ExpectBox(action.GetBoundingBox(), {1, 2, 0}, {2, 2, 2});
    ExpectFields(inner, {0, 1, 0}, {1, 1, 1});
    EXPECT_EQ(xf->bboxSize.GetValue().x, -1.0f);  // only the last node's subtree is written

    CArray<CVNode*, CVNode*> empty;
    EXPECT_EQ(action.Apply(empty), 0);
}

}  // namespace
