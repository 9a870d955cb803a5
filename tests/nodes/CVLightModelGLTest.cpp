#include "nodes/CVLightModel.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

using cvtest::GetInt;
using cvtest::GetRgba;
using cvtest::Rgba;
using CVLightModelGLTest = cvtest::GLFixture;

TEST_F(CVLightModelGLTest, SetsTheLightModelButNotWhilePicking) {
    const struct {
        const char* name;
        int lighting, viewerMode, twoSided;
        bool lightingOn;
        GLint localViewer;  // starts at 1, so a mode that makes no call leaves 1
    } cases[] = {
        {"LocalViewer", 1, 0, 0, true, 1},
        {"InfiniteViewer", 7, 1, 1, true, 0},
        {"OtherModeMakesNoCall", 1, 2, 0, true, 1},
        {"LightingOff", 0, 1, 1, false, 0},
    };
    CVLightModel model;
    model.ambientColor.SetValue(0.25f, 0.5f, 0.75f);
    CVState state;
    state.m_bRecordPath = 1;
    model.twoSided.SetValue(1);
    model.Render(&state, area);
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_EQ(GetInt(GL_LIGHT_MODEL_TWO_SIDE), 0);
    EXPECT_FLOAT_EQ(GetRgba(GL_LIGHT_MODEL_AMBIENT)[0], 0.2f);  // GL's default

    state.m_bRecordPath = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        model.lighting.SetValue(c.lighting);
        model.viewerMode.SetValue(c.viewerMode);
        model.twoSided.SetValue(c.twoSided);
        glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1);
        glLightModelfv(GL_LIGHT_MODEL_AMBIENT, Rgba{}.data());
        model.Render(&state, area);
        EXPECT_EQ(glIsEnabled(GL_LIGHTING) != 0, c.lightingOn);
        EXPECT_EQ(GetInt(GL_LIGHT_MODEL_LOCAL_VIEWER), c.localViewer);
        EXPECT_EQ(GetInt(GL_LIGHT_MODEL_TWO_SIDE), c.twoSided);
        EXPECT_EQ(GetRgba(GL_LIGHT_MODEL_AMBIENT), (Rgba{0.25f, 0.5f, 0.75f, 1.0f}));
    }
}

}  // namespace
