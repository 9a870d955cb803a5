#include <gtest/gtest.h>

#include <GL/gl.h>

#include "actions/CVActionTestSupport.h"
#include "nodes/CVLightModel.h"

namespace {

GLint GetInt(GLenum what) {
    GLint v = 0;
    glGetIntegerv(what, &v);
    return v;
}

struct ModelCase {
    const char* name;
    int lighting;
    int viewerMode;
    int twoSided;
    bool lightingOn;
    GLint localViewer;  // starts at 1, so a mode that makes no call leaves 1
};

const ModelCase kCases[] = {
    {"LocalViewer", 1, 0, 0, true, 1},
    {"InfiniteViewer", 7, 1, 1, true, 0},
    {"OtherModeMakesNoCall", 1, 2, 0, true, 1},
    {"LightingOff", 0, 1, 1, false, 0},
};

class CVLightModelGLTest : public cvtest::GLFixture, public ::testing::WithParamInterface<ModelCase> {};

TEST_P(CVLightModelGLTest, SetsTheLightModel) {
    const ModelCase& c = GetParam();
    CVLightModel model;
    model.lighting.SetValue(c.lighting);
    model.viewerMode.SetValue(c.viewerMode);
    model.twoSided.SetValue(c.twoSided);
    model.ambientColor.SetValue(0.25f, 0.5f, 0.75f);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1);
    CVState state;
    model.Render(&state, area);

    EXPECT_EQ(glIsEnabled(GL_LIGHTING) != 0, c.lightingOn);
    EXPECT_EQ(GetInt(GL_LIGHT_MODEL_LOCAL_VIEWER), c.localViewer);
    EXPECT_EQ(GetInt(GL_LIGHT_MODEL_TWO_SIDE), c.twoSided);
    GLfloat ambient[4];
    glGetFloatv(GL_LIGHT_MODEL_AMBIENT, ambient);
    EXPECT_FLOAT_EQ(ambient[0], 0.25f);
    EXPECT_FLOAT_EQ(ambient[1], 0.5f);
    EXPECT_FLOAT_EQ(ambient[2], 0.75f);
    EXPECT_FLOAT_EQ(ambient[3], 1.0f);
}

INSTANTIATE_TEST_SUITE_P(Cases, CVLightModelGLTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

using CVLightModelPickGLTest = cvtest::GLFixture;

TEST_F(CVLightModelPickGLTest, DoesNothingWhilePicking) {
    CVLightModel model;
    model.twoSided.SetValue(1);
    CVState state;
    state.m_bRecordPath = 1;
    model.Render(&state, area);
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_EQ(GetInt(GL_LIGHT_MODEL_TWO_SIDE), 0);
    GLfloat ambient[4];
    glGetFloatv(GL_LIGHT_MODEL_AMBIENT, ambient);
    EXPECT_FLOAT_EQ(ambient[0], 0.2f);  // GL's default
}

}  // namespace
