#include <gtest/gtest.h>

#include <GL/gl.h>

#include "actions/CVGetBoundingBoxAction.h"
#include "actions/CVTransform.h"
#include "nodes/CVDepthBuffer.h"
#include "nodes/CVMaterial.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using cvtest::QuadGeometry;

CVAppearance* Colored(float r, float g, float b) {
    auto* material = new CVMaterial;
    material->diffuseColor.SetValue(r, g, b);
    auto* appearance = new CVAppearance;
    appearance->material.SetValue(material);
    return appearance;
}

// root: a near red quad, then (under a transform) the depth-buffer group
// holding a far blue quad.
class CVDepthBufferGLTest : public cvtest::NodeGLFixture {
protected:
    CVDepthBufferGLTest() {
        root->Ref();
        near = new QuadGeometry(-1.0f, -1.0f, 1.0f, 1.0f, -0.5f);
        far = new QuadGeometry(-1.0f, -1.0f, 1.0f, 1.0f, 0.5f);
        root->children.Add(cvtest::MakeQuadShape(near, Colored(1.0f, 0.0f, 0.0f)));
        auto* move = new CVTransform;
        move->translation.SetValue(0.25f, 0.0f, 0.0f);
        root->children.Add(move);
        move->children.Add(group);
        group->children.Add(cvtest::MakeQuadShape(far, Colored(0.0f, 0.0f, 1.0f)));
    }
    ~CVDepthBufferGLTest() override { root->Unref(); }

    void Draw() {
        Clear(0.0f, 0.0f, 0.0f);
        cvtest::PassAction action(area);
        action.Apply(root);
        annotations = action.annotationsAfterScene;
        ToBitmap();
    }

    CVGroup* root = new CVGroup;
    CVDepthBuffer* group = new CVDepthBuffer;
    QuadGeometry* near;
    QuadGeometry* far;
    INT_PTR annotations = 0;
};

TEST_F(CVDepthBufferGLTest, ChildrenAreDrawnWithoutDepthTestByDefault) {
    Draw();
    ASSERT_EQ(far->draws.size(), 1u);
    EXPECT_EQ(far->draws[0].pass, 1);
    EXPECT_FALSE(far->draws[0].depthTest);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));  // the group's state pop restores it
    EXPECT_EQ(annotations, 0);
    EXPECT_EQ(Pixel(32, 32), 0x0000FFu);  // drawn over the nearer quad
}

TEST_F(CVDepthBufferGLTest, DepthTestTrueKeepsNearerGeometryInFront) {
    group->depthTest.SetValue(1);
    Draw();
    ASSERT_EQ(far->draws.size(), 1u);
    EXPECT_TRUE(far->draws[0].depthTest);
    EXPECT_EQ(Pixel(32, 32), 0xFF0000u);
}

TEST_F(CVDepthBufferGLTest, AnnotationIsDeferredFromTheSceneAndDrawnInPassThree) {
    group->deferAsAnnotation.SetValue(1);
    group->depthTest.SetValue(1);
    Draw();
    EXPECT_EQ(annotations, 1);
    ASSERT_EQ(far->draws.size(), 1u);  // not in the scene pass
    EXPECT_EQ(far->draws[0].pass, 3);
    EXPECT_TRUE(far->draws[0].depthTest);
    EXPECT_FLOAT_EQ(far->draws[0].modelViewX, 0.25f);  // matrices captured at deferral
    EXPECT_EQ(area->GetAnnotationNodeListSize(), 0);
    EXPECT_EQ(Pixel(32, 32), 0xFF0000u);
}

TEST_F(CVDepthBufferGLTest, AnnotationWithoutDepthTestLandsOnTop) {
    group->deferAsAnnotation.SetValue(1);
    Draw();
    ASSERT_EQ(near->draws.size(), 1u);
    ASSERT_EQ(far->draws.size(), 1u);
    EXPECT_FALSE(far->draws[0].depthTest);
    EXPECT_EQ(Pixel(32, 32), 0x0000FFu);
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
