#include <gtest/gtest.h>

#include <GL/gl.h>

#include "actions/CVActionTestSupport.h"
#include "nodes/CVDirectionalLight.h"

namespace {

void ExpectLight(GLenum light, GLenum what, float a, float b, float c, float d) {
    GLfloat v[4];
    glGetLightfv(light, what, v);
    EXPECT_NEAR(v[0], a, 1e-6f);
    EXPECT_NEAR(v[1], b, 1e-6f);
    EXPECT_NEAR(v[2], c, 1e-6f);
    EXPECT_NEAR(v[3], d, 1e-6f);
}

using CVDirectionalLightGLTest = cvtest::GLFixture;

TEST_F(CVDirectionalLightGLTest, ShinesAlongItsDirectionFromTheFirstFreeLight) {
    CVDirectionalLight light;
    light.color.SetValue(1.0f, 0.5f, 0.25f);
    light.ambientIntensity.SetValue(0.2f);
    light.intensity.SetValue(0.8f);
    glEnable(GL_LIGHT0);  // taken
    CVState state;
    light.Render(&state, area);

    EXPECT_TRUE(glIsEnabled(GL_LIGHT1));
    EXPECT_FALSE(glIsEnabled(GL_LIGHT2));
    ExpectLight(GL_LIGHT1, GL_POSITION, 0.0f, 0.0f, 1.0f, 0.0f);
    ExpectLight(GL_LIGHT1, GL_AMBIENT, 0.2f, 0.1f, 0.05f, 1.0f);
    ExpectLight(GL_LIGHT1, GL_DIFFUSE, 0.8f, 0.4f, 0.2f, 1.0f);
    ExpectLight(GL_LIGHT1, GL_SPECULAR, 0.8f, 0.4f, 0.2f, 1.0f);
    EXPECT_EQ(area->GetLightNode(), &light);
}

TEST_F(CVDirectionalLightGLTest, PositionIsInModelViewSpace) {
    CVDirectionalLight light;
    glMatrixMode(GL_MODELVIEW);
    glRotatef(90.0f, 0.0f, 1.0f, 0.0f);  // z onto x
    light.Render(nullptr, area);
    ExpectLight(GL_LIGHT0, GL_POSITION, 1.0f, 0.0f, 0.0f, 0.0f);
}

struct SkipCase {
    const char* name;
    int on;
    int identification;
    bool allTaken;
};

class CVDirectionalLightSkipGLTest : public cvtest::GLFixture, public ::testing::WithParamInterface<SkipCase> {};

TEST_P(CVDirectionalLightSkipGLTest, NothingIsEnabledOrRecorded) {
    const SkipCase& c = GetParam();
    CVDirectionalLight light;
    light.on.SetValue(c.on);
    CVState state;
    state.m_bRecordPath = c.identification;
    const int lights = area->GetMaxLights();
    ASSERT_GE(lights, 8);
    if (c.allTaken)
        for (int i = 0; i < lights; ++i) glEnable(GL_LIGHT0 + i);
    light.Render(&state, area);
    if (!c.allTaken) {
        for (int i = 0; i < lights; ++i) EXPECT_FALSE(glIsEnabled(GL_LIGHT0 + i)) << "light " << i;
    }
    ExpectLight(GL_LIGHT0, GL_DIFFUSE, 1.0f, 1.0f, 1.0f, 1.0f);  // GL's default, untouched
    EXPECT_EQ(area->GetLightNode(), nullptr);
}

const SkipCase kSkipCases[] = {
    {"Off", 0, 0, false},
    {"WhilePicking", 1, 1, false},
    {"NoFreeLight", 1, 0, true},
};
INSTANTIATE_TEST_SUITE_P(Cases, CVDirectionalLightSkipGLTest, ::testing::ValuesIn(kSkipCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
