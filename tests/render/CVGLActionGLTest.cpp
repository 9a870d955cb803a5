#include "support/CVActionTestSupport.h"

namespace {

using cvtest::GetInt;
using CVGLActionGLTest = cvtest::GLFixture;

// Depth follows pushes only while paths are recorded.
TEST_F(CVGLActionGLTest, StatePushSavesEnableLightingAndPolygonBits) {
    for (int recording : {0, 1}) {
        SCOPED_TRACE(recording);
        cvtest::DrawAction action(area);
        action.GetState()->m_bRecordPath = recording;
        const GLint stack = GetInt(GL_ATTRIB_STACK_DEPTH);
        glEnable(GL_DEPTH_TEST);
        glShadeModel(GL_SMOOTH);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        glLineWidth(1.0f);

        action.PushState();
        EXPECT_EQ(GetInt(GL_ATTRIB_STACK_DEPTH), stack + 1);
        EXPECT_EQ(action.GetState()->m_nDepth, recording ? 0 : -1);
        glDisable(GL_DEPTH_TEST);                   // enable bit
        glShadeModel(GL_FLAT);                      // lighting bit
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);  // polygon bit
        glLineWidth(3.0f);                          // line bit: not saved
        action.PopState();

        EXPECT_EQ(GetInt(GL_ATTRIB_STACK_DEPTH), stack);
        EXPECT_EQ(action.GetState()->m_nDepth, -1);
        EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
        EXPECT_EQ(GetInt(GL_SHADE_MODEL), GL_SMOOTH);
        EXPECT_EQ(GetInt(GL_POLYGON_MODE), GL_FILL);
        GLfloat width = 0.0f;
        glGetFloatv(GL_LINE_WIDTH, &width);
        EXPECT_EQ(width, 3.0f);
    }
}

TEST_F(CVGLActionGLTest, MatrixPushesActOnTheirOwnStack) {
    cvtest::DrawAction action(area);
    const GLint modelView = GetInt(GL_MODELVIEW_STACK_DEPTH), projection = GetInt(GL_PROJECTION_STACK_DEPTH);
    action.PushProjection();
    EXPECT_EQ(GetInt(GL_MATRIX_MODE), GL_PROJECTION);
    EXPECT_EQ(GetInt(GL_PROJECTION_STACK_DEPTH), projection + 1);
    glMatrixMode(GL_TEXTURE);
    action.PushModelView();
    EXPECT_EQ(GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_EQ(GetInt(GL_MODELVIEW_STACK_DEPTH), modelView + 1);
    glTranslatef(1.0f, 2.0f, 3.0f);

    glMatrixMode(GL_TEXTURE);
    action.PopModelView();
    EXPECT_TRUE(cvtest::MatrixNear(ModelView(), CVMatrix()));
    action.PopProjection();
    EXPECT_EQ(GetInt(GL_PROJECTION_STACK_DEPTH), projection);
    EXPECT_EQ(GetInt(GL_MODELVIEW_STACK_DEPTH), modelView);
}

class DeviceAction : public CVGLAction {
public:
    explicit DeviceAction(CVGLDevice* device) : CVGLAction(device) {}
    int Apply(CVNode*) override { return 1; }
};

TEST_F(CVGLActionGLTest, HoldsOneReferenceOnItsAreaAndOwnsOneItMakes) {
    const int before = area->GetRef();
    {
        cvtest::DrawAction action(area);
        EXPECT_EQ(area->GetRef(), before + 1);
        action.SetRenderArea(area);  // the held area again must survive
        EXPECT_EQ(action.GetRenderArea(), area);
        EXPECT_EQ(area->GetRef(), before + 1);
    }
    EXPECT_EQ(area->GetRef(), before);
    {
        DeviceAction action(&device);
        CVGLRenderArea* own = action.GetRenderArea();
        ASSERT_NE(own, nullptr);
        EXPECT_NE(own, area);
        EXPECT_EQ(own->GetRef(), 1);
        EXPECT_NE(own->GetHGLRC(), nullptr);
    }
    area->MakeCurrent();
}

}  // namespace
