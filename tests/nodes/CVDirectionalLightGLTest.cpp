#include "nodes/CVDirectionalLight.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using cvtest::Rgba;
using CVDirectionalLightGLTest = cvtest::GLFixture;

::testing::AssertionResult LightIs(GLenum light, GLenum what, Rgba want) {
    Rgba v{};
    glGetLightfv(light, what, v.data());
    return cvtest::RgbaNear(v, want);
}

TEST_F(CVDirectionalLightGLTest, ShinesAlongItsDirectionInModelViewSpaceFromTheFirstFreeLight) {
    CVDirectionalLight light;
    light.color.SetValue(1.0f, 0.5f, 0.25f);
    light.ambientIntensity.SetValue(0.2f);
    light.intensity.SetValue(0.8f);
    glEnable(GL_LIGHT0);  // taken
    glRotatef(90.0f, 0.0f, 1.0f, 0.0f);  // z onto x
    CVState state;
    light.Render(&state, area);

    EXPECT_TRUE(glIsEnabled(GL_LIGHT1));
    EXPECT_FALSE(glIsEnabled(GL_LIGHT2));
    EXPECT_TRUE(LightIs(GL_LIGHT1, GL_POSITION, {1.0f, 0.0f, 0.0f, 0.0f}));
    EXPECT_TRUE(LightIs(GL_LIGHT1, GL_AMBIENT, {0.2f, 0.1f, 0.05f, 1.0f}));
    EXPECT_TRUE(LightIs(GL_LIGHT1, GL_DIFFUSE, {0.8f, 0.4f, 0.2f, 1.0f}));
    EXPECT_TRUE(LightIs(GL_LIGHT1, GL_SPECULAR, {0.8f, 0.4f, 0.2f, 1.0f}));
    EXPECT_EQ(area->GetLightNode(), &light);
}

TEST_F(CVDirectionalLightGLTest, NothingIsEnabledOrRecordedWhenOffPickingOrOutOfLights) {
    const struct {
        const char* name;
        int on, picking;
        bool allTaken;
    } cases[] = {{"Off", 0, 0, false}, {"WhilePicking", 1, 1, false}, {"NoFreeLight", 1, 0, true}};
    const int lights = area->GetMaxLights();
    ASSERT_GE(lights, 8);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CVDirectionalLight light;
        light.on.SetValue(c.on);
        CVState state;
        state.m_bRecordPath = c.picking;
        for (int i = 0; i < lights; ++i) c.allTaken ? glEnable(GL_LIGHT0 + i) : glDisable(GL_LIGHT0 + i);
        light.Render(&state, area);
        for (int i = 0; !c.allTaken && i < lights; ++i) EXPECT_FALSE(glIsEnabled(GL_LIGHT0 + i)) << "light " << i;
        EXPECT_TRUE(LightIs(GL_LIGHT0, GL_DIFFUSE, {1.0f, 1.0f, 1.0f, 1.0f}));  // GL's default, untouched
        EXPECT_EQ(area->GetLightNode(), nullptr);
    }
}

}  // namespace
