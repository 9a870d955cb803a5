#include "support/CVActionTestSupport.h"
#include "geometry/CVShape.h"
#include "nodes/CVGroup.h"
#include "nodes/CVTransform.h"

namespace {

using cvtest::MatrixNear;
using CVTransformGLTest = cvtest::GLFixture;

CVMatrix Translation(float x, float y, float z) {
    CVMatrix m;
    m.m[0][3] = x, m.m[1][3] = y, m.m[2][3] = z;
    return m;
}

CVMatrix Scale(float x, float y, float z) {
    CVMatrix m;
    m.m[0][0] = x, m.m[1][1] = y, m.m[2][2] = z;
    return m;
}

// Columns are the rotated basis vectors.
CVMatrix Rotation(CVVector axis, float angle) {
    axis.Normalize();
    CVMatrix m;
    for (int c = 0; c < 3; ++c) {
        const CVVector r = CVVector(c == 0, c == 1, c == 2).Rotate(axis, angle);
        for (int row = 0; row < 3; ++row) m.m[row][c] = r[row];
    }
    return m;
}

// A transform with every field away from its default, and its matrix
// T * C * R * SR * S * -SR * -C.
void SetAll(CVTransform& t) {
    t.translation.SetValue(1.0f, -2.0f, 3.0f);
    t.center.SetValue(0.5f, 0.25f, -1.0f);
    t.rotation.SetValue(0.0f, 0.0f, 1.0f, 0.7f);
    t.scale.SetValue(2.0f, 3.0f, 0.5f);
    t.scaleOrientation.SetValue(1.0f, 1.0f, 0.0f, 0.4f);
}

CVMatrix Expected() {
    const CVVector so(1.0f, 1.0f, 0.0f);
    return Translation(1.0f, -2.0f, 3.0f) * Translation(0.5f, 0.25f, -1.0f) * Rotation(CVVector(0, 0, 1), 0.7f) *
           Rotation(so, 0.4f) * Scale(2.0f, 3.0f, 0.5f) * Rotation(so, -0.4f) * Translation(-0.5f, -0.25f, 1.0f);
}

// A matrix call between glBegin and glEnd is an error, so any call shows.
TEST_F(CVTransformGLTest, NeutralStepsIssueNoMatrixCall) {
    const struct {
        const char* name;
        std::function<void(CVTransform&)> set;
        bool issuesCalls;
    } cases[] = {
        {"Defaults", [](CVTransform&) {}, false},
        {"RotationAxisWithoutAngle", [](CVTransform& t) { t.rotation.SetValue(0.0f, 1.0f, 0.0f, 0.0f); }, false},
        {"UnitScaleWithoutOrientation", [](CVTransform& t) { t.scale.SetValue(1.0f, 1.0f, 1.0f); }, false},
        {"Translation", [](CVTransform& t) { t.translation.SetValue(0.0f, 0.0f, 1.0f); }, true},
        {"CenterAlone", [](CVTransform& t) { t.center.SetValue(1.0f, 0.0f, 0.0f); }, true},
        {"Rotation", [](CVTransform& t) { t.rotation.SetValue(1.0f, 0.0f, 0.0f, 0.1f); }, true},
        {"Scale", [](CVTransform& t) { t.scale.SetValue(1.0f, 2.0f, 1.0f); }, true},
        {"OrientationAroundUnitScale", [](CVTransform& t) { t.scaleOrientation.SetValue(0, 1, 0, 0.3f); }, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CVTransform t;
        c.set(t);
        while (glGetError() != GL_NO_ERROR) {
        }
        glBegin(GL_POINTS);
        t.Render(nullptr, area);
        glEnd();
        EXPECT_EQ(glGetError() != GL_NO_ERROR, c.issuesCalls);
    }
}

TEST_F(CVTransformGLTest, RenderMultipliesInFieldOrderAndGetMatrixLeavesTheStacksAlone) {
    CVTransform t;
    SetAll(t);
    const CVMatrix view = Translation(0.0f, 0.0f, -5.0f) * Rotation(CVVector(0.0f, 1.0f, 0.0f), 0.3f);
    GLfloat gl[16];
    view.GetValue(gl);
    glLoadMatrixf(gl);
    glMatrixMode(GL_PROJECTION);
    EXPECT_TRUE(MatrixNear(t.GetMatrix(), Expected(), 1e-4f));
    EXPECT_EQ(cvtest::GetInt(GL_MATRIX_MODE), GL_PROJECTION);
    glMatrixMode(GL_MODELVIEW);
    EXPECT_TRUE(MatrixNear(ModelView(), view, 0.0f));
    t.Render(nullptr, area);
    EXPECT_TRUE(MatrixNear(ModelView(), view * Expected(), 1e-4f));
}

TEST_F(CVTransformGLTest, ChildrenSeeTheMatrixAndTheWalkUndoesIt) {
    CVGroup* root = new CVGroup;
    root->Ref();
    CVTransform* t = new CVTransform;
    SetAll(*t);
    CVShape* shape = new CVShape;
    auto* geometry = new cvtest::TestGeometry;
    shape->geometry.SetValue(geometry);
    t->children.Add(shape);
    root->children.Add(t);

    cvtest::DrawAction(area).Apply(root);
    ASSERT_EQ(geometry->draws.size(), 1u);
    EXPECT_TRUE(MatrixNear(geometry->draws[0].modelView, Expected(), 1e-4f));
    EXPECT_TRUE(MatrixNear(ModelView(), CVMatrix(), 0.0f));
    root->Unref();
}

}  // namespace
