#include <gtest/gtest.h>

#include <GL/gl.h>

#include <array>
#include <functional>
#include <ostream>
#include <string>

#include "nodes/CVMaterial.h"
#include "nodes/CVNodeTestSupport.h"

namespace {

typedef std::array<GLfloat, 4> Rgba;

Rgba FrontMaterial(GLenum what) {
    Rgba v{};
    glGetMaterialfv(GL_FRONT, what, v.data());
    return v;
}

Rgba CurrentColor() {
    Rgba v{};
    glGetFloatv(GL_CURRENT_COLOR, v.data());
    return v;
}

void ExpectRgba(const Rgba& v, float r, float g, float b, float a) {
    EXPECT_FLOAT_EQ(v[0], r);
    EXPECT_FLOAT_EQ(v[1], g);
    EXPECT_FLOAT_EQ(v[2], b);
    EXPECT_FLOAT_EQ(v[3], a);
}

// Colour material is switched off so that what glMaterial received can be
// read back unaltered; values not resent keep a poked sentinel.
class CVMaterialGLTest : public cvtest::NodeGLFixture {
protected:
    CVMaterialGLTest() {
        glDisable(GL_COLOR_MATERIAL);
        first->Ref();
        second->Ref();
    }
    ~CVMaterialGLTest() override {
        first->Unref();
        second->Unref();
    }
    static void PokeSentinels() {
        const GLfloat sentinel[4] = {0.125f, 0.25f, 0.375f, 0.5f};
        glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, sentinel);
        glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, sentinel);
        glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, sentinel);
        glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 7.0f);
        glColor4fv(sentinel);
    }
    static bool IsSentinel(const Rgba& v) { return v == Rgba{0.125f, 0.25f, 0.375f, 0.5f}; }
    static float Shininess() { return FrontMaterial(GL_SHININESS)[0]; }

    CVMaterial* first = new CVMaterial;
    CVMaterial* second = new CVMaterial;
};

TEST_F(CVMaterialGLTest, FirstRenderSendsEveryDefault) {
    first->Render(nullptr, area);
    ExpectRgba(CurrentColor(), 0.8f, 0.8f, 0.8f, 1.0f);
    ExpectRgba(FrontMaterial(GL_AMBIENT), 0.64f, 0.64f, 0.64f, 1.0f);  // ambient intensity 0.8
    ExpectRgba(FrontMaterial(GL_SPECULAR), 0.0f, 0.0f, 0.0f, 1.0f);
    ExpectRgba(FrontMaterial(GL_EMISSION), 0.0f, 0.0f, 0.0f, 1.0f);
    EXPECT_FLOAT_EQ(Shininess(), 0.2f * 128.0f);
    Rgba back{};
    glGetMaterialfv(GL_BACK, GL_AMBIENT, back.data());
    EXPECT_FLOAT_EQ(back[0], 0.64f);

    const CVCacheManager* cache = CVGetCacheManagerPtr();
    EXPECT_FLOAT_EQ(cache->m_CurrentColor.g, 0.8f);
    EXPECT_FLOAT_EQ(cache->m_fAmbientIntensity, 0.8f);
    EXPECT_FLOAT_EQ(cache->m_fShininess, 0.2f);
    EXPECT_FLOAT_EQ(cache->m_fTransparency, 0.0f);
}

// The second material differs from the first in one respect; which of the
// skippable values reach GL again?
struct SkipCase {
    const char* name;
    std::function<void(CVMaterial*)> change;
    bool specular, shininess, emission;
};

std::ostream& operator<<(std::ostream& out, const SkipCase& c) { return out << c.name; }

class CVMaterialSkipGLTest : public CVMaterialGLTest, public ::testing::WithParamInterface<SkipCase> {};

TEST_P(CVMaterialSkipGLTest, OnlyChangedValuesAreResent) {
    const SkipCase& c = GetParam();
    for (CVMaterial* m : {first, second}) {
        m->specularColor.SetValue(0.5f, 0.5f, 0.5f);
        m->emissiveColor.SetValue(0.25f, 0.0f, 0.0f);
        m->shininess.SetValue(0.5f);
    }
    c.change(second);
    first->Render(nullptr, area);
    PokeSentinels();
    second->Render(nullptr, area);

    EXPECT_EQ(!IsSentinel(FrontMaterial(GL_SPECULAR)), c.specular);
    EXPECT_EQ(Shininess() != 7.0f, c.shininess);
    EXPECT_EQ(!IsSentinel(FrontMaterial(GL_EMISSION)), c.emission);
    // Colour and ambient go out every time.
    const float alpha = 1.0f - second->transparency.GetValue();
    const RGBColorStruct& d = second->diffuseColor.GetValue();
    const float ai = second->ambientIntensity.GetValue();
    ExpectRgba(CurrentColor(), d.r, d.g, d.b, alpha);
    ExpectRgba(FrontMaterial(GL_AMBIENT), d.r * ai, d.g * ai, d.b * ai, alpha);
    if (c.specular) {
        const RGBColorStruct& sp = second->specularColor.GetValue();
        ExpectRgba(FrontMaterial(GL_SPECULAR), sp.r, sp.g, sp.b, alpha);
    }
    if (c.emission) {
        const RGBColorStruct& e = second->emissiveColor.GetValue();
        ExpectRgba(FrontMaterial(GL_EMISSION), e.r, e.g, e.b, alpha);
    }
    if (c.shininess) {
        EXPECT_FLOAT_EQ(Shininess(), second->shininess.GetValue() * 128.0f);
    }
}

const SkipCase kSkipCases[] = {
    {"Equal", [](CVMaterial*) {}, false, false, false},
    {"Diffuse", [](CVMaterial* m) { m->diffuseColor.SetValue(0.0f, 1.0f, 0.0f); }, false, false, false},
    {"AmbientIntensity", [](CVMaterial* m) { m->ambientIntensity.SetValue(0.5f); }, false, false, false},
    {"Specular", [](CVMaterial* m) { m->specularColor.SetValue(0.75f, 0.5f, 0.5f); }, true, false, false},
    {"Shininess", [](CVMaterial* m) { m->shininess.SetValue(0.25f); }, false, true, false},
    {"Emissive", [](CVMaterial* m) { m->emissiveColor.SetValue(0.25f, 0.0f, 0.5f); }, false, false, true},
    {"Transparency", [](CVMaterial* m) { m->transparency.SetValue(0.5f); }, true, false, true},
};

INSTANTIATE_TEST_SUITE_P(Changes, CVMaterialSkipGLTest, ::testing::ValuesIn(kSkipCases),
                         [](const ::testing::TestParamInfo<SkipCase>& info) { return std::string(info.param.name); });

TEST_F(CVMaterialGLTest, TheSkipStateIsSharedByEveryRenderArea) {
    first->Render(nullptr, area);
    CVTestBitmap otherBitmap(16, 16);
    CVBitmapDevice otherDevice(otherBitmap.GetDC());
    CVGLRenderArea* other = new CVGLRenderArea(&otherDevice);
    other->Ref();
    glDisable(GL_COLOR_MATERIAL);
    const GLfloat red[4] = {1.0f, 0.0f, 0.0f, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, red);
    second->Render(nullptr, other);  // the fresh context is believed to hold the first's values
    ExpectRgba(FrontMaterial(GL_SPECULAR), 1.0f, 0.0f, 0.0f, 1.0f);
    other->Unref();
    area->MakeCurrent();
}

}  // namespace
