#include "actions/CVGetBoundingBoxAction.h"
#include "nodes/CVDepthBuffer.h"
#include "nodes/CVMaterial.h"
#include "nodes/CVNodeTestSupport.h"
#include "nodes/CVTransform.h"

namespace {

using cvtest::QuadGeometry;

CVShape* Coloured(QuadGeometry* quad, float r, float g, float b) {
    auto* material = new CVMaterial;
    material->diffuseColor.SetValue(r, g, b);
    auto* appearance = new CVAppearance;
    appearance->material.SetValue(material);
    return cvtest::MakeQuadShape(quad, appearance);
}

// Notes, when drawn in the scene pass, what the annotation list holds.
class Probe : public CVChild {
public:
    void Render(CVState* state, CVGLRenderArea* area) override {
        if (state->m_nRenderPass != 1) return;
        annotationsInScene = area->GetAnnotationNodeListSize();
        if (annotationsInScene > 0) firstAnnotation = area->GetAnnotationNodeInfo(0)->node;
    }
    INT_PTR annotationsInScene = -1;
    CVNode* firstAnnotation = nullptr;
};

// root: a near red quad, then (under a transform) the depth-buffer group
// holding a far blue quad, then a probe.
class CVDepthBufferGLTest : public cvtest::NodeGLFixture {
protected:
    CVDepthBufferGLTest() {
        root->Ref();
        root->children.Add(Coloured(new QuadGeometry(-1.0f, -1.0f, 1.0f, 1.0f, -0.5f), 1.0f, 0.0f, 0.0f));
        auto* move = new CVTransform;
        move->translation.SetValue(0.25f, 0.0f, 0.0f);
        root->children.Add(move);
        move->children.Add(group);
        group->children.Add(Coloured(far, 0.0f, 0.0f, 1.0f));
        root->children.Add(probe);
    }
    ~CVDepthBufferGLTest() override { root->Unref(); }

    CVGroup* root = new CVGroup;
    CVDepthBuffer* group = new CVDepthBuffer;
    QuadGeometry* far = new QuadGeometry(-1.0f, -1.0f, 1.0f, 1.0f, 0.5f);
    Probe* probe = new Probe;
};

// Without a depth test the far quad lands on top; deferred, it is drawn in
// pass 3 with the matrices captured at deferral.
TEST_F(CVDepthBufferGLTest, ChildrenDrawWithTheirDepthTestNowOrAsAnAnnotation) {
    const struct {
        int defer, depthTest, pass;
        uint32_t centre;
    } cases[] = {{0, 0, 1, 0x0000FF}, {0, 1, 1, 0xFF0000}, {1, 1, 3, 0xFF0000}, {1, 0, 3, 0x0000FF}};
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << "defer " << c.defer << ", depth test " << c.depthTest);
        far->draws.clear();
        group->deferAsAnnotation.SetValue(c.defer);
        group->depthTest.SetValue(c.depthTest);
        DrawFrame(root);
        ASSERT_EQ(far->draws.size(), 2u);  // once a frame
        EXPECT_EQ(far->draws[1].pass, c.pass);
        EXPECT_EQ(far->draws[1].depthTest, c.depthTest != 0);
        EXPECT_FLOAT_EQ(far->draws[1].modelViewX, 0.25f);
        EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));  // the group's state pop restores it
        EXPECT_EQ(probe->annotationsInScene, c.defer);
        EXPECT_EQ(probe->firstAnnotation, c.defer ? group : nullptr);
        EXPECT_EQ(area->GetAnnotationNodeListSize(), 0);
        EXPECT_EQ(Pixel(32, 32), c.centre);
        probe->firstAnnotation = nullptr;
    }
}

TEST_F(CVDepthBufferGLTest, OtherActionsWalkADeferredGroupAsAGroup) {
    group->deferAsAnnotation.SetValue(1);
    CVGetBoundingBoxAction bounds(area);
    bounds.Apply(root);
    Point3fStruct min, max;
    bounds.GetBoundingBox().ComputeMinMax(min, max);
    EXPECT_FLOAT_EQ(max.x, 1.25f);  // the far quad, moved by the transform
    EXPECT_FLOAT_EQ(max.z, 0.5f);
    EXPECT_EQ(area->GetAnnotationNodeListSize(), 0);
}

}  // namespace
